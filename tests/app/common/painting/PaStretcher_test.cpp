// SPDX-License-Identifier: MIT
// A stretched picture keeps its corners and fills any rectangle in between.
#include "PaStretcher.h"
#include "PixProps.h"
#include "TestRegistry.h"

#include <algorithm>

namespace {

constexpr uint32_t kGround = 0xFF000000;

class PaStretcherTest : public TestRegistry {
public:
    /// A picture whose pixels all differ: red is the column, green the row.
    static std::vector<uint32_t> numbered(int32_t w, int32_t h) {
        std::vector<uint32_t> argb;
        for (int32_t i = 0; i < w * h; i++) {
            const auto column = static_cast<uint32_t>(i % w);
            const auto row = static_cast<uint32_t>(i / w);
            argb.push_back(0xFF0000FF | column << 16 | row << 8);
        }
        return argb;
    }

    static int32_t addNumbered(int32_t w, int32_t h) {
        auto* image = new AppImage(w, h);
        const std::vector<uint32_t> argb = numbered(w, h);
        std::copy(argb.begin(), argb.end(), image->writableRows(0, image->h));
        return Res::addImage(image);
    }

    /// The slow model: the picture's column (or row) that pixel i of a target shows.
    static int32_t sourceOf(int32_t i, int32_t split, int32_t length, int32_t target) {
        const int32_t after = length - 1 - split;
        if (i < split) {
            return i;
        }
        // A target smaller than both corners cuts the far one, which keeps its outer end.
        if (i >= target - after) {
            return length - (target - i);
        }
        return split;
    }

    static void expectStretched(
        int32_t w, int32_t h, int32_t splitX, int32_t splitY, int32_t targetW, int32_t targetH) {
        PaStretcher painter;
        painter.setImage(addNumbered(w, h), splitX, splitY);
        Bounds::set(&painter, 2, 1, targetW, targetH);
        AppImage image(targetW + 6, targetH + 5, kGround);
        Bounds clip(0, 0, image.w, image.h);
        painter.paintOn(&image, 1, 2, &clip, nullptr);
        const int32_t column = std::min(splitX, w - 1);
        const int32_t row = std::min(splitY, h - 1);
        for (int32_t y = 0; y < image.h; y++) {
            for (int32_t x = 0; x < image.w; x++) {
                const int32_t tx = x - 3;
                const int32_t ty = y - 3;
                uint32_t expected = kGround;
                if (tx >= 0 && tx < targetW && ty >= 0 && ty < targetH) {
                    const auto sx = static_cast<uint32_t>(sourceOf(tx, column, w, targetW));
                    const auto sy = static_cast<uint32_t>(sourceOf(ty, row, h, targetH));
                    expected = 0xFF0000FF | sx << 16 | sy << 8;
                }
                ASSERT_EQ(expected, image.get(x, y)) << x << ", " << y;
            }
        }
    }

    /// The split point that a 4 x 3 picture of that name gets.
    std::vector<int32_t> splitOf(const std::string& name) {
        writePicture(name, 4, 3, numbered(4, 3));
        PaStretcher painter;
        painter.set(("/Res/" + name).c_str(), true, false);
        return {painter.getStretchColumn(), painter.getStretchRow()};
    }
};

}  // namespace

TEST_F(PaStretcherTest, cornersKeepTheirSizeAndTheRestIsStretched) {
    expectStretched(5, 4, 2, 1, 11, 9);
}

TEST_F(PaStretcherTest, atThePicturesOwnSizeItIsThePicture) {
    expectStretched(5, 4, 2, 1, 5, 4);
}

TEST_F(PaStretcherTest, aSplitAtZeroLeavesNoPartAtTheLeftOrTop) {
    expectStretched(5, 4, 0, 0, 9, 8);
    expectStretched(5, 4, 0, 3, 9, 8);
}

