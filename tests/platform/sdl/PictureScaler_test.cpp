#include "PictureScaler.h"
#include "TestSounds.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

constexpr uint32_t kUntouched = 0x12345678;

/// The display's picture, each of the program's pixels doubled; and drawn into a window.
class PictureScalerTest : public testing::Test {
protected:
    PictureScalerTest() {
        const TestSounds::Samples noise = TestSounds::noise(240 * 400);
        for (size_t y = 0; y < 800; y++) {
            for (size_t x = 0; x < 480; x++) {
                picture.push_back(static_cast<uint16_t>(noise[y / 2 * 240 + x / 2]));
            }
        }
    }

    void draw(int32_t width, int32_t height) {
        window.assign(static_cast<size_t>(width * height), kUntouched);
        scaler.draw(picture.data(), window.data(), width, width, height);
    }

    uint32_t program(int32_t x, int32_t y) const {
        return HostFrame::toRgb32(picture[static_cast<size_t>(2 * y * 480 + 2 * x)]);
    }

    /// Pixels that differ from whole-number scaling with black around it.
    int32_t wrongPixels(int32_t width, int32_t height, int32_t factor) const {
        const int32_t left = (width - factor * 240) / 2;
        const int32_t top = (height - factor * 400) / 2;
        int32_t wrong = 0;
        for (int32_t y = 0; y < height; y++) {
            for (int32_t x = 0; x < width; x++) {
                const bool inside =
                    x >= left && x < left + factor * 240 && y >= top && y < top + factor * 400;
                const uint32_t expected =
                    inside ? program((x - left) / factor, (y - top) / factor) : 0;
                wrong += window[static_cast<size_t>(y * width + x)] != expected ? 1 : 0;
            }
        }
        return wrong;
    }

    PictureScaler scaler;
    std::vector<uint16_t> picture;
    std::vector<uint32_t> window;
};

}  // namespace

TEST_F(PictureScalerTest, highBitsAreRepeatedBelow) {
    EXPECT_EQ(0x000000U, HostFrame::toRgb32(0x0000));
    EXPECT_EQ(0xFFFFFFU, HostFrame::toRgb32(0xFFFF));
    EXPECT_EQ(0xFF0000U, HostFrame::toRgb32(0xF800));
    EXPECT_EQ(0x00FF00U, HostFrame::toRgb32(0x07E0));
    EXPECT_EQ(0x0000FFU, HostFrame::toRgb32(0x001F));
    EXPECT_EQ(0x840000U, HostFrame::toRgb32(0x8000));  // 10000 -> 10000100
    EXPECT_EQ(0x008200U, HostFrame::toRgb32(0x0400));  // 100000 -> 10000010
}

TEST_F(PictureScalerTest, wholeNumbersFitWhereTheyCan) {
    EXPECT_EQ((PicturePlace{0, 0, 480, 800}), PictureScaler::place(480, 800));
    EXPECT_EQ((PicturePlace{0, 0, 720, 1200}), PictureScaler::place(720, 1200));
    EXPECT_EQ((PicturePlace{119, 199, 480, 800}), PictureScaler::place(719, 1199));
    EXPECT_EQ((PicturePlace{720, 0, 480, 800}), PictureScaler::place(1920, 801));
    EXPECT_EQ((PicturePlace{960, 80, 960, 1600}), PictureScaler::place(2880, 1760));
}

TEST_F(PictureScalerTest, aSmallWindowIsFilledToItsNearerEdges) {
    EXPECT_EQ((PicturePlace{0, 0, 240, 400}), PictureScaler::place(240, 400));
    EXPECT_EQ((PicturePlace{0, 10, 420, 700}), PictureScaler::place(420, 720));
    EXPECT_EQ((PicturePlace{10, 0, 420, 700}), PictureScaler::place(440, 700));
    EXPECT_EQ((PicturePlace{0, 0, 120, 200}), PictureScaler::place(120, 200));
}

