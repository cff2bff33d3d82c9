// SPDX-License-Identifier: MIT
#include "ImageReader.h"

#include "AppImage.h"
#include "Array.h"
#include "GnoImage.h"
#include "InputStream.h"

#include <memory>

namespace {

/// The rest of the stream; null if it is empty or too long.
Array<signed char> readAll(InputStream* in) {
    const int32_t bytes = in->available();
    Array<signed char> data;
    if (bytes >= 1 && bytes <= kMaxArrayLength) {
        data.reset(newArray<signed char>(bytes));
        in->read(data);
    }
    return data;
}

}  // namespace

void ImageReader::readSize(InputStream* in, int32_t& w, int32_t& h) {
    const Array<signed char> data = readAll(in);
    w = 0;
    h = 0;
    if (data != nullptr) {
        GnoImage::readSize(data, 0, length(data.get()), w, h);
    }
    if (w < 1 || h < 1) {
        w = 0;
        h = 0;
    }
}

AppImage* ImageReader::read(InputStream* in) {
    Array<signed char> data = readAll(in);
    if (data == nullptr) {
        return nullptr;
    }
    const std::unique_ptr<GnoImage> decoded(GnoImage::createImage(data, 0, length(data.get())));
    data.reset();
    const int32_t w = decoded->getWidth();
    const int32_t h = decoded->getHeight();
    if (w < 1 || h < 1) {
        return nullptr;
    }
    auto image = std::make_unique<AppImage>(w, h);
    if (image->pixels == nullptr) {
        return nullptr;  // more pixels than an image can have
    }
    decoded->getRGB(image->writableRows(0, h), 0, w, 0, 0, w, h);
    return image.release();
}
