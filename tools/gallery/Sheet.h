// SPDX-License-Identifier: MIT
// A large picture on which the gallery lays out what it shows, and its file.
#pragma once

#include "AppImage.h"
#include "Bounds.h"

#include <cstdint>
#include <string>

class Painter;

class Sheet {
public:
    Sheet(int32_t w, int32_t h, uint32_t background);

    void print(const std::string& utf8, int32_t fontId, int32_t x, int32_t y, uint32_t argb);
    void paint(Painter& painter, int32_t x, int32_t y);

    /// Writes the upper h rows; every pixel becomes scale x scale. False if that fails.
    bool save(const std::string& path, int32_t h, int32_t scale) const;

    AppImage image;
    Bounds whole;
};
