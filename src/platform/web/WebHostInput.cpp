// SPDX-License-Identifier: MIT
// WebHost's handling of the page's pointers and keys.
#include "KeyRules.h"
#include "WebHost.h"

namespace {

const std::string kControl = "Control+";

struct NamedKey {
    const char* name;
    KeyPress::Name key;
};

constexpr NamedKey kKeys[] = {
    {"ArrowUp", KeyPress::Name::kUp},     {"ArrowDown", KeyPress::Name::kDown},
    {"ArrowLeft", KeyPress::Name::kLeft}, {"ArrowRight", KeyPress::Name::kRight},
    {"Enter", KeyPress::Name::kEnter},    {"Escape", KeyPress::Name::kEscape},
    {"F1", KeyPress::Name::kF1},          {"F2", KeyPress::Name::kF2},
};

/// @param name  as WebHost::keyNamed() gets it
KeyPress pressOf(std::string name) {
    KeyPress press;
    press.control = name.rfind(kControl, 0) == 0;
    name.erase(0, press.control ? kControl.size() : 0);
    for (const NamedKey& named : kKeys) {
        if (name == named.name) {
            press.name = named.key;
        }
    }
    if (name.size() == 1) {
        press.shift = name[0] >= 'A' && name[0] <= 'Z';
        press.name = KeyPress::Name::kCharacter;
        press.character = static_cast<char>(press.shift ? name[0] - 'A' + 'a' : name[0]);
    }
    return press;
}

OneFinger::Pointer pointerOf(bool isFinger) {
    return isFinger ? OneFinger::Pointer::kFinger : OneFinger::Pointer::kMouse;
}

}  // namespace

void WebHost::touch(
    HostListener::Touch touch, bool isFinger, int32_t id, int32_t x, int32_t y, uint32_t timeMs) {
    tasks.emplace_back([=, this, asked = refusals](HostListener& listener) {
        const OneFinger::Pointer pointer = pointerOf(isFinger);
        switch (touch) {
        case HostListener::Touch::kPress:
            walk.giveUp();
            return asked == refusals && finger.tapped(pointer, id, x, y, timeMs, listener);
        case HostListener::Touch::kMove:
            return finger.moved(pointer, id, x, y, listener);
        default:
            return finger.released(pointer, id, x, y, listener);
        }
    });
}

void WebHost::touchCancelled(bool isFinger, int32_t id) {
    tasks.emplace_back([=, this](HostListener& listener) {
        row.strip().takeTouchAway();
        return finger.cancelled(pointerOf(isFinger), id, listener);
    });
}

void WebHost::key(HostKey key) {
    tasks.emplace_back([=, this, asked = refusals](HostListener&) {
        return asked == refusals && doors != nullptr && doors->navigate(key);
    });
}

/// A key that the user pressed. Ignored while a sheet covers the picture.
void WebHost::navigate(HostKey pressed) {
    walk.giveUp();
    if (!row.coversPicture()) {
        key(pressed);
    }
}

void WebHost::stripKey(StripKey key) {
    tasks.emplace_back([=, this, asked = refusals](HostListener&) {
        return asked == refusals && row.strip().key(key, stripNowMs());
    });
}

void WebHost::volumeKey(bool up) {
    tasks.emplace_back([=](HostListener& listener) {
        listener.onVolumeKey(up);
        return true;
    });
}

bool WebHost::keyNamed(const std::string& name) {
    const KeyPress press = pressOf(name);
    const KeyAction action = KeyRules::actionOf(press, doors, row.strip().canClose());
    HostKey ofPhone = HostKey::kMiddle;
    const bool isBrowsers = action.kind == KeyAction::Kind::kExport;
    if (row.coversPicture() && KeyRules::closesSheet(action) && !isBrowsers &&
        !KeyRules::isOfPhone(press, ofPhone)) {
        row.close();
    }
    switch (action.kind) {
    case KeyAction::Kind::kNavigate:
        navigate(action.key);
        break;
    case KeyAction::Kind::kVolumeUp:
    case KeyAction::Kind::kVolumeDown:
        volumeKey(action.kind == KeyAction::Kind::kVolumeUp);
        break;
    case KeyAction::Kind::kRecord:
        walk.toRecording();
        break;
    case KeyAction::Kind::kBringBack:
        bringLastTakeBack();
        break;
    case KeyAction::Kind::kClose:
        row.close();
        break;
    case KeyAction::Kind::kEffect:
    case KeyAction::Kind::kSave:
    case KeyAction::Kind::kOpen:
    case KeyAction::Kind::kMicrophones:
    case KeyAction::Kind::kAction:
    case KeyAction::Kind::kHelp:
        stripKey(static_cast<StripKey>(press.character));
        break;
    default:
        return false;  // left to the browser: reload, full screen, zoom
    }
    return true;
}

void WebHost::point(int32_t x, int32_t y) {
    row.strip().point(x, y);
    row.showIfNew();
}
