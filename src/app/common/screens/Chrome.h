// SPDX-License-Identifier: MIT
// Draws texts by their id on the screen's picture, for the bar, the menu and the message.
#pragma once

#include <cstdint>

class Chrome {
public:
    static constexpr uint32_t kWhite = 0xFFFFFFFF;

    /// Menu and message stand a little above the middle, so that they do not touch the soft keys.
    static constexpr int32_t kAboveCentrePx = -24;

    /// Draws a text of the table in the current language, cut at the screen's edges; nothing if
    /// text or font is missing. x is the left edge of its ink, y the top of its line.
    static void drawText(int32_t strId, int32_t fntId, int32_t x, int32_t y, uint32_t argb);

    /// Width of its ink in pixels, 0 if text or font is missing.
    static int32_t textWidth(int32_t strId, int32_t fntId);
};
