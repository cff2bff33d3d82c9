// SPDX-License-Identifier: MIT
#include "SdlKeys.h"

#include <SDL.h>

using Name = KeyPress::Name;

namespace {

constexpr int kHeldDigits = KMOD_NUM;

Name nameOf(SDL_Keycode code) {
    switch (code) {
    case SDLK_UP:
        return Name::kUp;
    case SDLK_DOWN:
        return Name::kDown;
    case SDLK_LEFT:
        return Name::kLeft;
    case SDLK_RIGHT:
        return Name::kRight;
    case SDLK_RETURN:
    case SDLK_KP_ENTER:
        return Name::kEnter;
    case SDLK_ESCAPE:
        return Name::kEscape;
    case SDLK_F1:
        return Name::kF1;
    case SDLK_F2:
        return Name::kF2;
    case SDLK_F11:
        return Name::kF11;
    case SDLK_F12:
        return Name::kF12;
    case SDLK_VOLUMEUP:
        return Name::kVolumeUp;
    case SDLK_VOLUMEDOWN:
        return Name::kVolumeDown;
    default:
        return Name::kOther;
    }
}

/// The digit of a key of the number block while Num Lock is on; 0 for other keys.
char blockDigit(const SDL_Keysym& key) {
    if ((key.mod & kHeldDigits) == 0) {
        return 0;
    }
    if (key.sym == SDLK_KP_0) {
        return '0';
    }
    return key.sym >= SDLK_KP_1 && key.sym <= SDLK_KP_9
               ? static_cast<char>('1' + (key.sym - SDLK_KP_1))
               : '\0';
}

/// The digit of a key in the upper row, also on keyboards where it needs Shift; 0 for other keys.
/// Keys 1 to 8 go to the effects even where a sign for louder or quieter lies on one (French "-",
/// Czech "+"); with Ctrl, the sign changes the window's size.
char rowDigit(const SDL_Keysym& key) {
    const bool isEffects = key.scancode >= SDL_SCANCODE_1 && key.scancode <= SDL_SCANCODE_8 &&
                           (key.mod & KMOD_CTRL) == 0;
    const bool isSign =
        !isEffects && (key.sym == SDLK_PLUS || key.sym == SDLK_MINUS || key.sym == SDLK_EQUALS);
    if (key.scancode == SDL_SCANCODE_0 && !isSign) {
        return '0';
    }
    return key.scancode >= SDL_SCANCODE_1 && key.scancode <= SDL_SCANCODE_9 && !isSign
               ? static_cast<char>('1' + (key.scancode - SDL_SCANCODE_1))
               : '\0';
}

char characterOf(const SDL_Keysym& key) {
    if (key.sym == SDLK_KP_PLUS) {
        return '+';
    }
    if (key.sym == SDLK_KP_MINUS) {
        return '-';
    }
    if (const char digit = blockDigit(key)) {
        return digit;
    }
    if (const char digit = rowDigit(key)) {
        return digit;
    }
    const bool isSign = key.sym >= ' ' && key.sym < 127 && key.sym != '?';
    return isSign ? static_cast<char>(key.sym) : '\0';
}

}  // namespace

bool SdlKeys::read(const SDL_Event& event, KeyPress& press) {
    if (event.type == SDL_TEXTINPUT) {
        // The key for this sign differs from keyboard to keyboard; only the typed text shows it.
        press = {Name::kCharacter, '?'};
        return SDL_strcmp(event.text.text, "?") == 0;
    }
    if (event.type != SDL_KEYDOWN || event.key.repeat != 0 ||
        (event.key.keysym.mod & KMOD_GUI) != 0) {
        return false;
    }
    const SDL_Keysym& key = event.key.keysym;
    press.name = nameOf(key.sym);
    press.character = press.name == Name::kOther ? characterOf(key) : '\0';
    press.name = press.character != 0 ? Name::kCharacter : press.name;
    press.control = (key.mod & KMOD_CTRL) != 0;
    press.alt = (key.mod & KMOD_ALT) != 0;
    press.shift = (key.mod & KMOD_SHIFT) != 0;
    return true;
}
