// SPDX-License-Identifier: MIT
// Rows are blended in groups of pixels, and the rest of a row one pixel at a time; each pixel must
// be the same as if it were blended by itself.
#include "PixelModel.h"
#include "PixelRows.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

using model::Noise;

namespace {

constexpr int32_t kGroupPx = 32;
constexpr uint32_t kBelow = 0xC0302010;

using Pixels = std::vector<uint32_t>;
using Operation = std::function<void(const PixelBlock&)>;

PixelTint tint(uint32_t whiteMask, uint32_t light, uint32_t saturation, uint32_t opacity) {
    return {whiteMask, light, saturation, opacity};
}

/// Every operation that works in groups.
std::vector<Operation> operations() {
    std::vector<Operation> all;
    all.emplace_back(PixelRows::over);
    for (const uint32_t opacity256 : {1U, 100U, 255U}) {
        all.emplace_back([=](const PixelBlock& b) { PixelRows::overWithOpacity(b, opacity256); });
    }
    for (const PixelTint& t : {tint(0, 256, 256, 256), tint(0, 100, 0, 200),
                               tint(0xFFFFFF, 30, 300, 256), tint(0xFFFFFF, 256, 77, 1)}) {
        all.emplace_back([=](const PixelBlock& b) { PixelRows::overWithTint(b, t); });
    }
    return all;
}

/// Blends the block's rectangle once as a whole and once pixel by pixel; both must be equal, and no
/// other pixel may change.
void expectSame(const Operation& operation, Pixels& dst, Pixels& src, const PixelBlock& block) {
    Pixels single = dst;
    for (int32_t y = 0; y < block.h; y++) {
        for (int32_t x = 0; x < block.w; x++) {
            const ptrdiff_t at = block.dstRow(y) + x - dst.data();
            operation({single.data() + at, 1, block.srcRow(y) + x, 1, 1, 1});
        }
    }
    const Pixels before(src.begin(), src.end());
    operation(block);
    ASSERT_EQ(single, dst);
    ASSERT_EQ(before, src);
}

}  // namespace

TEST(PixelRows, oneOddPixelAnywhereInAGroupIsSeen) {
    const uint32_t words[] = {0,          0xFF000000, 0xFF123456, 0x80402010,
                              0x01000000, 0xFE010203, 0x00000001, 0x00FFFFFF};
    for (const Operation& operation : operations()) {
        for (const uint32_t most : words) {
            for (const uint32_t odd : words) {
                for (size_t at = 0; at < 2 * kGroupPx; at++) {
                    Pixels src(2 * kGroupPx, most);
                    src[at] = odd;
                    Pixels dst(2 * kGroupPx, kBelow);
                    expectSame(
                        operation, dst, src,
                        {dst.data(), 2 * kGroupPx, src.data(), 2 * kGroupPx, 2 * kGroupPx, 1});
                    if (HasFatalFailure()) {
                        FAIL() << std::hex << most << " with " << odd << " at " << std::dec << at;
                    }
                }
            }
        }
    }
}

TEST(PixelRows, randomRectanglesAreWhatTheirPixelsAreAlone) {
    const std::vector<Operation> all = operations();
    for (uint32_t seed = 0; seed < 3000; seed++) {
        Noise noise(seed);
        const int32_t w = 1 + noise.below(3 * kGroupPx);
        const int32_t h = 1 + noise.below(4);
        const int32_t srcStride = w + (noise.below(2) == 0 ? 0 : noise.below(40));
        const int32_t dstStride = w + (noise.below(2) == 0 ? 0 : noise.below(40));
        Pixels src(static_cast<size_t>(srcStride * h));
        Pixels dst(static_cast<size_t>(dstStride * h));
        int32_t left = 0;
        int32_t kind = 0;
        for (uint32_t& word : src) {
            if (left-- == 0) {
                left = noise.below(70);
                kind = noise.below(5);
            }
            const uint32_t any = noise.word();  // also colours that are not premultiplied
            const uint32_t kinds[] = {0, any | 0xFF000000, any, any & 0xFFFFFF, noise.colour()};
            word = kinds[kind];
        }
        for (uint32_t& word : dst) {
            word = noise.word();
        }
        expectSame(all[seed % all.size()], dst, src,
                   {dst.data(), dstStride, src.data(), srcStride, w, h});
        if (HasFatalFailure()) {
            FAIL() << "seed " << seed;
        }
    }
}
