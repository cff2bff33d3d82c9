// SPDX-License-Identifier: MIT
// The question about silence as the canvas handles it: painted over any screen, answered while
// everything is paused.
#include "AppImage.h"
#include "AudioDev.h"
#include "CanvasGraphics.h"
#include "G.h"
#include "Message.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "PaStretcher.h"
#include "PaTextArea.h"
#include "Res.h"
#include "ScreensTest.h"
#include "SkBar.h"
#include "State.h"
#include "Str.h"
#include "TestSounds.h"

#include <algorithm>
#include <cstdlib>

namespace {

class SilentQuestionTest : public ScreensTest {
protected:
    using Shown = std::vector<uint16_t>;

    SilentQuestionTest() {
        makeSoundFolder();
        host.silent = true;
    }

    /// Paints a frame and returns what it shows.
    static Shown paint() {
        Shown shown(240 * 320);
        CanvasGraphics graphics(reinterpret_cast<unsigned char*>(shown.data()), 240, 320);
        Orm::canvas->paint(&graphics);
        return shown;
    }

    void raise() {
        State::setState(G::stateOptions, true, true);
        paint();
    }

    static void press(int32_t x, int32_t y) {
        Orm::canvas->pointerPressed(x, y);
        Orm::canvas->pointerReleased(x, y);
    }
};

}  // namespace

TEST_F(SilentQuestionTest, standsOverThePictureWithYesAndNoButNeverInIt) {
    OrmCanvas::silentPopupShown = true;  // as if it had been asked
    State::setState(G::stateOptions, true, true);
    const Pixels below = picture();
    const Shown without = paint();
    OrmCanvas::silentPopupShown = false;
    State::setState(G::stateOptions, true, true);
    ASSERT_TRUE(OrmCanvas::showIsSilentPopup);
    EXPECT_EQ(below, picture());
    const Shown with = paint();
    EXPECT_NE(without, with);
    EXPECT_EQ(below, picture());
    EXPECT_EQ((Names{"Yes", "-", "No"}), labels());
    EXPECT_EQ(Str::str_SILENT_DEVICE, Message::paTxt->getText());
    EXPECT_EQ(G::fntMedium, Message::paTxt->getFont());
    EXPECT_EQ(with, paint());
}

TEST_F(SilentQuestionTest, wordsBelowTheQuestionCannotBeRead) {
    raise();
    G::scr->set(0xFFFFFFFF);
    const Shown overWhite = paint();
    G::scr->set(0xFF000000);
    const Shown overBlack = paint();
    constexpr int32_t kCornerPx = 16;
    const PaStretcher& box = *G::psWndBg;
    int32_t maxDifference = 0;
    for (int32_t y = box.getY() + kCornerPx; y < box.getY() + box.getHeight() - kCornerPx; y++) {
        for (int32_t x = box.getX() + kCornerPx; x < box.getX() + box.getWidth() - kCornerPx; x++) {
            const auto at = static_cast<size_t>(240 * y + x);
            const int32_t greenDifference =
                (overWhite[at] >> 5 & 0x3F) - (overBlack[at] >> 5 & 0x3F);
            maxDifference = std::max(maxDifference, 4 * std::abs(greenDifference));
        }
    }
    EXPECT_GE(12, maxDifference);  // of 255, between the brightest and the darkest of all pictures
    EXPECT_NE(overWhite, overBlack);
}

TEST_F(SilentQuestionTest, wordsBesideTheQuestionRecede) {
    raise();
    G::scr->set(0xFFFFFFFF);
    const Shown shown = paint();
    constexpr size_t kAboveTheSoftKeys = 240 * 287 + 120;
    EXPECT_GE(20, 4 * (shown[kAboveTheSoftKeys] >> 5 & 0x3F));  // of 255; 128 under a fatal message
    EXPECT_LT(0, shown[kAboveTheSoftKeys]);
}

TEST_F(SilentQuestionTest, yesUsesSoundsAndGoesOn) {
    AudioDev::isSilent = true;
    raise();
    press(40, 304);
    EXPECT_FALSE(AudioDev::isSilent);
    EXPECT_FALSE(OrmCanvas::showIsSilentPopup);
    EXPECT_FALSE(Orm::isPaused());
    EXPECT_EQ((Names{"-", "Select", "Quit"}), labels());
    EXPECT_EQ(nullptr, SkBar::pressed);
}

