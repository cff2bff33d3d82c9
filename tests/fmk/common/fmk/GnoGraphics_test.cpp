// SPDX-License-Identifier: MIT
// Device graphics draw lines, rectangles, arcs and images exactly inside the clip.
#include "CanvasGraphics.h"
#include "GnoImage.h"
#include "RowMarks.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr int32_t kW = 24;
constexpr int32_t kH = 20;
constexpr uint16_t kUntouched = 0x1234;
constexpr int32_t kInk = 0xFF0000;
constexpr uint16_t kInkPixel = 0xF800;

/// A surface with a guard row above and below, and graphics on it.
class GnoGraphicsTest : public testing::Test {
protected:
    uint16_t at(int32_t x, int32_t y) const {
        return memory[static_cast<size_t>((y + 1) * kW + x)];
    }

    void set(int32_t x, int32_t y, uint16_t pixel) {
        memory[static_cast<size_t>((y + 1) * kW + x)] = pixel;
    }

    bool isInk(int32_t x, int32_t y) const { return at(x, y) == kInkPixel; }

    void clear() { memory.assign(memory.size(), kUntouched); }

    /// Checks that exactly the pixels for which rule() is true have ink, guard rows included.
    template <typename Rule>
    void expectInk(Rule rule) {
        for (int32_t y = -1; y <= kH; y++) {
            for (int32_t x = 0; x < kW; x++) {
                const bool inside = y >= 0 && y < kH;
                ASSERT_EQ(inside && rule(x, y) ? kInkPixel : kUntouched, at(x, y))
                    << "at " << x << ", " << y;
            }
        }
    }

    std::vector<uint16_t> memory = std::vector<uint16_t>(kW * (kH + 2), kUntouched);
    CanvasGraphics g{reinterpret_cast<unsigned char*>(memory.data() + kW), kW, kH};
};

std::vector<uint32_t> noise(size_t n, uint32_t seed) {
    std::mt19937 random(seed);
    std::vector<uint32_t> words(n);
    for (uint32_t& word : words) {
        word = static_cast<uint32_t>(random());
    }
    return words;
}

uint16_t to565(uint32_t r, uint32_t g, uint32_t b) {
    return static_cast<uint16_t>(r / 8 * 2048 + g / 4 * 32 + b / 8);
}

uint16_t stored(uint32_t argb) {
    return to565((argb >> 16) & 255, (argb >> 8) & 255, argb & 255);
}

uint16_t blended(uint32_t argb, uint16_t dst) {
    const uint32_t a = argb >> 24;
    const auto mix = [a](uint32_t src, uint32_t under) {
        return (a * (src & 255) + (255 - a) * under) / 255;
    };
    return to565(mix(argb >> 16, dst / 2048U * 8), mix(argb >> 8, dst / 32U % 64 * 4),
                 mix(argb, dst % 32U * 8));
}

/// Rectangles around every edge of a clip of 10 x 8 pixels at (5, 4).
struct Rect {
    int32_t x, y, w, h;
};

std::vector<Rect> rectsAroundTheClip() {
    std::vector<Rect> rects;
    for (const int32_t x : {-30, 0, 4, 5, 6, 14, 15, 16, 40}) {
        for (const int32_t w : {-1, 0, 1, 2, 10, 11, 30}) {
            for (const int32_t y : {-30, 3, 4, 5, 11, 12, 40}) {
                for (const int32_t h : {-1, 0, 1, 8, 9, 30}) {
                    rects.push_back({x, y, w, h});
                }
            }
        }
    }
    return rects;
}

bool inClip(int32_t x, int32_t y) {
    return x >= 5 && x < 15 && y >= 4 && y < 12;
}

bool inRect(const Rect& r, int32_t x, int32_t y) {
    return x >= r.x && x < r.x + r.w && y >= r.y && y < r.y + r.h;
}

}  // namespace

TEST_F(GnoGraphicsTest, startsBlackUntranslatedAndClippedToTheSurface) {
    EXPECT_EQ(0, g.getColor());
    EXPECT_EQ(0, g.getTranslatedX());
    EXPECT_EQ(0, g.getTranslatedY());
    EXPECT_EQ(0, g.getClipX());
    EXPECT_EQ(0, g.getClipY());
    EXPECT_EQ(kW, g.getClipWidth());
    EXPECT_EQ(kH, g.getClipHeight());
}

