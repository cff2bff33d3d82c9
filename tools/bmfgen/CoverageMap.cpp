// SPDX-License-Identifier: MIT
#include "CoverageMap.h"

#include "BitMapCharacter.h"

#include <algorithm>

BitMapCharacter*
CoverageMap::toCharacter(int32_t codePoint, int32_t advance, int32_t left, int32_t top) const {
    int32_t x1 = w;
    int32_t y1 = h;
    int32_t x2 = -1;
    int32_t y2 = -1;
    for (int32_t y = 0; y < h; y++) {
        for (int32_t x = 0; x < w; x++) {
            if (coverage[index(x, y)] != 0) {
                x1 = std::min(x1, x);
                x2 = std::max(x2, x);
                y1 = std::min(y1, y);
                y2 = std::max(y2, y);
            }
        }
    }
    if (x2 < 0) {
        return new BitMapCharacter(codePoint, advance, 0, 0);
    }
    std::vector<signed char> inked;
    for (int32_t y = y1; y <= y2; y++) {
        for (int32_t x = x1; x <= x2; x++) {
            inked.push_back(coverage[index(x, y)]);
        }
    }
    return new BitMapCharacter(codePoint, inked.data(), x2 - x1 + 1, y2 - y1 + 1, advance,
                               left + x1, top + y1);
}