TEST_F(SilentQuestionTest, noPlaysWithoutASound) {
    raise();
    press(200, 304);
    EXPECT_TRUE(AudioDev::isSilent);
    EXPECT_FALSE(OrmCanvas::showIsSilentPopup);
    EXPECT_FALSE(Orm::isPaused());
    EXPECT_EQ((Names{"-", "Select", "Quit"}), labels());
}

TEST_F(SilentQuestionTest, theAnsweredScreenLooksAsBefore) {
    OrmCanvas::silentPopupShown = true;
    State::setState(G::stateOptions, true, true);
    const Pixels before = picture();
    OrmCanvas::silentPopupShown = false;
    raise();
    press(200, 304);
    EXPECT_EQ(before, picture());
}

TEST_F(SilentQuestionTest, touchesElsewhereAndKeysAreIgnored) {
    raise();
    press(120, 304);
    press(120, 100);
    press(40, 287);
    press(10, -5);
    Orm::canvas->keyPressed(OrmCanvas::kKeyMiddle);
    Orm::canvas->keyReleased(OrmCanvas::kKeyMiddle);
    Orm::canvas->pointerPressed(0, 100);
    Orm::canvas->pointerDragged(200, 100);
    EXPECT_TRUE(OrmCanvas::showIsSilentPopup);
    EXPECT_TRUE(Orm::isPaused());
    EXPECT_TRUE(pending().empty());
    EXPECT_EQ("Options", screen());
}

TEST_F(SilentQuestionTest, aReleaseElsewhereEndsTheDrag) {
    raise();
    Orm::canvas->pointerPressed(0, 100);
    Orm::canvas->pointerReleased(0, 100);
    OrmCanvas::showIsSilentPopup = false;  // as when the phone has its voice back
    Orm::canvas->showNotify();
    Orm::canvas->pointerDragged(200, 100);
    EXPECT_TRUE(pending().empty());
}

TEST_F(SilentQuestionTest, thePressOfAnAnswerIsNoBeginningOfADrag) {
    raise();
    press(40, 304);
    ASSERT_FALSE(Orm::isPaused());
    Orm::canvas->pointerDragged(200, 304);
    EXPECT_TRUE(pending().empty());
}

TEST_F(SilentQuestionTest, isNotAskedAgainInTheSameRun) {
    raise();
    press(40, 304);
    State::setState(G::stateRecord, true, true);
    State::setState(G::stateOptions, true, true);
    EXPECT_FALSE(OrmCanvas::showIsSilentPopup);
    EXPECT_FALSE(Orm::isPaused());
}

TEST_F(SilentQuestionTest, followsTheLanguage) {
    Res::setCurrLangIndex(1);
    raise();
    EXPECT_EQ((Names{"Ja", "-", "Nein"}), labels());
}

TEST_F(SilentQuestionTest, fitsTheScreenInEveryLanguage) {
    for (int32_t lang = 0; lang < 5; lang++) {
        Res::setCurrLangIndex(lang);
        Message::setText(Str::str_SILENT_DEVICE, G::fntMedium);
        EXPECT_GE(Message::paTxt->getY(), 30) << lang;
        EXPECT_LE(Message::paTxt->getY() + Message::paTxt->getHeight() + 30, SkBar::y1) << lang;
    }
}

TEST_F(SilentQuestionTest, withNoTheResultIsPlayedAtVolumeZero) {
    folders.write(kResult, TestSounds::wav(TestSounds::noise(800), 8000));
    raise();
    press(200, 304);
    EXPECT_EQ("", host.voice.openFile(folders.path("speaker.wav")));
    enter(G::statePlaying);
    AudioDev::changeVolume(1);
    pass(200);
    EXPECT_EQ("", host.voice.finishFile());
    EXPECT_EQ(60, AudioDev::volumeLevel);
    EXPECT_EQ(TestSounds::Samples(800, 0), TestSounds::samplesOf(folders.read("speaker.wav")));
}

TEST_F(SilentQuestionTest, withYesTheResultIsHeard) {
    folders.write(kResult, TestSounds::wav({1000, -1000, 500}, 8000));
    raise();
    press(40, 304);
    EXPECT_EQ("", host.voice.openFile(folders.path("speaker.wav")));
    enter(G::statePlaying);
    pass(50);
    EXPECT_EQ("", host.voice.finishFile());
    // Half as loud: the volume is 50 of 100.
    EXPECT_EQ((TestSounds::Samples{500, -500, 250}),
              TestSounds::samplesOf(folders.read("speaker.wav")));
}
