// SPDX-License-Identifier: MIT
// The slide from one effect to the next paints each of its frames by the rule.
#include "AppImage.h"
#include "Bounds.h"
#include "Fx.h"
#include "G.h"
#include "Header.h"
#include "Main.h"
#include "PaImage.h"
#include "Res.h"
#include "ScreensTest.h"
#include "Scroller.h"

#include <algorithm>

namespace {

constexpr int32_t kNumFxs = 8;

class ScrollerTest : public ScreensTest {
protected:
    static Pixels pixelsOf(const AppImage& image) {
        return {image.pixels.get(), image.pixels + 240 * 320};
    }

    static uint32_t channel(uint32_t argb, int32_t shift) { return (argb >> shift) & 0xFF; }

    /// The slow model of one pixel, channel by channel.
    static uint32_t slow(uint32_t a, uint32_t b, uint32_t k, uint32_t background) {
        uint32_t colour = 0;
        for (const int32_t shift : {0, 8, 16, 24}) {
            colour |= (((16 - k) * channel(a, shift) + k * channel(b, shift)) >> 4) << shift;
        }
        uint32_t out = 0;
        for (const int32_t shift : {0, 8, 16, 24}) {
            out += (channel(background, shift) * (256 - channel(colour, 24)) >> 8) << shift;
        }
        return out + colour;
    }

    /// The expected pixels of a frame of the slide, over the current screen and its background.
    static Pixels slowFrame(int32_t p) {
        AppImage image(G::scr);
        G::piBg->paintOn(&image, 0, 0, Scroller::bounds.get(), nullptr);
        return slowFrameOver(&image, p);
    }

    static Pixels slowFrameOver(AppImage* below, int32_t p) {
        AppImage image(below);
        const AppImage background(below);
        AppImage* strip = Res::getImage(Scroller::scrollImgId);
        const int32_t first = ((strip->w / 3) * p >> 10) + strip->w / 8;
        for (int32_t row = 0; row < Scroller::bounds->h; row++) {
            for (int32_t x = 0; x < 240; x++) {
                const int32_t column = first + x / 16;
                const int32_t y = Scroller::bounds->y + row;
                image.set(slow(strip->get(column, row), strip->get(column + 1, row),
                               static_cast<uint32_t>(x % 16), background.pixels[y * 240 + x]),
                          x, y);
            }
        }
        G::piMicOverlay->paintOn(&image, 0, 0, G::scrB, nullptr);
        G::piWheelsOverlay->paintOn(&image, 0, 0, G::scrB, nullptr);
        return pixelsOf(image);
    }
};

/// Records what is on the screen each time it is painted.
class FrameWatch : public PaImage {
public:
    explicit FrameWatch(PaImage* painter)
        : painter(painter) {}

    void paintOn(AppImage* dst, int32_t x, int32_t y, Bounded* clip, PixProps* props) override {
        painter->paintOn(dst, x, y, clip, props);
        effects.push_back(G::getCurrFx());
        leftPressed.push_back(Header::leftP && !Header::rightP);
        rightPressed.push_back(Header::rightP && !Header::leftP);
        frames.emplace_back(dst->pixels.get(), dst->pixels + 240 * 320);
    }

    std::vector<int32_t> effects;
    std::vector<bool> leftPressed;
    std::vector<bool> rightPressed;
    std::vector<std::vector<uint32_t>> frames;

private:
    PaImage* painter;
};

}  // namespace

TEST_F(ScrollerTest, aTurnShowsItsThreeFramesBeforeTheEffectIsChosen) {
    for (const bool left : {false, true}) {
        G::setCurrFx(3);
        PaImage* wheels = G::piWheelsOverlay;
        FrameWatch watch(wheels);
        G::piWheelsOverlay = &watch;  // painted last in each frame
        Scroller::scroll(left);
        G::piWheelsOverlay = wheels;
        EXPECT_EQ((std::vector<int32_t>{3, 3, 3}), watch.effects);
        EXPECT_EQ(std::vector<bool>(3, left), watch.leftPressed);
        EXPECT_EQ(std::vector<bool>(3, !left), watch.rightPressed);
        G::setCurrFx(3);
        Scroller::initScroll(left);
        ASSERT_EQ(3U, watch.frames.size());
        for (size_t i = 0; i < 3; i++) {
            const int32_t progress = 512 * static_cast<int32_t>(i);
            const Pixels expected = slowFrame(left ? 1024 - progress : progress);
            const auto first = ptrdiff_t{240} * Scroller::bounds->y;
            const auto end = first + ptrdiff_t{240} * Scroller::bounds->h;
            EXPECT_TRUE(std::equal(expected.begin() + first, expected.begin() + end,
                                   watch.frames[i].begin() + first))
                << left << progress;
        }
    }
}

