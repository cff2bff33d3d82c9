// SPDX-License-Identifier: MIT
// Fuzzes files of the window's icon: each is a small picture with all its pixels, or refused.
#include "MemoryFile.h"
#include "PngIcon.h"

#include <cstdlib>

namespace {

constexpr size_t kMaxInputBytes = 1 << 18;
constexpr int32_t kLargest = 512;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size > kMaxInputBytes) {
        return 0;
    }
    static const MemoryFile file;
    file.fill(data, size);
    PngIcon icon;
    if (!icon.read(file.path())) {
        return 0;
    }
    const bool small =
        icon.width > 0 && icon.width <= kLargest && icon.height > 0 && icon.height <= kLargest;
    const auto pixels = static_cast<size_t>(icon.width) * static_cast<size_t>(icon.height);
    if (!small || icon.pixels.size() != pixels * PngIcon::kPixelBytes) {
        std::abort();
    }
    return 0;
}
