// SPDX-License-Identifier: MIT
#include "GnoImage.h"

#include "ArrFunc.h"
#include "ImageGraphics.h"
#include "InputStream.h"
#include "png2native.h"
#include "RegionTransform.h"
#include "Rgb565.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

constexpr int32_t kReadBytes = 4096;
constexpr size_t kLongestFileBytes = 64 << 20;  // far more than any picture that would be decoded

std::vector<signed char> readToEnd(InputStream* in) {
    std::vector<signed char> bytes;
    auto* block = newArray<signed char>(kReadBytes);
    int32_t n = in->read(block, 0, kReadBytes);
    while (n > 0 && bytes.size() < kLongestFileBytes) {
        bytes.insert(bytes.end(), block, block + n);
        n = in->read(block, 0, kReadBytes);
    }
    deleteArrFunc(block);
    return bytes;
}

bool isPng(const signed char* data, int32_t length) {
    return length >= 4 && std::memcmp(data + 1, "PNG", 3) == 0;
}

/// @param alpha  null if every pixel is opaque
void widenRow(const uint16_t* __restrict pixels,
              const uint8_t* __restrict alpha,
              uint32_t* __restrict argb,
              int32_t n) {
    if (alpha == nullptr) {
        for (int32_t i = 0; i < n; i++) {
            argb[i] = 0xFF000000 | Rgb565::toRgb(pixels[i]);
        }
        return;
    }
    for (int32_t i = 0; i < n; i++) {
        argb[i] = uint32_t{alpha[i]} << 24 | Rgb565::toRgb(pixels[i]);
    }
}

bool liesInside(const GnoImage* image, int32_t x, int32_t y, int32_t w, int32_t h) {
    return x >= 0 && y >= 0 && w > 0 && h > 0 && int64_t{x} + w <= image->getWidth() &&
           int64_t{y} + h <= image->getHeight();
}

}  // namespace

GnoImage::~GnoImage() {
    deleteArrFunc(pixels);
    deleteArrFunc(alpha);
}

/// Allocates zero-filled planes. False, and the image is empty, if there are no pixels or more than
/// an array can hold.
bool GnoImage::allocate(int32_t w, int32_t h, bool withAlpha) {
    if (w < 1 || h < 1 || int64_t{w} * h > kMaxArrayLength) {
        return false;
    }
    width = w;
    height = h;
    pixels = newArray<uint16_t>(w * h);
    hasAlpha = withAlpha;
    alpha = withAlpha ? newArray<uint8_t>(w * h) : nullptr;
    return true;
}

void GnoImage::readSize(
    const signed char* data, int32_t offset, int32_t length, int32_t& w, int32_t& h) {
    w = 0;
    h = 0;
    if (isPng(data + offset, length)) {
        pngSize(reinterpret_cast<const unsigned char*>(data) + offset, length, &w, &h);
    }
}

GnoImage* GnoImage::createImage(const signed char* data, int32_t offset, int32_t length) {
    auto* image = new GnoImage();
    if (isPng(data + offset, length)) {
        png2native(reinterpret_cast<const unsigned char*>(data) + offset, length, &image->pixels,
                   &image->alpha, &image->width, &image->height, &image->hasAlpha);
    }
    return image;
}

GnoImage* GnoImage::createImage(InputStream* in) {
    const std::vector<signed char> bytes = readToEnd(in);
    return createImage(bytes.data(), 0, static_cast<int32_t>(bytes.size()));
}

GnoImage* GnoImage::createImage(int32_t w, int32_t h) {
    auto* image = new GnoImage();
    image->isMutableFlag = true;
    if (image->allocate(w, h, false)) {
        std::fill(image->pixels, image->pixels + ::length(image->pixels), uint16_t{0xFFFF});
    }
    return image;
}

GnoImage* GnoImage::createImage(const GnoImage* image) {
    return createImage(image, 0, 0, image->width, image->height, 0);
}

GnoImage* GnoImage::createImage(
    const GnoImage* image, int32_t x, int32_t y, int32_t w, int32_t h, int32_t transform) {
    auto* copy = new GnoImage();
    const RegionTransform region(transform, w, h);
    if (!RegionTransform::isKnown(transform) || !liesInside(image, x, y, w, h) ||
        !copy->allocate(region.resultWidth(), region.resultHeight(), image->hasAlpha)) {
        return copy;
    }
    int32_t to = 0;
    for (int32_t j = 0; j < copy->height; j++) {
        for (int32_t i = 0; i < copy->width; i++, to++) {
            const int32_t from =
                x + region.sourceX(i, j) + image->width * (y + region.sourceY(i, j));
            copy->pixels[to] = image->pixels[from];
            if (image->hasAlpha) {
                copy->alpha[to] = image->alpha[from];
            }
        }
    }
    return copy;
}

GnoImage* GnoImage::createRGBImage(const uint32_t* argb, int32_t w, int32_t h, bool processAlpha) {
    auto* image = new GnoImage();
    if (!image->allocate(w, h, processAlpha)) {
        return image;
    }
    Rgb565::storeRow(image->pixels, argb, w * h);
    for (int32_t i = 0; processAlpha && i < w * h; i++) {
        image->alpha[i] = static_cast<uint8_t>(argb[i] >> 24);
    }
    return image;
}

void GnoImage::getRGB(uint32_t* out,
                      int32_t offset,
                      int32_t scanlength,
                      int32_t x,
                      int32_t y,
                      int32_t w,
                      int32_t h) const {
    const int32_t endX = std::min(w, width);  // only pixels that the image has
    const int32_t endY = std::min(h, height);
    const int32_t startX = std::max(x, 0);
    if (startX >= endX) {
        return;  // a picture without columns may have millions of rows in its header
    }
    for (int32_t row = std::max(y, 0); row < endY; row++) {
        uint32_t* rowOut = out + offset + (int64_t{row} - y) * scanlength;
        const int32_t start = width * row + startX;
        widenRow(pixels + start, hasAlpha ? alpha + start : nullptr, rowOut + startX - x,
                 endX - startX);
    }
}

void GnoImage::setAlpha(uint8_t* plane) {
    deleteArrFunc(alpha);
    alpha = plane;
    hasAlpha = plane != nullptr;
}

GnoGraphics* GnoImage::getGraphics() {
    return new ImageGraphics(this);
}