TEST_F(PictureScalerTest, wholeNumbersRepeatEachPixelExactly) {
    for (const int32_t factor : {1, 2, 3, 4}) {
        draw(factor * 240, factor * 400);
        EXPECT_EQ(0, wrongPixels(factor * 240, factor * 400, factor)) << factor;
    }
}

TEST_F(PictureScalerTest, bandsAroundThePictureAreBlackAndEverythingIsDrawn) {
    draw(517, 833);
    EXPECT_EQ(0, wrongPixels(517, 833, 2));
}

TEST_F(PictureScalerTest, pixelsThatCoverTwoAreTheirMeanByShare) {
    draw(360, 600);  // three of the window's for two of the program's
    const auto mean = [](uint32_t a, uint32_t b, uint32_t shift) {
        return (((a >> shift) & 0xFF) + ((b >> shift) & 0xFF)) / 2;
    };
    for (const int32_t x : {0, 100, 238}) {
        const uint32_t left = program(x, 0);
        const uint32_t right = program(x + 1, 0);
        const auto at = static_cast<size_t>(x / 2 * 3);
        EXPECT_EQ(left, window[at]);
        EXPECT_EQ(right, window[at + 2]);
        for (const uint32_t shift : {0U, 8U, 16U}) {
            EXPECT_EQ(mean(left, right, shift), (window[at + 1] >> shift) & 0xFF);
        }
    }
}

TEST_F(PictureScalerTest, oneColourStaysThatColourAtEverySize) {
    std::fill(picture.begin(), picture.end(), uint16_t{0x8C51});
    for (const int32_t height : {200, 333, 401, 555, 777, 799}) {
        draw(height * 3 / 5, height);
        const PicturePlace place = PictureScaler::place(height * 3 / 5, height);
        const auto same = std::count(window.begin(), window.end(), HostFrame::toRgb32(0x8C51));
        EXPECT_EQ(place.width * place.height, same) << height;
    }
}

TEST_F(PictureScalerTest, tinyWindowsAreHarmless) {
    for (const int32_t size : {1, 2, 3, 7}) {
        draw(size, size);
        EXPECT_EQ(0, std::count(window.begin(), window.end(), kUntouched));
    }
}

TEST_F(PictureScalerTest, rowsMayBeFurtherApartThanTheWindowIsWide) {
    window.assign(500 * 800, kUntouched);
    scaler.draw(picture.data(), window.data(), 500, 480, 800);
    EXPECT_EQ(program(0, 399), window[799 * 500]);
    EXPECT_EQ(kUntouched, window[480]);
}

TEST_F(PictureScalerTest, drawingWhatHasChangedMakesTheWholeNewPicture) {
    for (const int32_t height : {200, 401, 700, 800, 833, 1200}) {
        const int32_t width = height * 3 / 5 + 7;
        draw(width, height);
        HostFrame::Rows changed;
        for (const size_t row : {0U, 57U, 58U, 59U, 200U, 399U}) {
            changed.set(2 * row);
            changed.set(2 * row + 1);
            for (size_t i = 2 * row * 480; i < (2 * row + 2) * 480; i++) {
                picture[i] = static_cast<uint16_t>(picture[i] ^ 0x5A5A);
            }
        }
        const std::vector<RowBand> bands =
            scaler.drawChanged(picture.data(), window.data(), width, changed);
        const std::vector<uint32_t> partly = window;
        draw(width, height);
        EXPECT_TRUE(window == partly) << height;
        EXPECT_EQ(4U, bands.size()) << height;
        EXPECT_EQ(PictureScaler::place(width, height).y, bands[0].top) << height;
        for (size_t i = 1; i < bands.size(); i++) {
            EXPECT_LT(bands[i - 1].top + bands[i - 1].count, bands[i].top) << height;
        }
    }
}

TEST_F(PictureScalerTest, whereNothingHasChangedNothingIsDrawn) {
    draw(480, 800);
    window.assign(window.size(), kUntouched);
    EXPECT_TRUE(scaler.drawChanged(picture.data(), window.data(), 480, {}).empty());
    EXPECT_EQ(kUntouched, window[0]);
}
