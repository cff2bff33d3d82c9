// SPDX-License-Identifier: MIT
// Decides what the keys of a computer's keyboard mean, in a window and in a browser. The phone has
// no such keys.
#pragma once

#include "Host.h"

#include <cstdint>

/// A key that was pressed, with the modifier keys that were held.
struct KeyPress {
    enum class Name {
        kOther,
        kCharacter,
        kUp,
        kDown,
        kLeft,
        kRight,
        kEnter,
        kEscape,
        kF1,
        kF2,
        kF11,
        kF12,
        kVolumeUp,
        kVolumeDown,
    };

    Name name = Name::kOther;
    char character = 0;  // small letter, digit or sign, if the name is kCharacter
    bool control = false;
    bool alt = false;
    bool shift = false;
};

/// What to do for a key.
struct KeyAction {
    enum class Kind {
        kNone,
        kNavigate,  // press this key of the phone
        kVolumeUp,
        kVolumeDown,
        kEffect,  // show the effect
        kRecord,  // press keys of the phone until a recording runs (KeyWalk)
        kSave,
        kExport,
        kOpen,
        kBringBack,  // make the last take the take again
        kAction,     // do what the message of the strip offers
        kPicture,    // write a picture of the screen
        kMicrophones,
        kHelp,
        kClose,  // close the message or the sheet of the strip
        kQuit,
        kFullScreen,  // fill the screen, or leave that again
        kLarger,
        kSmaller,
        kUsualSize,
    };

    Kind kind = Kind::kNone;
    HostKey key = HostKey::kMiddle;  // if the kind is kNavigate
    int32_t effect = 0;              // if it is kEffect; 0 to 7

    bool operator==(const KeyAction& other) const {
        return kind == other.kind && key == other.key && effect == other.effect;
    }
};

class KeyRules {
public:
    /// @param doors  null: the program has ended; its screen then counts as empty
    /// @param closes  true: the strip shows something, which Escape closes first
    static KeyAction actionOf(const KeyPress& press, HostDoors* doors, bool closes = false);

    /// True if it changes what lies below the sheet of the strip (help, list of microphones): the
    /// sheet is closed first, so that the user sees what happens. A key of the phone (isOfPhone())
    /// goes to the sheet instead.
    static bool closesSheet(const KeyAction& action);

    /// True if it stands for a key of the phone on every screen: an arrow, Enter, Space, F1, F2.
    /// @param key  that key of the phone; untouched if false
    static bool isOfPhone(const KeyPress& press, HostKey& key);

private:
    static KeyAction withControl(char character, bool shift);
    static KeyAction ofCharacter(char character, HostDoors* doors);
    static KeyAction ofEscape(const ScreenTexts& texts);
};