TEST_F(ScrollerTest, theStripCoversEveryCreature) {
    EXPECT_EQ(kNumFxs, Scroller::numFxs);
    EXPECT_EQ(0, Scroller::bounds->x);
    EXPECT_EQ(240, Scroller::bounds->w);
    int32_t top = 320;
    int32_t bottom = 0;
    for (int32_t i = 0; i < kNumFxs; i++) {
        PaImage* image = G::fxs[i]->image;
        top = std::min(top, image->getY());
        bottom = std::max(bottom, image->getY() + image->getHeight());
    }
    EXPECT_EQ(top, Scroller::bounds->y);
    EXPECT_EQ(bottom - top, Scroller::bounds->h);
}

TEST_F(ScrollerTest, theNextEffectFollowsAndWrapsAroundTheRightEnd) {
    for (int32_t i = 0; i < 2 * kNumFxs; i++) {
        EXPECT_EQ(i % kNumFxs, G::getCurrFx());
        Scroller::scroll(false);
    }
    EXPECT_EQ(0, G::getCurrFx());
}

TEST_F(ScrollerTest, thePreviousEffectFollowsAndWrapsAroundTheLeftEnd) {
    Scroller::scroll(true);
    EXPECT_EQ(7, G::getCurrFx());
    Scroller::scroll(true);
    EXPECT_EQ(6, G::getCurrFx());
}

TEST_F(ScrollerTest, aSlideIsPreparedFromTheCurrentEffectAndChoosesNothing) {
    G::setCurrFx(7);
    Scroller::initScroll(false);
    EXPECT_EQ(7, Scroller::cFxIndex);
    EXPECT_EQ(0, Scroller::nFxIndex);
    EXPECT_FALSE(Scroller::left);
    EXPECT_EQ(7, G::getCurrFx());
    Scroller::initScroll(true);
    EXPECT_EQ(6, Scroller::nFxIndex);
    EXPECT_TRUE(Scroller::left);
}

TEST_F(ScrollerTest, framesToTheRightFollowTheRuleOfTheSmear) {
    G::setCurrFx(1);
    Scroller::initScroll(false);
    for (const int32_t progress : {0, 100, 512, 777, 1024}) {
        const Pixels expected = slowFrame(progress);
        Scroller::paint(true, progress);
        EXPECT_EQ(expected, picture()) << "at " << progress;
    }
}

TEST_F(ScrollerTest, framesToTheLeftRunBackwards) {
    G::setCurrFx(1);
    Scroller::initScroll(true);
    for (const int32_t progress : {0, 512, 1024}) {
        const Pixels expected = slowFrame(1024 - progress);
        Scroller::paint(true, progress);
        EXPECT_EQ(expected, picture()) << "at " << progress;
    }
}

TEST_F(ScrollerTest, theSlideBeginsWithTheOldCreatureAndEndsWithTheNewOneInItsPlace) {
    for (const bool left : {false, true}) {
        G::setCurrFx(1);
        Scroller::initScroll(left);
        const int32_t ends[] = {1, left ? 0 : 2};
        for (int32_t end = 0; end < 2; end++) {
            // The other creature is seen at one edge, ten columns of the strip away.
            PaImage* creature = G::fxs[ends[end]]->image;
            Main::paintBg();
            const Pixels background = picture();
            Scroller::paint(true, end * 1024);
            const Pixels frame = picture();
            const auto isSmeared = [&](int32_t x) {
                for (int32_t y = creature->getY(); y < 150; y++) {
                    const auto at = static_cast<size_t>(y * 240 + x);
                    if (frame[at] != background[at]) {
                        return true;
                    }
                }
                return false;
            };
            const int32_t first = creature->getX();
            const int32_t last = first + creature->getWidth();
            EXPECT_TRUE(isSmeared((first + last) / 2)) << left << end;
            EXPECT_TRUE(isSmeared(first + 16)) << left << end;
            EXPECT_TRUE(isSmeared(last - 16)) << left << end;
            EXPECT_FALSE(isSmeared(first - 33)) << left << end;
            EXPECT_FALSE(isSmeared(last + 33)) << left << end;
        }
    }
}

