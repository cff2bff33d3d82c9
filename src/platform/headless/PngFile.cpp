// SPDX-License-Identifier: MIT
#include "PngFile.h"

#include "Host.h"

#include <png.h>
#include <vector>

bool PngFile::writeRgb565(const std::string& path,
                          const uint16_t* pixels,
                          int32_t width,
                          int32_t height) {
    std::vector<uint8_t> rgb;
    rgb.reserve(static_cast<size_t>(width) * static_cast<size_t>(height) * 3);
    for (int64_t i = 0; i < int64_t{width} * height; i++) {
        const uint32_t pixel = HostFrame::toRgb32(pixels[i]);
        rgb.push_back(static_cast<uint8_t>(pixel >> 16));
        rgb.push_back(static_cast<uint8_t>(pixel >> 8));
        rgb.push_back(static_cast<uint8_t>(pixel));
    }
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<uint32_t>(width);
    image.height = static_cast<uint32_t>(height);
    image.format = PNG_FORMAT_RGB;
    return png_image_write_to_file(&image, path.c_str(), 0, rgb.data(), 0, nullptr) != 0;
}
