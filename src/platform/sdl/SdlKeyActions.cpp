// SPDX-License-Identifier: MIT
#include "SdlKeyActions.h"

#include "SdlDoors.h"
#include "SdlStrip.h"
#include "SdlWindow.h"

using Kind = KeyAction::Kind;

SdlKeyActions::SdlKeyActions(SdlWindow& window,
                             SdlDoors& extraDoors,
                             SdlStrip& strip,
                             KeyWalk& walk)
    : window(window)
    , extraDoors(extraDoors)
    , strip(strip)
    , walk(walk) {}

bool SdlKeyActions::perform(const KeyAction& action, HostListener& listener, HostDoors* doors) {
    if (KeyRules::closesSheet(action)) {
        strip.closeSheet();
    }
    switch (action.kind) {
    case Kind::kNavigate:
        return doors != nullptr && doors->navigate(action.key);
    case Kind::kVolumeUp:
    case Kind::kVolumeDown:
        listener.onVolumeKey(action.kind == Kind::kVolumeUp);
        return true;
    case Kind::kRecord:
        walk.toRecording();
        return false;
    case Kind::kExport:
        return extraDoors.exportSound();
    case Kind::kBringBack:
        return extraDoors.bringBack();
    case Kind::kPicture:
        extraDoors.takePicture();
        return false;
    case Kind::kQuit:
        listener.onTerminate();
        return true;
    case Kind::kFullScreen:
        window.toggleFullScreen();
        return false;
    case Kind::kLarger:
        window.changeSize(SdlWindow::Change::kLarger);
        return false;
    case Kind::kSmaller:
        window.changeSize(SdlWindow::Change::kSmaller);
        return false;
    case Kind::kUsualSize:
        window.changeSize(SdlWindow::Change::kUsual);
        return false;
    default:
        return onStrip(action);
    }
}

/// Does what the strip also offers by a tap.
bool SdlKeyActions::onStrip(const KeyAction& action) {
    switch (action.kind) {
    case Kind::kEffect:
        return strip.key(
            static_cast<StripKey>(static_cast<int32_t>(StripKey::kEffect1) + action.effect));
    case Kind::kSave:
        return strip.key(StripKey::kSave);
    case Kind::kOpen:
        return strip.key(StripKey::kOpen);
    case Kind::kMicrophones:
        return strip.key(StripKey::kMicrophones);
    case Kind::kHelp:
        return strip.key(StripKey::kHelp);
    case Kind::kAction:
        return strip.key(StripKey::kAction);
    case Kind::kClose:
        return strip.key(StripKey::kClose);
    default:
        return false;
    }
}