TEST_F(GnoGraphicsTest, colourIsGivenWholeOrByChannel) {
    g.setColor(0x123456);
    EXPECT_EQ(0x123456, g.getColor());
    g.setColor(0xAB, 0xCD, 0xEF);
    EXPECT_EQ(0xABCDEF, g.getColor());
}

TEST_F(GnoGraphicsTest, translationsAddUp) {
    g.translate(3, -4);
    g.translate(2, 1);
    EXPECT_EQ(5, g.getTranslatedX());
    EXPECT_EQ(-3, g.getTranslatedY());
}

TEST_F(GnoGraphicsTest, clipIsNeverWidenedAgain) {
    g.clipRect(10, 10, 5, 5);
    g.setClip(0, 0, 240, 320);
    EXPECT_EQ(10, g.getClipX());
    EXPECT_EQ(10, g.getClipY());
    EXPECT_EQ(5, g.getClipWidth());
    EXPECT_EQ(5, g.getClipHeight());
}

TEST_F(GnoGraphicsTest, clipRectIntersectsAndIsTranslated) {
    g.translate(2, 3);
    g.clipRect(-10, 0, 20, 100);
    EXPECT_EQ(0, g.getClipX());
    EXPECT_EQ(3, g.getClipY());
    EXPECT_EQ(12, g.getClipWidth());
    EXPECT_EQ(kH - 3, g.getClipHeight());
}

TEST_F(GnoGraphicsTest, anEmptyClipStaysEmptyAndNothingIsDrawn) {
    g.clipRect(5, 5, 3, 3);
    g.clipRect(20, 5, 3, 3);
    EXPECT_EQ(0, g.getClipWidth());
    g.clipRect(0, 0, kW, kH);
    EXPECT_EQ(0, g.getClipWidth());
    g.setColor(kInk);
    g.fillRect(0, 0, kW, kH);
    g.drawLine(0, 0, kW, kH);
    expectInk([](int32_t, int32_t) { return false; });
}

TEST_F(GnoGraphicsTest, fillsExactlyTheRectangleInsideTheClip) {
    g.clipRect(5, 4, 10, 8);
    g.setColor(kInk);
    for (const Rect& r : rectsAroundTheClip()) {
        clear();
        g.fillRect(r.x, r.y, r.w, r.h);
        expectInk([&r](int32_t x, int32_t y) { return inClip(x, y) && inRect(r, x, y); });
    }
}

TEST_F(GnoGraphicsTest, fillIsTranslated) {
    g.translate(-2, 5);
    g.setColor(kInk);
    g.fillRoundRect(4, 0, 3, 2, 9, 9);
    expectInk([](int32_t x, int32_t y) { return x >= 2 && x < 5 && y >= 5 && y < 7; });
}

TEST_F(GnoGraphicsTest, hugeRectanglesAreCutWithoutOverflow) {
    g.translate(0x7FFFFFFF, 0x7FFFFFFF);
    g.setColor(kInk);
    g.fillRect(-0x7FFFFFFF, -0x7FFFFFFF, 0x7FFFFFFF, 0x7FFFFFFF);
    expectInk([](int32_t, int32_t) { return true; });
    clear();
    g.fillRect(0x7FFFFFFF, 0x7FFFFFFF, 0x7FFFFFFF, 0x7FFFFFFF);
    expectInk([](int32_t, int32_t) { return false; });
}

TEST_F(GnoGraphicsTest, storesRgbWhateverTheAlphaBytesSay) {
    const std::vector<uint32_t> words = noise(kW * kH, 7);
    g.drawRGB(words.data(), 0, kW, 0, 0, kW, kH, false);
    for (int32_t y = 0; y < kH; y++) {
        for (int32_t x = 0; x < kW; x++) {
            ASSERT_EQ(stored(words[static_cast<size_t>(x + kW * y)]), at(x, y));
        }
    }
    EXPECT_EQ(kUntouched, at(kW - 1, -1));
    EXPECT_EQ(kUntouched, at(0, kH));
}

