// SPDX-License-Identifier: MIT
// What a key of a keyboard means, on a computer and in a browser: the phone has none of them.
#pragma once

#include "Host.h"

#include <cstdint>

/// A key that was pressed, with what was held down.
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

/// What is to be done for a key.
struct KeyDeed {
    enum class Kind {
        kNone,
        kNavigate,  // press this key of the phone
        kVolumeUp,
        kVolumeDown,
        kEffect,  // go to the effect of that index
        kRecord,  // go on, key by key, until a recording runs (KeyWalk)
        kSave,
        kExport,
        kOpen,
        kBringBack,  // the last take
        kPicture,    // of the screen
        kMicrophones,
        kHelp,
        kClose,  // the message or the sheet of the strip
        kQuit,
        kFullScreen,  // or back from it
        kLarger,
        kSmaller,
        kUsualSize,
    };

    Kind kind = Kind::kNone;
    HostKey key = HostKey::kMiddle;  // kNavigate
    int32_t effect = 0;              // kEffect, 0 to 7

    bool operator==(const KeyDeed& other) const {
        return kind == other.kind && key == other.key && effect == other.effect;
    }
};

class KeyRules {
public:
    /// @param doors   null: only what needs no program is done
    /// @param closes  the strip shows something that Escape closes first
    static KeyDeed deedOf(const KeyPress& press, HostDoors* doors, bool closes = false);

    /// True if it is one of the phone's keys by itself, whatever the picture shows: an arrow,
    /// Enter, Space, F1, F2.
    /// @param key  which one; untouched otherwise
    static bool isOfPhone(const KeyPress& press, HostKey& key);

private:
    static KeyDeed withControl(char character, bool shift);
    static KeyDeed ofCharacter(char character, HostDoors* doors);
    static KeyDeed ofEscape(const ScreenTexts& texts);
};
