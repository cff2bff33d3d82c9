// SPDX-License-Identifier: MIT
// Glyphs are rounded to 4 bits of coverage and lose their empty edges.
#include "BitMapCharacter.h"
#include "CoverageMap.h"

#include <gtest/gtest.h>

#include <memory>

TEST(CoverageMap, coverageIsRoundedToFifteenths) {
    // 8 is nearer to 0 than to 17, 9 is nearer to 17
    const uint8_t kCoverage[8] = {255, 0, 8, 9, 17, 128, 246, 247};
    CoverageMap map(8, 1);
    for (int32_t x = 0; x < 8; x++) {
        map.set(x, 0, kCoverage[x]);
    }
    const std::unique_ptr<BitMapCharacter> character(map.toCharacter('x', 9, 2, -3));
    EXPECT_EQ(0xF00118EFU, character->pixels[0]);
}

TEST(CoverageMap, emptyEdgesAreCutAndThePlaceFollows) {
    CoverageMap map(6, 5);
    map.set(2, 1, 255);
    map.set(4, 3, 255);
    const std::unique_ptr<BitMapCharacter> character(map.toCharacter('x', 9, -1, -4));
    EXPECT_EQ(3, character->w);
    EXPECT_EQ(3, character->h);
    EXPECT_EQ(1, character->ofsX);
    EXPECT_EQ(-3, character->ofsY);
    EXPECT_EQ(0xF0000000U, character->pixels[0]);
    EXPECT_EQ(0xF0000000U, character->pixels[1]);
}

TEST(CoverageMap, withoutInkThereIsNoBitmap) {
    CoverageMap map(3, 3);
    map.set(1, 1, 8);  // too little to be seen
    for (const CoverageMap& each : {map, CoverageMap(0, 0)}) {
        const std::unique_ptr<BitMapCharacter> character(each.toCharacter(' ', 4, 1, 1));
        EXPECT_EQ(nullptr, character->pixels);
        EXPECT_EQ(4, character->advanceWidth);
        EXPECT_EQ(0, character->ofsY);
    }
}