TEST_F(GnoGraphicsTest, rgbIsCutAtEveryEdgeOfTheClipWithItsSourceOffset) {
    constexpr int32_t kScan = 32;
    constexpr int32_t kOffset = 3;
    const std::vector<uint32_t> words = noise(kOffset + kScan * 31, 8);
    g.clipRect(5, 4, 10, 8);
    for (const bool processAlpha : {false, true}) {
        for (const Rect& r : rectsAroundTheClip()) {
            clear();
            g.drawRGB(words.data(), kOffset, kScan, r.x, r.y, r.w, r.h, processAlpha);
            for (int32_t y = -1; y <= kH; y++) {
                for (int32_t x = 0; x < kW; x++) {
                    uint16_t expected = kUntouched;
                    if (inClip(x, y) && inRect(r, x, y)) {
                        const uint32_t word =
                            words[static_cast<size_t>(kOffset + x - r.x + kScan * (y - r.y))];
                        expected = processAlpha ? blended(word, kUntouched) : stored(word);
                    }
                    ASSERT_EQ(expected, at(x, y)) << x << ", " << y;
                }
            }
        }
    }
}

TEST_F(GnoGraphicsTest, rgbIsTranslated) {
    const uint32_t word = 0xFFFF0000;
    g.translate(3, 2);
    g.drawRGB(&word, 0, 1, 1, 1, 1, 1, false);
    expectInk([](int32_t x, int32_t y) { return x == 4 && y == 3; });
}

TEST_F(GnoGraphicsTest, blendsEachChannelStraightOverTheSurface) {
    for (const uint32_t a : {0U, 1U, 127U, 128U, 254U, 255U}) {
        std::vector<uint32_t> words = noise(kW * kH, 9 + a);
        const std::vector<uint32_t> under = noise(kW * kH, 900 + a);
        for (int32_t i = 0; i < kW * kH; i++) {
            const auto n = static_cast<size_t>(i);
            words[n] = (words[n] & 0xFFFFFF) | a << 24;
            set(i % kW, i / kW, static_cast<uint16_t>(under[n]));
        }
        g.drawRGB(words.data(), 0, kW, 0, 0, kW, kH, true);
        for (int32_t i = 0; i < kW * kH; i++) {
            const auto n = static_cast<size_t>(i);
            ASSERT_EQ(blended(words[n], static_cast<uint16_t>(under[n])), at(i % kW, i / kW))
                << "alpha " << a;
        }
    }
}

TEST_F(GnoGraphicsTest, alphaZeroLeavesAndAlpha255Overwrites) {
    const uint32_t words[2] = {0x00FFFFFF, 0xFF0000FF};
    g.drawRGB(words, 0, 2, 0, 0, 2, 1, true);
    EXPECT_EQ(kUntouched & 0xFFFF, at(0, 0));
    EXPECT_EQ(0x001F, at(1, 0));
}

TEST_F(GnoGraphicsTest, rgbRowsMayRunUpwards) {
    const uint32_t words[2] = {0xFF0000, 0x0000FF};
    g.drawRGB(words, 1, -1, 0, 0, 1, 2, false);
    EXPECT_EQ(0x001F, at(0, 0));
    EXPECT_EQ(0xF800, at(0, 1));
}

TEST_F(GnoGraphicsTest, linesHaveBothEndsInEveryDirection) {
    g.setColor(kInk);
    for (int32_t dx = -7; dx <= 7; dx++) {
        for (int32_t dy = -7; dy <= 7; dy++) {
            clear();
            g.drawLine(10, 9, 10 + dx, 9 + dy);
            const int32_t steps = std::max(std::abs(dx), std::abs(dy));
            expectInk([=](int32_t x, int32_t y) {
                for (int32_t i = 0; i <= steps; i++) {
                    // the nearest pixel to the true line, halves away from the start
                    const double part = steps == 0 ? 0.0 : static_cast<double>(i) / steps;
                    const auto nearest = [part](int32_t d) {
                        const auto way = static_cast<int32_t>(std::abs(d) * part + 0.5 + 1e-9);
                        return d < 0 ? -way : way;
                    };
                    if (x == 10 + nearest(dx) && y == 9 + nearest(dy)) {
                        return true;
                    }
                }
                return false;
            });
        }
    }
}

