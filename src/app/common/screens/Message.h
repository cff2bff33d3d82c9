// SPDX-License-Identifier: MIT
// The message box in the middle of the screen: one text, or a heading above a body.
#pragma once

#include <cstdint>
#include <memory>

class PaTextArea;

class Message {
public:
    /// One text, centred in a box of its height.
    static void setText(int32_t textId, int32_t fontId);
    static void setText(int32_t headId, int32_t headFont, int32_t bodyId, int32_t bodyFont);

    /// The box and its texts. The box is translucent and darkens what lies below it, so the screen
    /// must paint its background first.
    static void paint();

    /// True if the message is on the screen: from paint() until a whole picture covers it.
    static bool isVisible() { return visible; }

    static void static_ctor();
    static void static_dtor();

    static bool visible;
    static std::unique_ptr<PaTextArea> paTxt;   // the text, or the heading
    static std::unique_ptr<PaTextArea> paTxt2;  // the body, Res::Null if there is none

private:
    /// Lays the text out and gives the area its height. @returns that height
    static int32_t prepare(PaTextArea* area, int32_t textId, int32_t fontId);
    static void placeBox(int32_t height);
};