TEST_F(ScrollerTest, aFramePaintedTwiceIsTheSame) {
    Scroller::initScroll(false);
    Scroller::paint(true, 300);
    const Pixels once = picture();
    Scroller::paint(true, 300);
    EXPECT_EQ(once, picture());
}

TEST_F(ScrollerTest, aFrameWithoutBackgroundLiesOverTheBackgroundPictureNeverthelessAndOnlyThere) {
    G::setCurrFx(1);
    Scroller::initScroll(false);
    for (const int32_t progress : {0, 512, 1024}) {
        G::scr->set(0xFF00FF00);
        const Pixels expected = slowFrame(progress);
        ASSERT_EQ(0xFF00FF00, expected[0]);
        Scroller::paint(false, progress);
        EXPECT_TRUE(expected == picture()) << "at " << progress;
    }
}

TEST_F(ScrollerTest, overABackgroundPictureThatIsTooSmallAFrameLiesOverTheScreen) {
    const int32_t small = Res::addImage(100, 320);
    Res::getImage(small)->set(0xFF204060);
    G::piBg->setImage(small);
    G::setCurrFx(1);
    Scroller::initScroll(false);
    for (const int32_t progress : {0, 512, 1024}) {
        G::scr->set(0xFF00FF00);
        const Pixels bare = slowFrameOver(G::scr, progress);
        const Pixels withBackground = slowFrame(progress);
        ASSERT_FALSE(bare == withBackground);
        Scroller::paint(false, progress);
        EXPECT_TRUE(bare == picture()) << "at " << progress;
        G::scr->set(0xFF00FF00);
        Scroller::paint(true, progress);
        EXPECT_TRUE(withBackground == picture()) << "at " << progress;
    }
}

TEST_F(ScrollerTest, afterAScrollTheSharpPictureAndTheNameOfTheNewEffectStand) {
    Main::paintBg();
    G::setCurrFx(3);
    Scroller::scroll(false);
    const Pixels scrolled = picture();
    EXPECT_TRUE(Header::arrows);
    EXPECT_TRUE(Header::fxName);
    EXPECT_FALSE(Header::leftP);
    EXPECT_FALSE(Header::rightP);
    Main::paintBgAndFx();
    Header::paint(false);
    EXPECT_EQ(picture(), scrolled);
}

TEST_F(ScrollerTest, withoutBackgroundOnlyTheCreatureIsPainted) {
    G::scr->set(0xFF00FF00);
    G::setCurrFx(6);
    AppImage expected(G::scr);
    G::fxs[6]->image->paintOn(&expected, 0, 0, G::scrB, nullptr);
    Scroller::paint(false);
    EXPECT_EQ(pixelsOf(expected), picture());
}

TEST_F(ScrollerTest, theSlideForTheEyeEndsSharp) {
    Main::paintBg();
    Scroller::scroll(false);
    const Pixels sharp = picture();
    Scroller::startSlide(1000);
    EXPECT_NE(sharp, picture());
    EXPECT_TRUE(Scroller::slide(1050));
    EXPECT_NE(sharp, picture());
    EXPECT_FALSE(Scroller::slide(5000));
    EXPECT_EQ(sharp, picture());
    G::scr->set(0xFF00FF00);
    EXPECT_FALSE(Scroller::slide(5010));
    EXPECT_EQ(Pixels(240 * 320, 0xFF00FF00), picture());
}

TEST_F(ScrollerTest, aClockThatJumpsBackEndsTheSlide) {
    Main::paintBg();
    Scroller::scroll(false);
    const Pixels sharp = picture();
    Scroller::startSlide(1000);
    EXPECT_FALSE(Scroller::slide(900));
    EXPECT_EQ(sharp, picture());
}
