// SPDX-License-Identifier: MIT
// Decodes a PNG picture into RGB565 pixels and an alpha plane.
//
// Made for the application's own pictures: palette, RGB and RGBA. Grey becomes black, interlaced
// files become jumbled, and checksums are not checked. Damaged files are safe: pixels that could
// not be decoded stay zero.
#pragma once

#include <cstdint>

/// Pictures with more pixels are refused; one of this size takes 32 MB while it is decoded.
constexpr int32_t kPngMaxPixels = 2048 * 2048;

/// An index beyond the palette is opaque black.
///
/// @param pixels    new counted array of width * height pixels, for the caller to delete
/// @param alpha     new counted array of width * height bytes, or null without hasAlpha
/// @return 0; or -1, with null arrays and size 0, if the data is shorter than 9 bytes, has no PNG
///         signature, or announces a negative or too large size
int32_t png2native(const unsigned char* data,
                   int32_t length,
                   uint16_t** pixels,
                   uint8_t** alpha,
                   int32_t* width,
                   int32_t* height,
                   bool* hasAlpha);

/// The size that png2native() would return, without decoding the picture; false, and 0 x 0, if it
/// would return -1.
bool pngSize(const unsigned char* data, int32_t length, int32_t* width, int32_t* height);

/// Bytes of one row of image data, its filter byte included; 0 for colour types that are not
/// decoded.
// Deliberate: for all but palette pictures the bits of a row are cut down to whole bytes before
// the channels are counted. For the depths that are decoded, 8 and 16, nothing is lost.
constexpr int64_t pngRowBytes(int32_t colorType, int64_t width, int32_t depth) {
    const int64_t wholeBytes = width * depth / 8;
    switch (colorType) {
    case 0:
        return wholeBytes + 1;
    case 2:
        return 3 * wholeBytes + 1;
    case 3:
        return (width * depth + 7) / 8 + 1;
    case 6:
        return 4 * wholeBytes + 1;
    default:
        return 0;
    }
}
