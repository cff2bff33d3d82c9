// SPDX-License-Identifier: MIT
// Paints the strip and its sheet, dark glass with white text, by means of the imaging room.
//
// Reads its pictures from /Res/ when it is made: the host must be installed by then, and the
// program must have started.
#pragma once

#include "StripModel.h"

#include <cstdint>
#include <memory>
#include <string>

class AppImage;
class BitMapFont;
class StripPictures;

class StripPainter {
public:
    StripPainter();
    StripPainter(const StripPainter&) = delete;
    StripPainter& operator=(const StripPainter&) = delete;
    ~StripPainter();

    /// Width in pixels of a text in the strip's font; for StripModel::setTextWidth.
    int32_t textWidth(const std::string& utf8) const;

    /// Writes the strip's 240 x 80 pixels as RGB565.
    /// @param strideBytes  from row to row, at least 480 and even
    void paint(const StripModel& model, uint16_t* rgb565, int32_t strideBytes);

    /// Writes the sheet's 240 x 320 pixels; only if the model shows one.
    void paintSheet(const StripModel& model, uint16_t* rgb565, int32_t strideBytes);

private:
    std::unique_ptr<StripPictures> pictures;
    std::unique_ptr<AppImage> strip;
    std::unique_ptr<AppImage> sheet;  // made by the first paintSheet()
};