TEST_F(GnoGraphicsTest, aClippedLineKeepsThePixelsOfTheWholeLine) {
    g.setColor(kInk);
    std::mt19937 random(3);
    const auto coordinate = [&random] { return static_cast<int32_t>(random() % 80) - 30; };
    for (int32_t round = 0; round < 300; round++) {
        const int32_t x1 = coordinate();
        const int32_t y1 = coordinate();
        const int32_t x2 = coordinate();
        const int32_t y2 = coordinate();
        std::vector<uint16_t> wide(80 * 80, kUntouched);
        CanvasGraphics whole(reinterpret_cast<unsigned char*>(wide.data()), 80, 80);
        whole.setColor(kInk);
        whole.drawLine(x1 + 30, y1 + 30, x2 + 30, y2 + 30);
        clear();
        g.drawLine(x1, y1, x2, y2);
        expectInk([&wide](int32_t x, int32_t y) {
            return wide[static_cast<size_t>(x + 30 + 80 * (y + 30))] == kInkPixel;
        });
    }
}

TEST_F(GnoGraphicsTest, endlessLinesEndAtTheClip) {
    g.setColor(kInk);
    g.clipRect(0, 3, kW, 2);
    g.drawLine(-0x7FFFFFFF, 3, 0x7FFFFFFF, 3);
    expectInk([](int32_t, int32_t y) { return y == 3; });
    clear();
    g.drawLine(-0x7FFFFFFF, -0x7FFFFFFF, 0x7FFFFFFF, 0x7FFFFFFF);
    expectInk([](int32_t x, int32_t y) { return x == y && y >= 3 && y < 5; });
}

TEST_F(GnoGraphicsTest, aLineOfAnyLengthKeepsItsSlope) {
    g.setColor(kInk);
    g.drawLine(0, 0, 0x7FFFFFFF, 0x20000000);  // a quarter, and a trace more
    expectInk([](int32_t x, int32_t y) { return y == (x + 2) / 4; });
}

TEST_F(GnoGraphicsTest, outlinesAreOnePixelLargerThanTheirSize) {
    g.setColor(kInk);
    g.drawRect(0, 0, 10, 10);
    const auto outline = [](int32_t x, int32_t y) {
        return x <= 10 && y <= 10 && (x % 10 == 0 || y % 10 == 0);
    };
    expectInk(outline);
    clear();
    g.drawRoundRect(0, 0, 10, 10, 4, 4);
    expectInk(outline);
}

TEST_F(GnoGraphicsTest, anOutlineOfHeightZeroHasOnePixelAboveItsLeftEnd) {
    g.setColor(kInk);
    g.drawRect(3, 5, 4, 0);
    expectInk(
        [](int32_t x, int32_t y) { return (y == 5 && x >= 3 && x <= 7) || (x == 3 && y == 4); });
}

TEST_F(GnoGraphicsTest, anArcTouchesTheEdgesOfItsBox) {
    g.setColor(kInk);
    g.translate(1, 2);
    g.drawArc(2, 3, 4, 4, 0, 360);
    const std::string kCircle[5] = {".###.", "#...#", "#...#", "#...#", ".###."};
    expectInk([&kCircle](int32_t x, int32_t y) {
        return x >= 3 && x < 8 && y >= 5 && y < 10 &&
               kCircle[y - 5][static_cast<size_t>(x - 3)] == '#';
    });
}

TEST_F(GnoGraphicsTest, aQuarterArcStaysInItsQuarter) {
    g.setColor(kInk);
    g.drawArc(2, 3, 4, 4, 0, 90);
    expectInk([](int32_t x, int32_t y) {
        return (y == 3 && (x == 4 || x == 5)) || (x == 6 && (y == 4 || y == 5));
    });
}

TEST_F(GnoGraphicsTest, aFilledArcHasEveryPixelWhoseCentreIsInside) {
    g.setColor(kInk);
    g.translate(-1, 1);
    g.clipRect(0, 0, 12, kH);
    g.fillArc(4, 3, 11, 8, 0, 360);
    expectInk([](int32_t x, int32_t y) {
        const double u = (x - 3 + 0.5 - 5.5) / 5.5;
        const double v = (y - 4 + 0.5 - 4.0) / 4.0;
        return x < 11 && u * u + v * v <= 1.0;
    });
}

TEST_F(GnoGraphicsTest, aFilledHalfLiesAboveItsMiddle) {
    g.setColor(kInk);
    g.fillArc(0, 0, 2, 2, 0, 180);
    expectInk([](int32_t x, int32_t y) { return y == 0 && x < 2; });
}

