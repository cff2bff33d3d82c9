// SPDX-License-Identifier: MIT
// Fuzzes PNG files: every decoded picture has all its pixels, and a complete alpha plane if it has
// one.
#include "GnoImage.h"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

namespace {

// Larger pictures take too long here; the program's own limit has a test of its own.
constexpr int64_t kMaxPixels = 1 << 14;

/// True if a header anywhere in the file announces a large picture, which would only cost time.
bool isLarge(const uint8_t* data, size_t size) {
    const auto edge = [data](size_t at) {
        return int64_t{data[at]} << 24 | data[at + 1] << 16 | data[at + 2] << 8 | data[at + 3];
    };
    for (size_t at = 0; at + 12 <= size; at++) {
        if (std::memcmp(data + at, "IHDR", 4) != 0) {
            continue;
        }
        const int64_t w = edge(at + 4);
        const int64_t h = edge(at + 8);
        if (w > 0 && h > 0 && (w > kMaxPixels || h > kMaxPixels || w * h > kMaxPixels)) {
            return true;
        }
    }
    return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (isLarge(data, size)) {
        return 0;
    }
    const std::unique_ptr<GnoImage> image(GnoImage::createImage(
        reinterpret_cast<const signed char*>(data), 0, static_cast<int32_t>(size)));
    const int32_t w = image->getWidth();
    const int32_t h = image->getHeight();
    std::vector<uint32_t> words(static_cast<size_t>(w) * static_cast<size_t>(h));
    image->getRGB(words.data(), 0, w, 0, 0, w, h);
    for (const uint32_t word : words) {
        if (!image->isTransparent() && word >> 24 != 255) {
            std::abort();
        }
    }
    return 0;
}
