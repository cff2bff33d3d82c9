// SPDX-License-Identifier: MIT
// Prints each key that does something, one in a line ("Ctrl+Shift+S"), and then the sentences of
// the help on keys: "language TAB name TAB text". keys.py compares them with the pages.
#include "FakeDoors.h"
#include "HostWords.h"
#include "KeyRules.h"
#include "ScreenNames.h"

#include <cstdio>

using Means = ScreenTexts::Means;
using Name = KeyPress::Name;

namespace {

/// What is written on the key. A key without a name here does not compile with warnings as errors.
const char* textOf(Name name) {
    switch (name) {
    case Name::kOther:
    case Name::kCharacter:
        return "";
    case Name::kUp:
        return "Up";
    case Name::kDown:
        return "Down";
    case Name::kLeft:
        return "Left";
    case Name::kRight:
        return "Right";
    case Name::kEnter:
        return "Enter";
    case Name::kEscape:
        return "Escape";
    case Name::kF1:
        return "F1";
    case Name::kF2:
        return "F2";
    case Name::kF11:
        return "F11";
    case Name::kF12:
        return "F12";
    case Name::kVolumeUp:
        return "VolumeUp";
    case Name::kVolumeDown:
        return "VolumeDown";
    }
    return nullptr;  // after the last name
}

std::string textOf(const KeyPress& press) {
    if (press.name != Name::kCharacter) {
        return textOf(press.name);
    }
    if (press.character == ' ') {
        return "Space";
    }
    const bool isLetter = press.character >= 'a' && press.character <= 'z';
    return {isLetter ? static_cast<char>(press.character - 'a' + 'A') : press.character};
}

/// What the key does: on a screen that plays, on one that goes back, or while a message of the
/// strip is open.
KeyAction actionOf(const KeyPress& press) {
    FakeDoors doors;
    doors.show(ScreenNames::kPlaying, FakeDoors::kNoKey, Means::kPlay, Means::kBack);
    const KeyAction action = KeyRules::actionOf(press, &doors);
    return action == KeyAction() ? KeyRules::actionOf(press, &doors, true) : action;
}

void print(KeyPress press) {
    for (const char* modifiers : {"", "Shift+", "Ctrl+", "Ctrl+Shift+", "Alt+"}) {
        const std::string held = modifiers;
        press.control = held.starts_with("Ctrl+");
        press.alt = held == "Alt+";
        press.shift = false;
        const KeyAction withoutShift = actionOf(press);
        press.shift = held.ends_with("Shift+");
        const KeyAction action = actionOf(press);
        if (action == KeyAction() || (press.shift && action == withoutShift)) {
            continue;
        }
        std::printf("%s%s\n", modifiers, textOf(press).c_str());
    }
}

}  // namespace

int main() {
    int32_t names = 0;
    while (textOf(static_cast<Name>(names)) != nullptr) {
        print({static_cast<Name>(names++)});
    }
    for (char character = ' '; character < '\x7F'; ++character) {
        print({Name::kCharacter, character});
    }
    for (const HostWords::Row& row : HostWords::rows()) {
        const std::string name = row.name;
        if (!name.starts_with("help") || name.ends_with("Hint")) {
            continue;
        }
        for (const Language& language : Languages::kAll) {
            std::printf("%s\t%s\t%s\n", language.code, row.name,
                        HostWords::text(row, language.code));
        }
    }
    return 0;
}
