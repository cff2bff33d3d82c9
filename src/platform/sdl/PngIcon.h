// SPDX-License-Identifier: MIT
// A small picture for the window's place in lists and bars.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct PngIcon {
    static constexpr int32_t kPixelBytes = 4;

    /// False if there is no such file, or it is not a small PNG.
    bool read(const std::string& path);

    int32_t width = 0;
    int32_t height = 0;
    std::vector<uint8_t> pixels;  // red, green, blue, alpha
};
