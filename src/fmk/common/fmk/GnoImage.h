// SPDX-License-Identifier: MIT
// A device image: RGB565 pixels, and an alpha plane if any of them is transparent.
//
// Most images are decoded from PNG files. An image that cannot be made is empty, 0 x 0 pixels,
// never null.
#pragma once

#include "GnoObject.h"

#include <cstdint>

class GnoGraphics;
class InputStream;

class GnoImage : public GnoObject {
public:
    ~GnoImage() override;

    /// Decodes length bytes from data[offset]; anything but a PNG file gives an empty image.
    static GnoImage* createImage(const signed char* data, int32_t offset, int32_t length);

    /// The size of the image that createImage() would make, without decoding it.
    static void
    readSize(const signed char* data, int32_t offset, int32_t length, int32_t& w, int32_t& h);

    /// Reads the stream to its end and decodes that. The caller closes the stream.
    static GnoImage* createImage(InputStream* in);

    /// A mutable white image without alpha plane.
    static GnoImage* createImage(int32_t w, int32_t h);

    /// An immutable copy.
    static GnoImage* createImage(const GnoImage* image);

    /// An immutable copy of a region, mirrored or turned as RegionTransform says. Empty if the
    /// region does not lie inside the image or the transform is unknown.
    static GnoImage* createImage(
        const GnoImage* image, int32_t x, int32_t y, int32_t w, int32_t h, int32_t transform);

    /// An immutable image from w * h straight ARGB words.
    /// @param processAlpha  the words' top bytes become the alpha plane; else they are dropped
    static GnoImage* createRGBImage(const uint32_t* argb, int32_t w, int32_t h, bool processAlpha);

    /// Writes straight ARGB words from out[offset] on, rows scanlength words apart; alpha is 255
    /// without a plane. For pixels outside the image nothing is written.
    // Deliberate: w and h are the columns and rows to stop before, not sizes. All callers start at
    // 0, where both are the same.
    void getRGB(uint32_t* out,
                int32_t offset,
                int32_t scanlength,
                int32_t x,
                int32_t y,
                int32_t w,
                int32_t h) const;

    int32_t getWidth() const { return width; }

    int32_t getHeight() const { return height; }

    bool isMutable() const { return isMutableFlag; }

    bool isTransparent() const { return hasAlpha; }

    /// Replaces the alpha plane.
    /// @param plane  counted array of width * height bytes, owned from now on; null for none
    void setAlpha(uint8_t* plane);

    /// New graphics that draw into this image; the caller deletes them before the image.
    GnoGraphics* getGraphics();

    /// width * height pixels, row by row; null for an empty image.
    uint16_t* getPixels() const { return pixels; }

    /// The alpha plane, width * height bytes; null without transparency.
    const uint8_t* getAlpha() const { return hasAlpha ? alpha : nullptr; }

private:
    GnoImage() = default;

    bool allocate(int32_t w, int32_t h, bool withAlpha);

    int32_t width = 0;
    int32_t height = 0;
    uint16_t* pixels = nullptr;
    uint8_t* alpha = nullptr;
    bool isMutableFlag = false;
    bool hasAlpha = false;
};
