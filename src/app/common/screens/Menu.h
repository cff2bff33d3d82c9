// SPDX-License-Identifier: MIT
// A list of entries in a glass window, one of which has the focus.
//
// Up and down move the focus, from the last entry on to the first and back. The middle soft key
// chooses; a touch on an entry focuses and chooses it at once. An entry is thirty pixels of the
// canvas high, which is sixty on the display: large enough for a finger.
#pragma once

#include "Array.h"

#include <cstdint>

class Bounds;
class Event;
class PaTextLabel;

class Menu {
public:
    /// Replaces the entries by one label for each string id. The window's background is the
    /// recorder with the current creature, until a colour or a picture is set.
    /// @param ids  counted array, copied
    static void init(const int32_t* ids);

    /// Places the window over the recorder, so that it does not cover the creature's face above.
    /// For at most three entries; a longer list stays in the middle.
    static void layOnRecorder();

    /// Sets a plain colour as the window's background; always opaque.
    static void setBgCol(uint32_t argb);

    static void setBgImg(int32_t id) { bgImgId = id; }

    static int32_t getFocusedIndex() { return focused; }

    static void setFocusedIndex(int32_t index) { focused = index; }

    /// Res::Null in a menu without entries.
    static int32_t getFocusedStrId();

    /// Focuses the first entry with that id, or the first of all.
    static void setFocusedStrId(int32_t id);

    /// Paints the background, the window and its entries; painting the translucent window twice
    /// makes it no darker.
    static void paint();

    /// Moves the focus and paints, if the event requires it. @returns the id of the entry chosen,
    /// or Res::Null
    static int32_t update(Event* event);

    /// True if the menu is on the screen: from paint() until a whole picture covers it.
    static bool isVisible() { return visible; }

    // Where a touch meets the entries: one below the other, each pitchPx() high.
    static constexpr int32_t kLeftPx = 10;
    static constexpr int32_t kWidthPx = 220;
    static int32_t firstTopPx();
    static int32_t pitchPx();

    static void static_ctor();
    static void static_dtor();

    static bool visible;

    static int32_t fntId;
    static uint32_t bgCol;  // 0: none
    static int32_t bgImgId;
    static Array<PaTextLabel*> entries;  // each is owned
    static Array<int32_t> strIds;
    static int32_t focused;
    static int32_t rh;  // height of a row's text
    static int32_t y;   // top of the window

private:
    static void freeEntries();
    static int32_t windowHeightPx();
    static void placeWindow();
    static void paintBackground();
    static void moveFocus(int32_t by);
    static int32_t rowAt(int32_t px, int32_t py);
    static int32_t updateByTouch(Event* event);
};
