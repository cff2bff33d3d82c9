// SPDX-License-Identifier: MIT
#include "Sheet.h"

#include "BitMapFont.h"
#include "OspBase.h"
#include "Painter.h"
#include "Res.h"

#include <algorithm>
#include <png.h>
#include <vector>

Sheet::Sheet(int32_t w, int32_t h, uint32_t background)
    : image(w, h, background)
    , whole(0, 0, w, h) {}

void Sheet::print(const std::string& utf8, int32_t fontId, int32_t x, int32_t y, uint32_t argb) {
    Osp::Base::String text(utf8.c_str());
    BitMapFont* font = Res::getFont(fontId);
    if (font != nullptr) {
        font->drawString(&text, &image, x, y, 0, 0, image.w, image.h, argb);
    }
}

void Sheet::paint(Painter& painter, int32_t x, int32_t y) {
    painter.paintOn(&image, x, y, &whole, nullptr);
}

bool Sheet::save(const std::string& path, int32_t h, int32_t scale) const {
    const int32_t outW = image.w * scale;
    const int32_t outH = std::min(h, image.h) * scale;
    std::vector<uint8_t> rgb;
    for (int32_t y = 0; y < outH; y++) {
        for (int32_t x = 0; x < outW; x++) {
            const uint32_t argb = image.pixels[x / scale + image.w * (y / scale)];
            rgb.push_back(static_cast<uint8_t>(argb >> 16));
            rgb.push_back(static_cast<uint8_t>(argb >> 8));
            rgb.push_back(static_cast<uint8_t>(argb));
        }
    }
    png_image png = {};
    png.version = PNG_IMAGE_VERSION;
    png.width = static_cast<uint32_t>(outW);
    png.height = static_cast<uint32_t>(outH);
    png.format = PNG_FORMAT_RGB;
    return png_image_write_to_file(&png, path.c_str(), 0, rgb.data(), 0, nullptr) != 0;
}
