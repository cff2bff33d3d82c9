// SPDX-License-Identifier: MIT
// SDL's keys are read on keyboards of several countries.
#include "SdlKeys.h"

#include <gtest/gtest.h>
#include <SDL.h>

#include <cstring>

using Name = KeyPress::Name;

namespace {

SDL_Event
keyDown(SDL_Keycode code, int modifiers = 0, SDL_Scancode scancode = SDL_SCANCODE_UNKNOWN) {
    SDL_Event event{};
    event.type = SDL_KEYDOWN;
    event.key.keysym.sym = code;
    event.key.keysym.scancode = scancode;
    event.key.keysym.mod = static_cast<uint16_t>(modifiers);
    return event;
}

/// The character that the key is; 0 if it is none.
char character(const SDL_Event& event) {
    KeyPress press;
    return SdlKeys::read(event, press) && press.name == Name::kCharacter ? press.character : '\0';
}

Name name(SDL_Keycode code) {
    KeyPress press;
    return SdlKeys::read(keyDown(code), press) ? press.name : Name::kOther;
}

}  // namespace

TEST(SdlKeys, keysWithANameHaveIt) {
    EXPECT_EQ(Name::kUp, name(SDLK_UP));
    EXPECT_EQ(Name::kDown, name(SDLK_DOWN));
    EXPECT_EQ(Name::kLeft, name(SDLK_LEFT));
    EXPECT_EQ(Name::kRight, name(SDLK_RIGHT));
    EXPECT_EQ(Name::kEnter, name(SDLK_RETURN));
    EXPECT_EQ(Name::kEnter, name(SDLK_KP_ENTER));
    EXPECT_EQ(Name::kEscape, name(SDLK_ESCAPE));
    EXPECT_EQ(Name::kF1, name(SDLK_F1));
    EXPECT_EQ(Name::kF2, name(SDLK_F2));
    EXPECT_EQ(Name::kF11, name(SDLK_F11));
    EXPECT_EQ(Name::kVolumeUp, name(SDLK_VOLUMEUP));
    EXPECT_EQ(Name::kVolumeDown, name(SDLK_VOLUMEDOWN));
    EXPECT_EQ(Name::kF12, name(SDLK_F12));
    EXPECT_EQ(Name::kOther, name(SDLK_F10));
}

TEST(SdlKeys, lettersAndSignsAreTheirCharacters) {
    EXPECT_EQ('r', character(keyDown(SDLK_r)));
    EXPECT_EQ('r', character(keyDown(SDLK_r, KMOD_LSHIFT | KMOD_CAPS)));
    EXPECT_EQ(' ', character(keyDown(SDLK_SPACE)));
    EXPECT_EQ('+', character(keyDown(SDLK_KP_PLUS)));
    EXPECT_EQ('-', character(keyDown(SDLK_KP_MINUS)));
    EXPECT_EQ('=', character(keyDown(SDLK_EQUALS)));
}

TEST(SdlKeys, digitsAreThoseOfTheRowAndOfTheNumberBlock) {
    EXPECT_EQ('3', character(keyDown(SDLK_3, 0, SDL_SCANCODE_3)));
    EXPECT_EQ('3', character(keyDown(SDLK_QUOTEDBL, 0, SDL_SCANCODE_3)));  // a French keyboard
    EXPECT_EQ('6', character(keyDown(SDLK_MINUS, 0, SDL_SCANCODE_6)));
    EXPECT_EQ('-', character(keyDown(SDLK_MINUS, KMOD_LCTRL, SDL_SCANCODE_6)));
    EXPECT_EQ('1', character(keyDown(SDLK_PLUS, 0, SDL_SCANCODE_1)));  // a Czech one
    EXPECT_EQ('0', character(keyDown(SDLK_0, KMOD_LCTRL, SDL_SCANCODE_0)));
    EXPECT_EQ('8', character(keyDown(SDLK_KP_8, KMOD_NUM)));
    EXPECT_EQ('\0', character(keyDown(SDLK_KP_8)));  // an arrow then
    EXPECT_EQ('+', character(keyDown(SDLK_PLUS, KMOD_RCTRL, SDL_SCANCODE_1)));
}

TEST(SdlKeys, theQuestionMarkIsWhereTheKeyboardTypesIt) {
    SDL_Event text{};
    text.type = SDL_TEXTINPUT;
    std::strcpy(text.text.text, "?");
    EXPECT_EQ('?', character(text));
    std::strcpy(text.text.text, "r");
    EXPECT_EQ('\0', character(text));
}

TEST(SdlKeys, whatIsHeldDownIsTold) {
    KeyPress press;
    ASSERT_TRUE(SdlKeys::read(keyDown(SDLK_q, KMOD_RCTRL), press));
    EXPECT_TRUE(press.control);
    EXPECT_FALSE(press.alt);
    ASSERT_TRUE(SdlKeys::read(keyDown(SDLK_RETURN, KMOD_LALT), press));
    EXPECT_FALSE(press.control);
    EXPECT_TRUE(press.alt);
    EXPECT_FALSE(press.shift);
    ASSERT_TRUE(SdlKeys::read(keyDown(SDLK_s, KMOD_LCTRL | KMOD_RSHIFT), press));
    EXPECT_TRUE(press.control && press.shift);
}

TEST(SdlKeys, heldKeysAndThoseOfTheDesktopAreNone) {
    KeyPress press;
    SDL_Event held = keyDown(SDLK_RIGHT);
    held.key.repeat = 1;
    EXPECT_FALSE(SdlKeys::read(held, press));
    EXPECT_FALSE(SdlKeys::read(keyDown(SDLK_q, KMOD_LGUI), press));
    SDL_Event up = keyDown(SDLK_q);
    up.type = SDL_KEYUP;
    EXPECT_FALSE(SdlKeys::read(up, press));
}
