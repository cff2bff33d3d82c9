// SPDX-License-Identifier: MIT
// The picture is scaled to any window, exactly at whole multiples.
#include "PictureScaler.h"
#include "TestSounds.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

constexpr uint32_t kUntouched = 0x12345678;

/// Random pictures with one row for each equal pair of the display's rows, and what PictureScaler
/// makes of them in a window.
class PictureScalerTest : public testing::Test {
protected:
    PictureScalerTest() {
        const TestSounds::Samples noise = TestSounds::noise(240 * 400);
        for (size_t y = 0; y < 400; y++) {
            for (size_t x = 0; x < 480; x++) {
                picture.push_back(static_cast<uint16_t>(noise[y * 240 + x / 2]));
            }
        }
    }

    void draw(int32_t width, int32_t height) {
        window.assign(static_cast<size_t>(width * height), kUntouched);
        scaler.draw(picture.data(), window.data(), width, width, height);
    }

    uint32_t program(int32_t x, int32_t y) const {
        return HostFrame::toRgb32(picture[static_cast<size_t>(y * 480 + 2 * x)]);
    }

    /// Pixels that differ from whole-number scaling with the dark glass around it.
    int32_t wrongPixels(int32_t width, int32_t height, int32_t factor) const {
        const int32_t left = (width - factor * 240) / 2;
        const int32_t top = (height - factor * 400) / 2;
        int32_t falsePixels = 0;
        for (int32_t y = 0; y < height; y++) {
            for (int32_t x = 0; x < width; x++) {
                const bool inside =
                    x >= left && x < left + factor * 240 && y >= top && y < top + factor * 400;
                const uint32_t expected = inside ? program((x - left) / factor, (y - top) / factor)
                                                 : PictureScaler::kBesideRgb;
                falsePixels += window[static_cast<size_t>(y * width + x)] != expected ? 1 : 0;
            }
        }
        return falsePixels;
    }

    /// Two neighbours of the program's pixels, of which the first has this share of 256.
    struct Mean {
        Mean(int32_t at, int32_t windowPixels, int32_t programPixels)
            : first(at * programPixels / windowPixels) {
            const int32_t inFirst = (first + 1) * windowPixels - at * programPixels;
            share256 = inFirst < programPixels ? inFirst * 256 / programPixels : 256;
            second = share256 < 256 ? first + 1 : first;
        }

        uint32_t of(uint32_t a, uint32_t b) const {
            uint32_t mean = 0;
            for (const uint32_t shift : {0U, 8U, 16U}) {
                const auto channelA = static_cast<int32_t>((a >> shift) & 0xFF);
                const auto channelB = static_cast<int32_t>((b >> shift) & 0xFF);
                const int32_t sum = channelA * share256 + channelB * (256 - share256);
                mean |= static_cast<uint32_t>(sum / 256) << shift;
            }
            return mean;
        }

        int32_t first;
        int32_t second;
        int32_t share256;
    };

