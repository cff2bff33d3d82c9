// SPDX-License-Identifier: MIT
// The pictures and fonts of the strip, read from /Res/ by the constructor.
#pragma once

#include <cstdint>
#include <memory>

class AppImage;
class BitMapFont;

class StripPictures {
public:
    StripPictures();
    StripPictures(const StripPictures&) = delete;
    StripPictures& operator=(const StripPictures&) = delete;
    ~StripPictures();

    // Null if a file is missing or is not a picture.
    std::unique_ptr<AppImage> heads;  // eight in a row, in the order of the effects
    std::unique_ptr<AppImage> icons;  // five in a row, in the order of the buttons
    std::unique_ptr<BitMapFont> font;
    std::unique_ptr<BitMapFont> titleFont;
};
