// SPDX-License-Identifier: MIT
// The soft-key bar, the message and the progress window report that they are on the screen exactly
// when the picture shows them, after every event of every screen.
#include "AppImage.h"
#include "Assembly.h"
#include "AudioDev.h"
#include "Bounds.h"
#include "CanvasGraphics.h"
#include "G.h"
#include "Message.h"
#include "Murmelo.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "PaTextArea.h"
#include "Progress.h"
#include "ScreensTest.h"
#include "SilentQuestion.h"
#include "SkBar.h"
#include "State.h"
#include "Str.h"
#include "TestSounds.h"

namespace {

class OnScreenTest : public ScreensTest {
protected:
    OnScreenTest() {
        makeSoundFolder();
        host.ears.setVoice(TestSounds::noise(3 * 16000));
        G::scr->set(0xFF202020);
    }

    /// Delivers what is due, and checks the picture after each event.
    static void tickAndLook() {
        while (!Orm::isDisposed && Orm::msUntilDue() == 0) {
            Orm::canvas->run();
            expectTruth();
        }
    }

    void passAndLook(int32_t ms) {
        for (int32_t i = 0; i < ms; i++) {
            host.pass(1);
            tickAndLook();
        }
    }

    static void show(State* next) {
        State::setState(next, true, true);
        expectTruth();
        tickAndLook();
    }

    static void touchAndLook(int32_t x, int32_t y) {
        Orm::canvas->pointerPressed(x, y);
        Orm::canvas->pointerReleased(x, y);
        tickAndLook();
    }

    static void touchAndLook(SoftKey key) { touchAndLook(40 + 80 * key, 304); }

    static void expectTruth() {
        EXPECT_EQ(barInPicture(), SkBar::isVisible()) << screen();
        EXPECT_EQ(inkInPicture(*Message::paTxt), Message::isVisible()) << screen();
        EXPECT_EQ(inkInPicture(*Progress::caption), Progress::isVisible()) << screen();
    }

    /// True if the bar with its labels is painted in the bottom rows.
    static bool barInPicture() {
        AppImage shown(G::scr);
        const bool visible = SkBar::visible;
        const Pixels rows = picture(0, SkBar::y1, 240, SkBar::kHeightPx);
        SkBar::paint(true);
        const bool same = rows == picture(0, SkBar::y1, 240, SkBar::kHeightPx);
        SkBar::visible = visible;
        G::scr->set(&shown);
        return same;
    }

    /// True if all fully inked pixels of the text are painted where the area is; false for no text.
    static bool inkInPicture(PaTextArea& area) {
        AppImage ink(240, 320);
        ink.set(0xFF000000);
        area.paintOn(&ink, 0, 0, G::scrB, nullptr);
        int32_t full = 0;
        for (int32_t i = 0; i < 240 * 320; i++) {
            if (ink.pixels[i] == 0xFFFFFFFF) {
                full++;
                if ((G::scr->pixels[i] & 0xFFFFFF) != 0xFFFFFF) {
                    return false;
                }
            }
        }
        return full > 0;
    }

    /// The question is painted only together with a frame.
    static void paintFrame() {
        std::vector<uint16_t> shown(240 * 320);
        CanvasGraphics graphics(reinterpret_cast<unsigned char*>(shown.data()), 240, 320);
        Orm::canvas->paint(&graphics);
    }

    static std::string seen() {
        return screen() + (SkBar::isVisible() ? " bar" : "") +
               (Message::isVisible() ? " message" : "") +
               (Progress::isVisible() ? " progress" : "");
    }

    void haveTake() {
        show(G::stateRecord);
        show(G::stateRecording);
        passAndLook(2000);
        touchAndLook(kMiddle);
        ASSERT_EQ("Play", screen());
    }
};

}  // namespace

TEST_F(OnScreenTest, nothingStandsThereBeforeTheFirstScreen) {
    EXPECT_EQ("none", seen());
}

TEST_F(OnScreenTest, theOpeningPictureHasNeitherBarNorLabels) {
    show(G::stateFirstLang);
    EXPECT_EQ("FirstLang bar", seen());
    EXPECT_EQ((Names{"-", "Select", "Quit"}), labels());
    show(G::stateSplash);
    EXPECT_EQ("Splash", seen());
    EXPECT_EQ((Names{"-", "-", "-"}), labels());
    passAndLook(3000);
    EXPECT_EQ("Options bar", seen());
}

TEST_F(OnScreenTest, theOpeningThatWaitsForAResumeLeavesTheScreenBeforeStanding) {
    show(G::stateFirstLang);
    Orm::setPaused(true);
    show(G::stateSplash);
    EXPECT_EQ("Splash bar", seen());
    Orm::setPaused(false);
    expectTruth();
    EXPECT_EQ("Splash", seen());
    EXPECT_EQ((Names{"-", "-", "-"}), labels());
}

TEST_F(OnScreenTest, aMessageOverTheOpeningPictureHasABar) {
    host.phoneBytes = 1024;
    host.cardBytes = 1024;
    show(G::stateSplash);
    EXPECT_EQ("MessageAndQuit bar message", seen());
}