TEST_F(GnoGraphicsTest, arcsThatAreTooLargeOrNegativeDrawNothing) {
    g.drawArc(0, 0, 40000, 5, 0, 360);
    g.drawArc(0, 0, -1, 5, 0, 360);
    g.fillArc(-100, -100, 40000, 40000, 0, 360);
    g.fillArc(0, 0, 5, -1, 0, 360);
    expectInk([](int32_t, int32_t) { return false; });
}

namespace {

/// 3 x 2 pixels of the values 1 to 6.
std::unique_ptr<GnoImage> numberedImage() {
    std::unique_ptr<GnoImage> image(GnoImage::createImage(3, 2));
    for (uint16_t i = 0; i < 6; i++) {
        image->getPixels()[i] = static_cast<uint16_t>(i + 1);
    }
    return image;
}

}  // namespace

TEST_F(GnoGraphicsTest, anchorsPlaceAnImage) {
    struct Case {
        int32_t anchor, left, top;
    };

    const std::unique_ptr<GnoImage> image = numberedImage();
    for (const Case& c :
         {Case{0, 10, 8}, Case{4 | 16, 10, 8}, Case{8 | 16, 7, 8}, Case{4 | 32, 10, 6},
          Case{8 | 32, 7, 6}, Case{1 | 2, 9, 7}, Case{1 | 64, 9, 6}, Case{1 | 16, 9, 8}}) {
        clear();
        g.drawImage(image.get(), 10, 8, c.anchor);
        EXPECT_EQ(1, at(c.left, c.top)) << c.anchor;
        EXPECT_EQ(6, at(c.left + 2, c.top + 1)) << c.anchor;
        EXPECT_EQ(kUntouched, at(c.left - 1, c.top));
        EXPECT_EQ(kUntouched, at(c.left + 3, c.top));
        EXPECT_EQ(kUntouched, at(c.left, c.top - 1));
        EXPECT_EQ(kUntouched, at(c.left, c.top + 2));
    }
}

TEST_F(GnoGraphicsTest, regionsAreDrawnAsTheyAreCopied) {
    const std::unique_ptr<GnoImage> image = numberedImage();
    for (int32_t transform = 0; transform < 8; transform++) {
        const std::unique_ptr<GnoImage> turned(
            GnoImage::createImage(image.get(), 1, 0, 2, 2, transform));
        clear();
        g.drawRegion(image.get(), 1, 0, 2, 2, transform, 5, 5, 0);
        for (int32_t i = 0; i < 4; i++) {
            EXPECT_EQ(turned->getPixels()[i], at(5 + i % 2, 5 + i / 2)) << transform;
        }
    }
}

TEST_F(GnoGraphicsTest, turnedRegionsAreAnchoredByTheirNewSize) {
    const std::unique_ptr<GnoImage> image = numberedImage();
    g.drawRegion(image.get(), 0, 0, 3, 2, 5, 10, 10, GnoGraphics::kRight | GnoGraphics::kBottom);
    EXPECT_EQ(4, at(8, 7));
    EXPECT_EQ(3, at(9, 9));
}

TEST_F(GnoGraphicsTest, regionsAreClippedAndTranslated) {
    const std::unique_ptr<GnoImage> image = numberedImage();
    g.clipRect(6, 5, 1, 1);
    g.translate(1, 1);
    g.drawImage(image.get(), 4, 4, 0);
    for (int32_t y = -1; y <= kH; y++) {
        for (int32_t x = 0; x < kW; x++) {
            EXPECT_EQ(x == 6 && y == 5 ? 2 : kUntouched, at(x, y));
        }
    }
}

TEST_F(GnoGraphicsTest, whatARegionHasOutsideItsImageIsNotDrawn) {
    const std::unique_ptr<GnoImage> image = numberedImage();
    g.drawRegion(image.get(), -1, -1, 5, 4, 0, 2, 2, 0);
    EXPECT_EQ(kUntouched, at(2, 2));
    EXPECT_EQ(1, at(3, 3));
    EXPECT_EQ(6, at(5, 4));
    EXPECT_EQ(kUntouched, at(6, 4));
    EXPECT_EQ(kUntouched, at(5, 5));
    clear();
    g.drawRegion(image.get(), 0, 0, 3, 2, 8, 2, 2, 0);
    g.drawRegion(image.get(), 0, 0, -3, 2, 3, 2, 2, 0);
    expectInk([](int32_t, int32_t) { return false; });
}