TEST_F(PaStretcherTest, aSplitAtThePicturesEndStretchesTheLastColumnAndRow) {
    expectStretched(5, 4, 4, 3, 9, 8);
    expectStretched(5, 4, 5, 4, 9, 8);
}

TEST_F(PaStretcherTest, aPictureOfOnePixelFillsTheTarget) {
    expectStretched(1, 1, 0, 0, 7, 5);
}

TEST_F(PaStretcherTest, oneDirectionMayBeStretchedAlone) {
    expectStretched(5, 4, 2, 2, 12, 4);
    expectStretched(5, 4, 2, 2, 5, 12);
}

TEST_F(PaStretcherTest, aTargetSmallerThanTheCornersCutsTheFarOnes) {
    for (int32_t w = 1; w <= 6; w++) {
        for (int32_t h = 1; h <= 6; h++) {
            PaStretcher painter;
            painter.setImage(addNumbered(5, 5), 2, 2);
            Bounds::set(&painter, 0, 0, w, h);
            AppImage image(8, 8, kGround);
            Bounds clip(0, 0, 8, 8);
            painter.paintOn(&image, 0, 0, &clip, nullptr);
            for (int32_t i = 0; i < 64; i++) {
                // Blue is 0xFF in every pixel of the picture: all of the target is painted, and
                // nothing else.
                const bool inside = i % 8 < w && i / 8 < h;
                ASSERT_EQ(inside ? 0xFFU : 0U, image.get(i % 8, i / 8) & 0xFF) << w << " x " << h;
            }
            // Red is the column, green the row: the near end first, the far end last.
            EXPECT_EQ(0xFF0000FF, image.get(0, 0)) << w << " x " << h;
            const uint32_t lastColumn = w <= 2 ? static_cast<uint32_t>(w - 1) : 4U;
            const uint32_t lastRow = h <= 2 ? static_cast<uint32_t>(h - 1) : 4U;
            EXPECT_EQ(0xFF0000FF | lastColumn << 16 | lastRow << 8, image.get(w - 1, h - 1));
        }
    }
}

TEST_F(PaStretcherTest, isCutToTheClipAndTheImage) {
    PaStretcher painter;
    painter.setImage(addNumbered(5, 4), 2, 1);
    Bounds::set(&painter, -2, -2, 14, 12);
    AppImage whole(10, 8, kGround);
    AppImage cut(10, 8, kGround);
    Bounds everywhere(0, 0, 10, 8);
    Bounds clip(1, 2, 6, 3);
    painter.paintOn(&whole, 0, 0, &everywhere, nullptr);
    painter.paintOn(&cut, 0, 0, &clip, nullptr);
    for (int32_t y = 0; y < 8; y++) {
        for (int32_t x = 0; x < 10; x++) {
            EXPECT_EQ(Bounds::contains(&clip, x, y) ? whole.get(x, y) : kGround, cut.get(x, y));
        }
    }
}

TEST_F(PaStretcherTest, ownAndInheritedModifiersReachEveryPart) {
    PaStretcher painter;
    painter.setImage(Res::addImage(new AppImage(3, 3, 0xFFFFFFFF)));
    Bounds::set(&painter, 0, 0, 7, 6);
    PixProps half(256, 256, 128);
    painter.setPixProps(&half);
    AppImage image(7, 6, kGround);
    Bounds clip(0, 0, 7, 6);
    painter.paintOn(&image, 0, 0, &clip, &half);
    for (const uint32_t pixel : pixelsOf(image)) {
        // A quarter of white. Corners go through the opacity blend, stretched parts through a
        // faded colour, which may round differently by one.
        EXPECT_NEAR(64, static_cast<int32_t>(pixel & 0xFF), 1);
    }
}

TEST_F(PaStretcherTest, transparentPixelsLetTheGroundThrough) {
    PaStretcher painter;
    painter.setImage(Res::addImage(new AppImage(3, 3, 0)));
    Bounds::set(&painter, 0, 0, 7, 6);
    AppImage image(7, 6, 0xFF123456);
    Bounds clip(0, 0, 7, 6);
    painter.paintOn(&image, 0, 0, &clip, nullptr);
    EXPECT_EQ(std::vector<uint32_t>(42, 0xFF123456), pixelsOf(image));
}

