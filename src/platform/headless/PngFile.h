// SPDX-License-Identifier: MIT
// Writes pictures of the display, with libpng.
#pragma once

#include <cstdint>
#include <string>

class PngFile {
public:
    /// Writes RGB565 pixels as an 8-bit RGB file. The high bits of each colour are repeated as its
    /// low bits, so that white stays white.
    static bool
    writeRgb565(const std::string& path, const uint16_t* pixels, int32_t width, int32_t height);
};
