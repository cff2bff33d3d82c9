// SPDX-License-Identifier: MIT
// A picture stands where its name says, and is painted there and nowhere else.
#include "PaImage.h"
#include "PixProps.h"
#include "TestRegistry.h"

namespace {

class PaImageTest : public TestRegistry {
public:
    /// The rectangle of a painter at (50, 60) after it has got a 4 x 3 picture with that name.
    std::vector<int32_t> placed(const std::string& name) {
        writePicture(name, 4, 3, 0xFF000000);
        PaImage painter;
        painter.setPos(50, 60);
        painter.set(("/Res/" + name).c_str(), true, false);
        return rectOf(painter);
    }

    /// The opacity with which a picture with these own and inherited modifiers is painted.
    uint32_t painted(PixProps* own, PixProps* inherited) {
        PaImage painter;
        painter.setImage(Res::addImage(new AppImage(1, 1, 0xFFFFFFFF)));
        painter.setPixProps(own);
        AppImage image(1, 1, 0xFF000000);
        Bounds clip(0, 0, 1, 1);
        painter.paintOn(&image, 0, 0, &clip, inherited);
        return image.get(0, 0);
    }

    /// White of an opacity on black.
    static uint32_t whiteOnBlack(int32_t opacity) {
        AppImage image(1, 1, 0xFF000000);
        AppImage white(1, 1, 0xFFFFFFFF);
        image.blend(&white, 0, 0, 1, 1, 0, 0, opacity);
        return image.get(0, 0);
    }
};

}  // namespace

TEST_F(PaImageTest, fourNumbersPlaceThePicture) {
    EXPECT_EQ((std::vector<int32_t>{7, 8, 4, 3}), placed("x_7_8_4_3.png"));
}

TEST_F(PaImageTest, fiveNumbersAreALabelAndThePlace) {
    EXPECT_EQ((std::vector<int32_t>{7, 8, 4, 3}), placed("wheels_15_7_8_4_3.png"));
}

TEST_F(PaImageTest, theBackgroundStandsInTheCornerWhateverTheZeros) {
    EXPECT_EQ((std::vector<int32_t>{0, 0, 4, 3}), placed("background_0_0_4_3.png"));
}

TEST_F(PaImageTest, aSizeThatIsNotThePicturesLeavesThePosition) {
    EXPECT_EQ((std::vector<int32_t>{50, 60, 4, 3}), placed("x_7_8_5_3.png"));
    EXPECT_EQ((std::vector<int32_t>{50, 60, 4, 3}), placed("x_7_8_4_2.png"));
}

TEST_F(PaImageTest, otherCountsOfNumbersLeaveThePosition) {
    EXPECT_EQ((std::vector<int32_t>{50, 60, 4, 3}), placed("x.png"));
    EXPECT_EQ((std::vector<int32_t>{50, 60, 4, 3}), placed("x_8_4_3.png"));
    EXPECT_EQ((std::vector<int32_t>{50, 60, 4, 3}), placed("x_1_2_7_8_4_3.png"));
}

TEST_F(PaImageTest, moreNumbersThanThereIsRoomForAreCutShort) {
    EXPECT_EQ((std::vector<int32_t>{50, 60, 4, 3}), placed("x_1_2_3_4_5_6_7_8_9_10_11_12.png"));
}

TEST_F(PaImageTest, numbersTooLargeForAnythingAreHarmless) {
    EXPECT_EQ((std::vector<int32_t>{50, 60, 4, 3}),
              placed("x_99999999999999999999_8_4294967300_3000000003.png"));
}

TEST_F(PaImageTest, aMissingPictureIsAnEmptyPlace) {
    PaImage painter;
    painter.setPos(5, 6);
    painter.set("/Res/gone_1_2_3_4.png", true, false);
    EXPECT_EQ((std::vector<int32_t>{5, 6, 0, 0}), rectOf(painter));
    AppImage image(8, 8, 0xFF123456);
    Bounds clip(0, 0, 8, 8);
    painter.paintOn(&image, 0, 0, &clip, nullptr);
    EXPECT_EQ(std::vector<uint32_t>(64, 0xFF123456), pixelsOf(image));
}

TEST_F(PaImageTest, thePathMayBeAStringThatGoesAway) {
    writePicture("x_7_8_4_3.png", 4, 3, 0xFF000000);
    PaImage painter;
    {
        String path("/Res/x_7_8_4_3.png");
        painter.set(&path, true, false);
    }
    EXPECT_EQ((std::vector<int32_t>{7, 8, 4, 3}), rectOf(painter));
    Res::freeAll();
    EXPECT_NE(nullptr, Res::getImage(painter.getImage()));
}

TEST_F(PaImageTest, paintsItsPictureAtItsPlaceShiftedAndCut) {
    PaImage painter;
    painter.set(Res::addImage(new AppImage(3, 3, 0xFFABCDEF)), 1, 2);
    AppImage image(8, 8, 0xFF000000);
    Bounds clip(0, 0, 4, 8);
    painter.paintOn(&image, 1, 1, &clip, nullptr);
    for (int32_t i = 0; i < 64; i++) {
        const int32_t x = i % 8;
        const int32_t y = i / 8;
        const bool inside = x >= 2 && x < 4 && y >= 3 && y < 6;
        EXPECT_EQ(inside ? 0xFFABCDEF : 0xFF000000, image.get(x, y)) << x << ", " << y;
    }
}

TEST_F(PaImageTest, nothingIsPaintedForTheNullResourceOrAnotherKind) {
    AppImage image(2, 2, 0xFF123456);
    Bounds clip(0, 0, 2, 2);
    for (const int32_t id : {Res::Null, Res::Str_Ok, 5000}) {
        PaImage painter;
        painter.setImage(id);
        EXPECT_EQ(id, painter.getImage());
        painter.paintOn(&image, 0, 0, &clip, nullptr);
    }
    EXPECT_EQ(std::vector<uint32_t>(4, 0xFF123456), pixelsOf(image));
}

TEST_F(PaImageTest, ownAndInheritedOpacityMultiply) {
    PixProps half(256, 256, 128);
    EXPECT_EQ(0xFFFFFFFF, painted(nullptr, nullptr));
    EXPECT_EQ(whiteOnBlack(128), painted(&half, nullptr));
    EXPECT_EQ(whiteOnBlack(128), painted(nullptr, &half));
    EXPECT_EQ(whiteOnBlack(64), painted(&half, &half));
    EXPECT_NE(whiteOnBlack(128), whiteOnBlack(64));
}

TEST_F(PaImageTest, refreshTakesTheSizeOfAChangedPicture) {
    writePicture("a.png", 2, 2, 0xFF000000);
    PaImage painter;
    painter.set("/Res/a.png", true, false);
    writePicture("a.png", 5, 4, 0xFF000000);
    Res::freeAll();
    painter.refresh();
    EXPECT_EQ((std::vector<int32_t>{0, 0, 5, 4}), rectOf(painter));
}

TEST_F(PaImageTest, combinedModifiersAreNotGivenBackToThePool) {
    PixProps* below = PixProps::alloc();
    PixProps* top = PixProps::alloc();
    below->free();
    top->free();
    painted(nullptr, nullptr);  // uses up the top one
    PixProps* next = PixProps::alloc();
    EXPECT_EQ(below, next);
    next->free();
}
