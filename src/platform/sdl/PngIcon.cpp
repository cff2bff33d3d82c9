// SPDX-License-Identifier: MIT
#include "PngIcon.h"

#include <png.h>

namespace {

constexpr uint32_t kMaxPx = 512;

}  // namespace

bool PngIcon::read(const std::string& path) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_file(&image, path.c_str()) == 0) {
        return false;
    }
    image.format = PNG_FORMAT_RGBA;
    if (image.width > kMaxPx || image.height > kMaxPx) {
        png_image_free(&image);
        return false;
    }
    width = static_cast<int32_t>(image.width);
    height = static_cast<int32_t>(image.height);
    pixels.resize(PNG_IMAGE_SIZE(image));
    return png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr) != 0;
}
