#include "AppImage.h"

#include <gtest/gtest.h>

TEST(AppImage, aColourWithoutAlphaLeavesItAndAnOpaqueOneOverwrites) {
    AppImage image(2, 1, 0x80402010);
    image.blend(0x00FFFFFFu, 0, 0, 1, 1);
    EXPECT_EQ(0x80402010u, image.get(0, 0));
    image.blend(0xFF010203u, 0, 0, 1, 1);
    EXPECT_EQ(0xFF010203u, image.get(0, 0));
    EXPECT_EQ(0x80402010u, image.get(1, 0));
}

TEST(AppImage, premultiplyingKeepsWhiteAndBlackensTheTransparent) {
    AppImage image(2, 1);
    image.set(0xFFFFFFFFu, 0, 0);
    image.set(0x00FFFFFFu, 1, 0);
    image.premult();
    EXPECT_EQ(0xFFFFFFFFu, image.get(0, 0));
    EXPECT_EQ(0x00000000u, image.get(1, 0));
}
