// Pictures as bytes: whatever is decoded must be whole, pixels and alpha plane alike.
#include "GnoImage.h"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

namespace {

constexpr int32_t kMaxPixels = 1 << 16;  // of the inputs worth the time; the cap has its own test
constexpr size_t kHeaderBytes = 33;

/// Files that announce a large picture in their first chunk would only cost time.
bool isLarge(const uint8_t* data, size_t size) {
    if (size < kHeaderBytes || std::memcmp(data + 12, "IHDR", 4) != 0) {
        return false;
    }
    const auto edge = [data](size_t at) {
        return int64_t{data[at]} << 24 | data[at + 1] << 16 | data[at + 2] << 8 | data[at + 3];
    };
    return edge(16) > kMaxPixels || edge(20) > kMaxPixels || edge(16) * edge(20) > kMaxPixels;
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
