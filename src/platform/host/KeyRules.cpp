// SPDX-License-Identifier: MIT
#include "KeyRules.h"

#include "ScreenNames.h"

using Kind = KeyAction::Kind;
using Name = KeyPress::Name;
using Means = ScreenTexts::Means;

namespace {

KeyAction navigation(HostKey key) {
    return {Kind::kNavigate, key};
}

Means meaningOf(const ScreenTexts& texts, size_t softKey) {
    return texts.softKeys[softKey].means;
}

constexpr size_t kLeft = 0;
constexpr size_t kMiddle = 1;
constexpr size_t kRight = 2;

bool isOnly(const ScreenTexts& texts, Means middle) {
    return meaningOf(texts, kMiddle) == middle && texts.softKeys[kLeft].text.empty() &&
           texts.softKeys[kRight].text.empty();
}

KeyAction ofName(Name name) {
    switch (name) {
    case Name::kUp:
        return navigation(HostKey::kUp);
    case Name::kDown:
        return navigation(HostKey::kDown);
    case Name::kLeft:
        return navigation(HostKey::kLeft);
    case Name::kRight:
        return navigation(HostKey::kRight);
    case Name::kEnter:
        return navigation(HostKey::kMiddle);
    case Name::kF1:
        return navigation(HostKey::kLeftSoft);
    case Name::kF2:
        return navigation(HostKey::kRightSoft);
    case Name::kF11:
        return {Kind::kFullScreen};
    case Name::kF12:
        return {Kind::kPicture};
    case Name::kVolumeUp:
        return {Kind::kVolumeUp};
    case Name::kVolumeDown:
        return {Kind::kVolumeDown};
    default:
        return {};
    }
}

}  // namespace

KeyAction KeyRules::actionOf(const KeyPress& press, HostDoors* doors, bool closes) {
    if (press.alt) {
        const bool isEnter = press.name == Name::kEnter && !press.control;
        return isEnter ? KeyAction{Kind::kFullScreen} : KeyAction{};
    }
    if (press.control) {
        return press.name == Name::kCharacter ? withControl(press.character, press.shift)
                                              : KeyAction{};
    }
    switch (press.name) {
    case Name::kCharacter:
        return ofCharacter(press.character, doors);
    case Name::kEscape:
        if (closes) {
            return {Kind::kClose};
        }
        return doors != nullptr ? ofEscape(doors->texts()) : KeyAction{};
    default:
        return ofName(press.name);
    }
}

bool KeyRules::closesSheet(const KeyAction& action) {
    switch (action.kind) {
    case Kind::kNavigate:
    case Kind::kRecord:
    case Kind::kExport:
    case Kind::kBringBack:
        return true;
    default:
        return false;  // the strip closes its sheet for its own keys
    }
}

bool KeyRules::isOfPhone(const KeyPress& press, HostKey& key) {
    if (press.alt || press.control) {
        return false;
    }
    const bool isSpace = press.name == Name::kCharacter && press.character == ' ';
    const KeyAction action = isSpace ? navigation(HostKey::kMiddle) : ofName(press.name);
    if (action.kind != Kind::kNavigate) {
        return false;
    }
    key = action.key;
    return true;
}

KeyAction KeyRules::withControl(char character, bool shift) {
    switch (character) {
    case 's':
        return {shift ? Kind::kExport : Kind::kSave};
    case 'o':
        return {Kind::kOpen};
    case 'z':
        return {Kind::kBringBack};
    case 'q':
    case 'w':
        return {Kind::kQuit};
    case '0':
        return {Kind::kUsualSize};
    case '+':
    case '=':  // where the plus needs Shift, its key without Shift
        return {Kind::kLarger};
    case '-':
        return {Kind::kSmaller};
    default:
        return {};
    }
}

KeyAction KeyRules::ofCharacter(char character, HostDoors* doors) {
    if (character >= '1' && character <= '8') {
        return {Kind::kEffect, HostKey::kMiddle, character - '1'};
    }
    const ScreenTexts texts = doors != nullptr ? doors->texts() : ScreenTexts();
    const bool stops = meaningOf(texts, kMiddle) == Means::kStop;
    switch (character) {
    case ' ':
        return navigation(HostKey::kMiddle);
    case '+':
    case '=':
        return {Kind::kVolumeUp};
    case '-':
        return {Kind::kVolumeDown};
    case 'r':
        return stops && texts.screen == ScreenNames::kRecording ? navigation(HostKey::kMiddle)
                                                                : KeyAction{Kind::kRecord};
    case 'p':
        return meaningOf(texts, kMiddle) == Means::kPlay ||
                       (stops && texts.screen == ScreenNames::kPlaying)
                   ? navigation(HostKey::kMiddle)
                   : KeyAction{};
    case 's':
        return {Kind::kSave};
    case 'o':
        return {Kind::kOpen};
    case 'm':
        return {Kind::kMicrophones};
    case 'a':
        return {Kind::kAction};
    case '?':
        return {Kind::kHelp};
    default:
        return {};
    }
}

/// Deliberate: Escape never ends the program, neither by "Quit" nor by the "Ok" of the last
/// message.
KeyAction KeyRules::ofEscape(const ScreenTexts& texts) {
    if (meaningOf(texts, kRight) == Means::kBack) {
        return navigation(HostKey::kRightSoft);
    }
    const bool closes = isOnly(texts, Means::kOk) && texts.screen != ScreenNames::kLastMessage;
    return closes || isOnly(texts, Means::kStop) ? navigation(HostKey::kMiddle) : KeyAction{};
}