TEST_F(GnoGraphicsTest, transparentImagesAreBlendedAsTheirWordsAre) {
    const uint32_t words[6] = {0x00F8FCF8, 0x01F80408, 0x7FF8FC00,
                               0x80108040, 0xFE10FC88, 0xFF0804F8};
    const std::unique_ptr<GnoImage> image(GnoImage::createRGBImage(words, 6, 1, true));
    g.drawImage(image.get(), 1, 1, 0);
    for (int32_t i = 0; i < 6; i++) {
        EXPECT_EQ(blended(words[i], kUntouched), at(1 + i, 1)) << i;
    }
}

TEST_F(GnoGraphicsTest, aWatchedSurfaceNamesTheRowsThatChange) {
    Osp::Graphics::RowMarks marks(kH);
    g.watchRows(&marks);
    g.setColor(kInk);
    const std::unique_ptr<GnoImage> image(GnoImage::createImage(3, 2));  // white
    const std::vector<uint32_t> white(4 * 3, 0xFFFFFFFF);
    const std::vector<uint32_t> veil(4 * 3, 0x80FFFFFF);
    const auto expectRows = [&](int32_t first, int32_t last) {
        for (int32_t y = 0; y < kH; y++) {
            bool differs = false;
            for (int32_t x = 0; x < kW; x++) {
                differs = differs || at(x, y) != kUntouched;
            }
            const Osp::Graphics::RowMarks::Run run = marks.next(y);
            EXPECT_EQ(y >= first && y <= last, differs) << y;
            EXPECT_EQ(differs, run.count > 0 && run.first == y) << y;
        }
        clear();
        marks.clear();
    };
    g.fillRect(2, 3, 4, 5);
    expectRows(3, 7);
    g.drawLine(0, 2, 9, 4);
    expectRows(2, 4);
    g.drawLine(5, 9, 4, 1);
    expectRows(1, 9);
    g.drawRect(1, 1, 3, 3);
    expectRows(1, 4);
    g.drawArc(2, 2, 6, 6, 0, 360);
    expectRows(2, 8);
    g.fillArc(2, 2, 6, 6, 0, 360);
    expectRows(2, 7);
    g.drawImage(image.get(), 1, 18, 0);
    expectRows(18, 19);
    g.drawRGB(white.data(), 0, 4, -1, -1, 4, 3, false);
    expectRows(0, 1);
    g.drawRGB(white.data(), 0, 4, 5, 5, 4, 3, true);
    expectRows(5, 7);
    g.drawRGB(veil.data(), 0, 4, 5, 18, 4, 3, true);
    expectRows(18, 19);
    g.fillRect(2, 30, 4, 5);
    expectRows(0, -1);
}

TEST_F(GnoGraphicsTest, pixelsThatStayTheSameAreNotMarked) {
    std::vector<uint32_t> argb = noise(kW * kH, 3);
    g.drawRGB(argb.data(), 0, kW, 0, 0, kW, kH, false);
    Osp::Graphics::RowMarks marks(kH);
    g.watchRows(&marks);
    g.drawRGB(argb.data(), 0, kW, 0, 0, kW, kH, false);
    EXPECT_TRUE(marks.none());
    for (size_t x = 0; x < kW; x++) {
        const size_t y = x % kH;
        argb[y * kW + x] ^= 0x00000008;             // the one bit of blue that the surface keeps
        argb[y * kW + (x + 5) % kW] ^= 0x00000003;  // two that it does not
        g.drawRGB(argb.data(), 0, kW, 0, 0, kW, kH, false);
        EXPECT_EQ(static_cast<int32_t>(y), marks.next(0).first) << x;
        EXPECT_EQ(1, marks.next(0).count) << x;
        marks.clear();
        const uint32_t shown = argb[y * kW + x];
        EXPECT_EQ(to565(shown >> 16 & 255, shown >> 8 & 255, shown & 255),
                  at(static_cast<int32_t>(x), static_cast<int32_t>(y)));
    }
}
