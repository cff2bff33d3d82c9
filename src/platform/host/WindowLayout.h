// SPDX-License-Identifier: MIT
// Where strip and picture lie in a window of any size.
//
// The phone's display has 480 x 800 pixels: the strip of 480 x 160 above the picture of 480 x 640.
// In a high window they stand as on the phone. In a wide window, where both are larger side by
// side, the strip stands left of the picture. They keep the phone's proportions, are as large as
// the window allows, and lie in its middle.
#pragma once

#include <cstdint>

/// A part of the window, in its own pixels.
struct PicturePlace {
    int32_t x = 0;
    int32_t y = 0;
    int32_t width = 0;
    int32_t height = 0;

    bool operator==(const PicturePlace& other) const {
        return x == other.x && y == other.y && width == other.width && height == other.height;
    }

    bool contains(double pointX, double pointY) const {
        return pointX >= x && pointX < x + width && pointY >= y && pointY < y + height;
    }
};

/// The parts of the window.
enum class WindowPart { kNone, kStrip, kPicture };

/// A place of the display, in its pixels.
struct DisplayPoint {
    WindowPart part = WindowPart::kNone;
    int32_t x = -1;
    int32_t y = -1;
};

class WindowLayout {
public:
    /// @param windowWidth, windowHeight  in pixels, at least 0
    WindowLayout(int32_t windowWidth, int32_t windowHeight);

    /// Rows 0 to 159 of the display.
    const PicturePlace& strip() const { return stripPlace; }

    /// Rows 160 to 799 of the display.
    const PicturePlace& picture() const { return picturePlace; }

    /// The display's pixel at a place of the window; with part kNone outside strip and picture.
    /// @param x, y  in the window's pixels; the middle of the first one is 0.5
    DisplayPoint at(double x, double y) const;

    /// The same as if one part went on beyond its edges, for a finger that went down on it and has
    /// left it. The result may lie outside the display.
    /// @param part  kNone: like at() without a part
    DisplayPoint at(double x, double y, WindowPart part) const;

private:
    void stack(int32_t windowWidth, int32_t windowHeight);
    void putSideBySide(int32_t windowWidth, int32_t windowHeight);

    PicturePlace stripPlace;
    PicturePlace picturePlace;
};