TEST_F(PaStretcherTest, twoNumbersInTheNameAreTheSplitPoint) {
    EXPECT_EQ((std::vector<int32_t>{1, 2}), splitOf("bar_x1y2.png"));
    EXPECT_EQ((std::vector<int32_t>{0, 0}), splitOf("bar_x0y0.png"));
}

TEST_F(PaStretcherTest, aSplitPointAtThePicturesSizeStretchesTheLastPixels) {
    EXPECT_EQ((std::vector<int32_t>{3, 2}), splitOf("bar_x4y3.png"));
}

TEST_F(PaStretcherTest, aSplitPointOutsideThePictureFallsBackToTheCentre) {
    EXPECT_EQ((std::vector<int32_t>{2, 1}), splitOf("bar_x5y0.png"));
    EXPECT_EQ((std::vector<int32_t>{2, 1}), splitOf("bar_x0y4.png"));
    EXPECT_EQ((std::vector<int32_t>{2, 1}), splitOf("bar_x-1y0.png"));
    EXPECT_EQ((std::vector<int32_t>{2, 1}), splitOf("bar_x99999999999999999999y0.png"));
}

TEST_F(PaStretcherTest, otherCountsOfNumbersFallBackToTheCentre) {
    EXPECT_EQ((std::vector<int32_t>{2, 1}), splitOf("bar.png"));
    EXPECT_EQ((std::vector<int32_t>{2, 1}), splitOf("bar_x0.png"));
    EXPECT_EQ((std::vector<int32_t>{2, 1}), splitOf("bar_x0y0z0.png"));
    EXPECT_EQ((std::vector<int32_t>{2, 1}), splitOf("bar_0_0_0_0_0_0_0_0_0_0.png"));
}

TEST_F(PaStretcherTest, takingAPictureKeepsThePositionAndTakesItsSize) {
    writePicture("bar_x1y1.png", 4, 3, numbered(4, 3));
    PaStretcher painter;
    Bounds::setPos(&painter, 5, 6);
    painter.set("/Res/bar_x1y1.png", true, false);
    EXPECT_EQ((std::vector<int32_t>{5, 6, 4, 3}), rectOf(painter));
}

TEST_F(PaStretcherTest, aMissingPictureIsAnEmptyPlace) {
    PaStretcher painter;
    painter.set("/Res/gone_x1y1.png", true, false);
    Bounds::set(&painter, 0, 0, 7, 6);
    EXPECT_EQ(0, painter.getStretchRow());
    EXPECT_EQ(0, painter.getStretchColumn());
    AppImage image(7, 6, kGround);
    Bounds clip(0, 0, 7, 6);
    painter.paintOn(&image, 0, 0, &clip, nullptr);
    EXPECT_EQ(std::vector<uint32_t>(42, kGround), pixelsOf(image));
}

TEST_F(PaStretcherTest, refreshFollowsAPictureThatHasShrunk) {
    writePicture("bar_x4y4.png", 9, 9, numbered(9, 9));
    PaStretcher painter;
    painter.set("/Res/bar_x4y4.png", false, false);
    Bounds::set(&painter, 0, 0, 9, 9);
    writePicture("bar_x4y4.png", 2, 2, 0xFFFFFFFF);
    Res::freeAll();
    painter.refresh();
    EXPECT_EQ(1, painter.getStretchColumn());
    AppImage image(9, 9, kGround);
    Bounds clip(0, 0, 9, 9);
    painter.paintOn(&image, 0, 0, &clip, nullptr);
    EXPECT_EQ(std::vector<uint32_t>(81, image.get(0, 0)), pixelsOf(image));
    EXPECT_NE(kGround, image.get(0, 0));
}
