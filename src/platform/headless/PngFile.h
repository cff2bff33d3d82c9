// SPDX-License-Identifier: MIT
// Pictures of the display, written with libpng.
#pragma once

#include <cstdint>
#include <string>

class PngFile {
public:
    /// Writes RGB565 pixels as an 8-bit RGB file, the high bits repeated below so that white is
    /// white.
    static bool
    writeRgb565(const std::string& path, const uint16_t* pixels, int32_t width, int32_t height);
};