TEST_F(OnScreenTest, theHelpIsAMessageUntilTheMenuIsBack) {
    show(G::stateOptions);
    EXPECT_EQ("Options bar", seen());
    Orm::canvas->keyPressed(OrmCanvas::kKeyDown);
    Orm::canvas->keyPressed(OrmCanvas::kKeyMiddle);
    tickAndLook();
    EXPECT_EQ("Options bar message", seen());
    EXPECT_EQ(Str::str_HELP_TXT, Message::paTxt->getText());
    touchAndLook(kMiddle);
    EXPECT_EQ("Options bar", seen());
    Orm::canvas->keyPressed(OrmCanvas::kKeyDown);
    Orm::canvas->keyPressed(OrmCanvas::kKeyMiddle);
    tickAndLook();
    EXPECT_EQ("Options bar", seen());  // the languages
}

TEST_F(OnScreenTest, aTakeGoesFromAMessageOverAProgressToTheChoiceOfTheEffect) {
    show(G::stateRecord);
    EXPECT_EQ("Record bar message", seen());
    State::setState(G::stateRecording, true, true);
    expectTruth();
    EXPECT_EQ("Recording bar progress", seen());
    passAndLook(2000);
    EXPECT_EQ("Recording bar progress", seen());
    Orm::canvas->keyPressed(OrmCanvas::kKeyMiddle);
    Orm::canvas->run();
    expectTruth();
    EXPECT_EQ("Process bar progress", seen());
    tickAndLook();
    EXPECT_EQ("Play bar", seen());
}

TEST_F(OnScreenTest, anInterruptedTakeLeavesNoProgress) {
    show(G::stateRecord);
    show(G::stateRecording);
    passAndLook(500);
    Orm::setPaused(true);
    expectTruth();
    EXPECT_EQ("Options bar", seen());
}

TEST_F(OnScreenTest, anInterruptedJobLeavesNoProgress) {
    haveTake();
    Orm::canvas->keyPressed(OrmCanvas::kKeyMiddle);
    Orm::canvas->run();
    expectTruth();
    EXPECT_EQ("Process bar progress", seen());
    Orm::setPaused(true);
    expectTruth();
    EXPECT_EQ("Play bar", seen());
}

TEST_F(OnScreenTest, slidingAndPlayingHaveABarOnly) {
    haveTake();
    Orm::canvas->keyPressed(OrmCanvas::kKeyRight);
    tickAndLook();
    passAndLook(50);
    EXPECT_EQ("Play bar", seen());
    passAndLook(1000);
    touchAndLook(kMiddle);
    EXPECT_EQ("Playing bar", seen());
    passAndLook(500);
    EXPECT_EQ("Playing bar", seen());
    touchAndLook(kMiddle);
    EXPECT_EQ("Play bar", seen());
}

TEST_F(OnScreenTest, aSavedSoundIsAMessageAndItsWorkAProgress) {
    haveTake();
    show(G::stateSave);
    EXPECT_EQ("Save bar message", seen());
    touchAndLook(kMiddle);
    EXPECT_EQ("Options bar", seen());
}

TEST_F(OnScreenTest, fatalMessagesStandAloneWhereverTheyComeFrom) {
    haveTake();
    folders.remove(kTake);
    touchAndLook(kMiddle);
    EXPECT_EQ("MessageAndQuit bar message", seen());
    show(G::stateRecord);
    AudioDev::stopRec();
    show(G::stateRecording);
    EXPECT_EQ("MessageAndQuit bar message", seen());
    G::setLastPlayedFx(G::getCurrFx());
    show(G::statePlaying);  // without a result
    EXPECT_EQ("MessageAndQuit bar message", seen());
    show(G::stateSave);
    EXPECT_EQ("MessageAndQuit bar message", seen());
    haveTake();
    host.failNth("File.Write", 1);
    touchAndLook(kMiddle);
    EXPECT_EQ("MessageAndQuit bar message", seen());
}

TEST_F(OnScreenTest, theQuestionIsTheMessageWhileItStands) {
    show(G::stateOptions);
    Orm::canvas->keyPressed(OrmCanvas::kKeyDown);
    Orm::canvas->keyPressed(OrmCanvas::kKeyMiddle);
    tickAndLook();
    ASSERT_EQ("Options bar message", seen());
    for (const SoftKey answer : {kLeft, kRight}) {
        SilentQuestion::raise();
        EXPECT_EQ("Options bar", seen());  // it has not been painted yet
        paintFrame();
        EXPECT_EQ("Options bar message", seen());
        EXPECT_EQ(Str::str_SILENT_DEVICE, Message::paTxt->getText());
        EXPECT_EQ((Names{"Yes", "-", "No"}), labels());
        touch(answer);
        expectTruth();
        EXPECT_EQ("Options bar message", seen());
        EXPECT_EQ(Str::str_HELP_TXT, Message::paTxt->getText());
    }
    touchAndLook(kMiddle);
    SilentQuestion::raise();
    paintFrame();
    EXPECT_EQ("Options bar message", seen());
    touch(kRight);
    expectTruth();
    EXPECT_EQ("Options bar", seen());
}

TEST_F(OnScreenTest, aSecondStartBeginsWithNothing) {
    show(G::stateRecord);
    show(G::stateRecording);
    ASSERT_TRUE(SkBar::isVisible());
    Message::paint();
    end();
    Assembly::install();
    midlet = std::make_unique<Murmelo>();
    EXPECT_EQ("none", seen());
}
