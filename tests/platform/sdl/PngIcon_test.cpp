// SPDX-License-Identifier: MIT
// The window's icon is read from a small PNG file, and anything else is refused.
#include "PngIcon.h"
#include "TestFolders.h"
#include "TestPng.h"

#include <gtest/gtest.h>

namespace {

class PngIconTest : public testing::Test {
protected:
    std::string file(const Bytes& png) const {
        folders.write("icon.png", std::string(png.begin(), png.end()));
        return folders.path("icon.png");
    }

    static Bytes picture(int32_t w, int32_t h) {
        TestPngSpec spec;
        spec.w = w;
        spec.h = h;
        spec.colorType = 6;
        return TestPng::write(spec);
    }

    TestFolders folders;
    PngIcon icon;
};

}  // namespace

TEST_F(PngIconTest, holdsThePixelsOfThePictureRowByRow) {
    const Bytes png = picture(5, 3);
    ASSERT_TRUE(icon.read(file(png)));
    EXPECT_EQ(5, icon.width);
    EXPECT_EQ(3, icon.height);
    std::vector<uint8_t> wanted;
    for (const uint32_t argb : TestPng::read(png).argb) {
        for (const int32_t shift : {16, 8, 0, 24}) {
            wanted.push_back(static_cast<uint8_t>(argb >> shift));
        }
    }
    EXPECT_EQ(wanted, icon.pixels);
}

TEST_F(PngIconTest, aPictureWithoutAlphaIsOpaque) {
    ASSERT_TRUE(icon.read(file(TestPng::write({}))));
    ASSERT_EQ(4U, icon.pixels.size());
    EXPECT_EQ(255, icon.pixels[3]);
}

TEST_F(PngIconTest, nothingLargerThanAnIconIsRead) {
    EXPECT_TRUE(icon.read(file(picture(512, 512))));
    EXPECT_FALSE(icon.read(file(picture(513, 1))));
    EXPECT_FALSE(icon.read(file(picture(1, 513))));
}

TEST_F(PngIconTest, whatIsNoPictureIsNotRead) {
    EXPECT_FALSE(icon.read(folders.path("nowhere.png")));
    EXPECT_FALSE(icon.read(folders.path("")));
    EXPECT_FALSE(icon.read(file({})));
    Bytes cut = picture(40, 40);
    cut.resize(cut.size() / 2);
    EXPECT_FALSE(icon.read(file(cut)));
}