    /// Pixels of a place that are not the means of the columns' means; the place shows that many of
    /// the program's rows.
    int32_t
    wrongMeans(const PicturePlace& place, int32_t firstRow, int32_t rows, int32_t width) const {
        int32_t wrong = 0;
        for (int32_t y = 0; y < place.height; y++) {
            for (int32_t x = 0; x < place.width; x++) {
                const Mean column(x, place.width, 240);
                const Mean row(y, place.height, rows);
                const auto inRow = [&](int32_t programY) {
                    return column.of(program(column.first, firstRow + programY),
                                     program(column.second, firstRow + programY));
                };
                const uint32_t expected = row.of(inRow(row.first), inRow(row.second));
                const auto at = static_cast<size_t>((place.y + y) * width + place.x + x);
                wrong += window[at] != expected ? 1 : 0;
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

TEST_F(PictureScalerTest, wholeNumbersRepeatEachPixelExactly) {
    for (const int32_t factor : {1, 2, 3, 4}) {
        draw(factor * 240, factor * 400);
        EXPECT_EQ(0, wrongPixels(factor * 240, factor * 400, factor)) << factor;
    }
}

TEST_F(PictureScalerTest, bandsAroundThePictureAreOfDarkGlassAndEverythingIsDrawn) {
    draw(517, 800);
    EXPECT_EQ(0, wrongPixels(517, 800, 2));
    draw(480, 833);
    EXPECT_EQ(0, wrongPixels(480, 833, 2));
}

TEST_F(PictureScalerTest, inAWideWindowTheStripStandsBesideThePicture) {
    draw(1010, 640);  // two pixels each make 2 * 480 x 640
    int32_t falsePixels = 0;
    for (int32_t y = 0; y < 640; y++) {
        for (int32_t x = 0; x < 1010; x++) {
            uint32_t expected = PictureScaler::kBesideRgb;
            if (x >= 505 && x < 985) {
                expected = program((x - 505) / 2, 80 + y / 2);
            } else if (x >= 25 && x < 505 && y >= 240 && y < 400) {
                expected = program((x - 25) / 2, (y - 240) / 2);
            }
            falsePixels += window[static_cast<size_t>(y * 1010 + x)] != expected ? 1 : 0;
        }
    }
    EXPECT_EQ(0, falsePixels);
}

TEST_F(PictureScalerTest, inBetweenItIsTheNextWholeMultipleShrunkSmoothly) {
    // 2.5 pixels each: three each, of which each of the window's covers 1.2.
    draw(600, 1000);
    const auto threefold = [this](int32_t x, int32_t y) { return program(x / 3, y / 3); };
    for (const int32_t x : {0, 1, 2, 3, 4, 301, 302, 599}) {
        for (const int32_t y : {0, 2, 4, 197, 199, 200, 202, 555, 999}) {
            // In tenths of a threefold pixel; the strip has its own rows, which end at 200.
            const int32_t left = 12 * x;
            const int32_t top = 12 * y;
            double channels[3] = {};
            for (int32_t down = top; down < top + 12; down++) {
                for (int32_t right = left; right < left + 12; right++) {
                    const uint32_t colour = threefold(right / 10, down / 10);
                    for (uint32_t i = 0; i < 3; i++) {
                        channels[i] += ((colour >> (8 * i)) & 0xFF) / 144.0;
                    }
                }
            }
            const uint32_t shown = window[static_cast<size_t>(y * 600 + x)];
            for (uint32_t i = 0; i < 3; i++) {
                // Each of the two blends truncates, with weights of 1/256.
                EXPECT_NEAR(channels[i], (shown >> (8 * i)) & 0xFF, 3) << x << " " << y;
            }
        }
    }
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

TEST_F(PictureScalerTest, everyPixelOfWindowsOfOddSizesIsTheMeanByShare) {
    for (const auto& [width, height] : {std::pair{413, 688}, {431, 718}, {300, 900}, {97, 160}}) {
        draw(width, height);
        const WindowLayout layout(width, height);
        EXPECT_EQ(0, wrongMeans(layout.strip(), 0, 80, width)) << width;
        EXPECT_EQ(0, wrongMeans(layout.picture(), 80, 320, width)) << width;
    }
}

TEST_F(PictureScalerTest, oneColourStaysThatColourAtEverySize) {
    std::fill(picture.begin(), picture.end(), uint16_t{0x8C51});
    for (const int32_t height : {200, 333, 401, 555, 777, 799, 1166}) {
        for (const int32_t width : {height * 3 / 5, height * 2}) {
            draw(width, height);
            const WindowLayout layout(width, height);
            const auto same = std::count(window.begin(), window.end(), HostFrame::toRgb32(0x8C51));
            EXPECT_EQ(layout.strip().width * layout.strip().height +
                          layout.picture().width * layout.picture().height,
                      same)
                << width << " x " << height;
        }
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
        for (const int32_t width : {height * 3 / 5 + 7, height * 2}) {
            SCOPED_TRACE(std::to_string(width) + " x " + std::to_string(height));
            draw(width, height);
            HostFrame::Rows changed;
            for (const size_t row : {0U, 57U, 58U, 59U, 200U, 399U}) {
                changed.set(2 * row);
                changed.set(2 * row + 1);
                for (size_t i = row * 480; i < (row + 1) * 480; i++) {
                    picture[i] = static_cast<uint16_t>(picture[i] ^ 0x5A5A);
                }
            }
            const std::vector<uint32_t> before = window;
            const std::vector<PicturePlace> places =
                scaler.drawChanged(picture.data(), window.data(), width, changed);
            const std::vector<uint32_t> partly = window;
            draw(width, height);
            EXPECT_TRUE(window == partly);
            ASSERT_EQ(4U, places.size());
            EXPECT_EQ(WindowLayout(width, height).strip().y, places[0].y);
            EXPECT_EQ(WindowLayout(width, height).picture().x, places[2].x);
            // No pixel outside of those places was drawn.
            std::vector<uint32_t> outside = partly;
            for (const PicturePlace& place : places) {
                for (int32_t y = place.y; y < place.y + place.height; y++) {
                    const auto at = static_cast<size_t>(y * width + place.x);
                    const auto end = at + static_cast<size_t>(place.width);
                    for (size_t i = at; i < end; i++) {
                        outside[i] = before[i];
                    }
                }
            }
            EXPECT_TRUE(before == outside);
        }
    }
}

TEST_F(PictureScalerTest, whereNothingHasChangedNothingIsDrawn) {
    draw(480, 800);
    window.assign(window.size(), kUntouched);
    EXPECT_TRUE(scaler.drawChanged(picture.data(), window.data(), 480, {}).empty());
    EXPECT_EQ(kUntouched, window[0]);
}
