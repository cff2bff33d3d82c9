#include "SdlDeeds.h"

#include "SdlDoors.h"
#include "SdlWindow.h"

using Kind = KeyDeed::Kind;

SdlDeeds::SdlDeeds(SdlWindow& window, SdlDoors& extraDoors, KeyWalk& walk)
    : window(window)
    , extraDoors(extraDoors)
    , walk(walk) {}

bool SdlDeeds::perform(const KeyDeed& deed, HostListener& listener, HostDoors* doors) {
    switch (deed.kind) {
    case Kind::kNavigate:
        return doors != nullptr && doors->navigate(deed.key);
    case Kind::kVolumeUp:
    case Kind::kVolumeDown:
        listener.onVolumeKey(deed.kind == Kind::kVolumeUp);
        return true;
    case Kind::kRecord:
        walk.toRecording();
        return false;
    case Kind::kSave:
        return doors != nullptr && extraDoors.save();
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
        return false;  // what the strip does: effects, files, microphones, help
    }
}
