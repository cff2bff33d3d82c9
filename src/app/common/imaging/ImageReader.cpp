#include "ImageReader.h"

#include "AppImage.h"
#include "Array.h"
#include "GnoImage.h"
#include "InputStream.h"

#include <memory>

AppImage* ImageReader::read(InputStream* in) {
    const int32_t bytes = in->available();
    if (bytes < 1 || bytes > kMaxArrayLength) {
        return nullptr;
    }
    Array<signed char> data(newArray<signed char>(bytes));
    in->read(data);
    const std::unique_ptr<GnoImage> decoded(GnoImage::createImage(data, 0, bytes));
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
    decoded->getRGB(image->pixels, 0, w, 0, 0, w, h);
    return image.release();
}
