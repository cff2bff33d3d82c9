// SPDX-License-Identifier: MIT
// The whole loop: OspMain() on a host that carries out the steps of a test.
#include "AppImage.h"
#include "AudioDev.h"
#include "G.h"
#include "GameInterface.h"
#include "GEngine.h"
#include "LoopHost.h"
#include "Murmelo.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "OspGraphics.h"
#include "OspMain.h"
#include "System.h"
#include "TestFolders.h"
#include "TestScreen.h"

#include <gtest/gtest.h>

#include <memory>

using Heard = std::vector<std::string>;

namespace {

class GEngineTest : public testing::Test {
protected:
    void SetUp() override {
        host.mapHome(folders);
        host.mappedFolders.config = folders.path("config");
        host.check([this] {
            screen = std::make_unique<TestScreen>(std::initializer_list<Osp::Base::String*>{
                Orm::EV_T_UPDATE, Orm::EV_T_SYS_PAUSE, Orm::EV_T_SYS_RESUME, Orm::EV_T_SYS_DISPOSE,
                Orm::EV_T_KEY_PRESS, Orm::EV_T_POINTER_RELEASE});
            State::setState(screen.get(), true, true);
            framesAtStart = host.framesShown;
        });
    }

    int run() {
        char name[] = "murmelo";
        char* arguments[] = {name, nullptr};
        return OspMain(1, arguments);
    }

    void background() {
        host.callback([](HostListener& listener) { listener.onBackground(); });
    }

    void foreground() {
        host.callback([](HostListener& listener) { listener.onForeground(); });
    }

    int32_t frames() const { return host.framesShown - framesAtStart; }

    TestFolders folders;
    LoopHost host;
    std::unique_ptr<TestScreen> screen;
    int32_t framesAtStart = 0;
};

}  // namespace

TEST_F(GEngineTest, theFirstFrameAppearsAlthoughNothingIsPending) {
    host.check([this] { EXPECT_EQ(1, host.framesShown); });
    EXPECT_EQ(0, run());
}

TEST_F(GEngineTest, tenIdleMinutesDeliverNoFrame) {
    host.wait(600000);
    host.check([this] {
        EXPECT_EQ(0, frames());
        EXPECT_EQ(1, host.sleeps);
    });
    run();
}

TEST_F(GEngineTest, twoThousandDueEventsAreTwoThousandFramesWithoutWaiting) {
    host.check([] {
        for (int32_t i = 0; i < 2000; i++) {
            Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 0);
        }
    });
    host.wait(1);
    host.check([this] {
        EXPECT_EQ(2000, frames());
        EXPECT_EQ(2001U, screen->heard.size());
        EXPECT_EQ(1, host.sleeps);  // the wait above
    });
    run();
}

TEST_F(GEngineTest, aDueTimeWakesOnce) {
    host.check([] { Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 137); });
    host.wait(136);
    host.check([this] { EXPECT_EQ(0, frames()); });
    host.wait(5);
    host.check([this] {
        EXPECT_EQ(1, frames());
        EXPECT_EQ((Heard{"enter", "Update"}), screen->heard);
    });
    run();
}

TEST_F(GEngineTest, aDueTimeWakesOnceAlsoAfterABackgroundAndForeground) {
    host.check([] { Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 137); });
    host.wait(100);
    background();
    host.wait(1000);
    foreground();
    host.wait(36);
    host.check([this] {
        EXPECT_EQ((Heard{"enter", "SysPause", "SysResume"}), screen->heard);
        framesAtStart = host.framesShown;
    });
    host.wait(2);
    host.check([this] {
        EXPECT_EQ("Update", screen->heard.back());
        EXPECT_EQ(1, frames());
    });
    run();
}

TEST_F(GEngineTest, thereAreNeverTwoFramesForOneForeground) {
    foreground();
    foreground();
    host.wait(1);
    host.check([this] { EXPECT_EQ(2, frames()); });  // one after each callback
    run();
}

TEST_F(GEngineTest, eachForegroundShowsThePictureOnACanvasOfItsOwn) {
    host.check([this] { host.frame->takeChanges(); });
    host.callback(
        [](HostListener& listener) { listener.onTouch(HostListener::Touch::kPress, 5, 5); });
    host.check([this] { EXPECT_TRUE(host.frame->takeChanges().none()); });
    background();
    foreground();
    host.check([this] { EXPECT_TRUE(host.frame->takeChanges().all()); });
    run();
}

TEST_F(GEngineTest, eachCallbackOfThePlatformIsFollowedByOneFrame) {
    host.callback(
        [](HostListener& listener) { listener.onTouch(HostListener::Touch::kPress, 5, 5); });
    host.check([this] { EXPECT_EQ(1, frames()); });
    run();
}

TEST_F(GEngineTest, aTouchAboveThePictureHasANegativeRow) {
    host.callback(
        [](HostListener& listener) { listener.onTouch(HostListener::Touch::kRelease, 9, 159); });
    host.check([this] { EXPECT_EQ(-1, screen->lastWord); });  // (4 << 16) | -1
    host.callback(
        [](HostListener& listener) { listener.onTouch(HostListener::Touch::kRelease, 9, 161); });
    host.check([this] { EXPECT_EQ(0x00040000, screen->lastWord); });
    run();
}

TEST_F(GEngineTest, draggingAcrossTheDisplayIsAKey) {
    host.callback(
        [](HostListener& listener) { listener.onTouch(HostListener::Touch::kPress, 0, 400); });
    host.callback(
        [](HostListener& listener) { listener.onTouch(HostListener::Touch::kMove, 200, 400); });
    host.check([this] { EXPECT_EQ((Heard{"enter", "KeyPress/KeyLeft"}), screen->heard); });
    run();
}

TEST_F(GEngineTest, aScreenOffConsumesItsEventAndAScreenOnGivesNoFrames) {
    host.callback([](HostListener& listener) { listener.onScreenOff(); });
    host.wait(10);
    host.check([this] {
        EXPECT_TRUE(Orm::isPaused());
        EXPECT_EQ(0, frames());
    });
    host.callback([](HostListener& listener) { listener.onScreenOn(); });
    host.check([] { Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 0); });
    host.wait(10);
    host.check([this] {
        EXPECT_FALSE(Orm::isPaused());
        EXPECT_EQ(0, frames());
    });
    foreground();
    host.wait(1);
    host.check([this] {
        EXPECT_EQ((Heard{"enter", "SysPause", "SysResume", "Update"}), screen->heard);
        EXPECT_GT(frames(), 0);
    });
    run();
}

TEST_F(GEngineTest, aScreenThatIsOnAgainBeforeTheNextFrameGoesOnWithoutAForeground) {
    host.callback([](HostListener& listener) {
        listener.onScreenOff();
        listener.onScreenOn();
    });
    host.check([this] {
        EXPECT_EQ(1, frames());
        Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 5);
    });
    host.wait(10);
    host.check([this] {
        EXPECT_EQ(2, frames());
        EXPECT_EQ("Update", screen->heard.back());
    });
    run();
}

TEST_F(GEngineTest, aForegroundAfterAScreenOnIsNoSecondResume) {
    host.check([] { OrmCanvas::safeToShowIsSilentPopup = true; });
    host.callback([](HostListener& listener) { listener.onScreenOff(); });
    host.callback([](HostListener& listener) { listener.onScreenOn(); });
    host.check([this] { host.silent = true; });
    foreground();
    host.check([] {
        EXPECT_FALSE(OrmCanvas::showIsSilentPopup);  // it is asked at a resume
        EXPECT_FALSE(Orm::isPaused());
    });
    run();
}

TEST_F(GEngineTest, quittingPaintsOneMoreFrameAndEnds) {
    host.callback([this](HostListener& listener) {
        listener.onTouch(HostListener::Touch::kPress, 5, 5);
        Orm::dispose();
        GameInterface::Active = false;
        framesAtStart = host.framesShown;
    });
    host.check([] { FAIL() << "the program should have ended"; });
    EXPECT_EQ(0, run());
    EXPECT_EQ(1, frames());
    EXPECT_EQ("SysDispose", screen->heard.back());
}

TEST_F(GEngineTest, quittingFromAHandlerEndsAfterTheCurrentFrame) {
    host.check([this] {
        screen->handler = [this](Event*) {
            screen->handler = nullptr;
            Orm::dispose();
            GameInterface::Active = false;
        };
        Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 0);
    });
    host.wait(1);
    EXPECT_EQ(0, run());
    EXPECT_EQ(1, frames());
    EXPECT_EQ("Update", screen->heard.back());
}

TEST_F(GEngineTest, theTemporarySoundsAreDeletedAtTheEnd) {
    host.check([this] {
        folders.write("home/Murmelo/MrmLastRec.wav", "take");
        folders.write("home/Murmelo/MrmLastProc.wav", "result");
        folders.write("home/Murmelo/rec_00000.wav", "kept");
        G::setDirTones();
    });
    run();
    EXPECT_FALSE(folders.has("home/Murmelo/MrmLastRec.wav"));
    EXPECT_FALSE(folders.has("home/Murmelo/MrmLastProc.wav"));
    EXPECT_TRUE(folders.has("home/Murmelo/rec_00000.wav"));
}

TEST_F(GEngineTest, endingBeforeTheFolderIsKnownDeletesNothing) {
    folders.write("home/Murmelo/MrmLastRec.wav", "take");
    run();
    EXPECT_TRUE(folders.has("home/Murmelo/MrmLastRec.wav"));
}

TEST_F(GEngineTest, aSecondStartInOneProcessIsAsGoodAsTheFirst) {
    host.callback([](HostListener&) {
        Orm::dispose();
        GameInterface::Active = false;
    });
    run();
    EXPECT_EQ(nullptr, GEngine::pAppRegistry);
    screen.reset();
    host.check([] {
        EXPECT_TRUE(GameInterface::Active);
        EXPECT_FALSE(Orm::isDisposed);
        EXPECT_EQ(nullptr, Orm::firstEvent);
        EXPECT_EQ(-1, G::getLastPlayedFx());
    });
    EXPECT_EQ(0, run());
}

TEST_F(GEngineTest, theVersionIsThePlatformsWord) {
    host.check([] { EXPECT_EQ(Osp::Base::String(MURMELO_VERSION), GEngine::appVersion); });
    run();
}

TEST_F(GEngineTest, aFailedShowIsPassedOver) {
    host.callback([this](HostListener&) { host.failNth("Canvas.Show", 1); });
    host.callback([](HostListener&) {});
    host.check([this] { EXPECT_EQ(1, frames()); });
    EXPECT_EQ(0, run());
}

TEST_F(GEngineTest, everyFrameGivesWayOnce) {
    host.callback([](HostListener&) {});
    host.check([this] { EXPECT_EQ(host.framesShown, host.yields); });
    run();
}

TEST_F(GEngineTest, theFirstRunIsAShadeLighterThanLaterOnes) {
    host.check([] { EXPECT_EQ(0xFF202020U, Murmelo::pBkgColor->GetRGB32()); });
    run();
    screen.reset();
    folders.write("config/settings", "lang=2\n");
    host.check([] { EXPECT_EQ(0xFF101010U, Murmelo::pBkgColor->GetRGB32()); });
    run();
}

TEST_F(GEngineTest, aSavedLanguageThatIsNoneCountsAsNeverSaved) {
    folders.write("config/settings", "lang=5\n");
    host.check([] {
        EXPECT_EQ(-1, G::getSavedLang());
        EXPECT_EQ(0xFF202020U, Murmelo::pBkgColor->GetRGB32());
    });
    run();
}

TEST_F(GEngineTest, theQuestionAboutSilenceIsRaisedOnceAndKeepsTheProgramPaused) {
    host.check([this] {
        host.silent = true;
        OrmCanvas::safeToShowIsSilentPopup = true;
    });
    background();
    foreground();
    host.check([] {
        EXPECT_TRUE(OrmCanvas::showIsSilentPopup);
        EXPECT_TRUE(OrmCanvas::silentPopupShown);
        EXPECT_TRUE(Orm::isPaused());
    });
    background();
    foreground();
    host.check([] {
        EXPECT_TRUE(OrmCanvas::showIsSilentPopup);
        EXPECT_TRUE(Orm::isPaused());
    });
    run();
}

TEST_F(GEngineTest, thePhonesVoiceBackTakesTheQuestionAway) {
    host.check([this] {
        host.silent = true;
        OrmCanvas::safeToShowIsSilentPopup = true;
    });
    background();
    foreground();
    host.check([this] { host.silent = false; });
    background();
    foreground();
    host.check([] {
        EXPECT_FALSE(OrmCanvas::showIsSilentPopup);
        EXPECT_FALSE(OrmCanvas::silentPopupShown);
        EXPECT_FALSE(Orm::isPaused());
    });
    run();
}

TEST_F(GEngineTest, theQuestionAboutSilenceIsAnsweredBySoftKeysOfAKeyboardToo) {
    host.check([this] {
        host.silent = true;
        OrmCanvas::safeToShowIsSilentPopup = true;
    });
    background();
    foreground();
    host.callback([this](HostListener&) {
        EXPECT_FALSE(host.doors->navigate(HostKey::kMiddle));
        EXPECT_TRUE(host.doors->navigate(HostKey::kRightSoft));
    });
    host.check([] {
        EXPECT_FALSE(OrmCanvas::showIsSilentPopup);
        EXPECT_FALSE(Orm::isPaused());
        EXPECT_TRUE(AudioDev::isSilent);
    });
    run();
}

TEST_F(GEngineTest, silenceIsNotAskedAboutBeforeItIsSafe) {
    host.check([this] { host.silent = true; });
    background();
    foreground();
    host.check([] {
        EXPECT_FALSE(OrmCanvas::showIsSilentPopup);
        EXPECT_FALSE(Orm::isPaused());
    });
    run();
}

TEST_F(GEngineTest, theVolumeKeysChangeTheVolumeByOneStep) {
    host.callback([](HostListener& listener) { listener.onVolumeKey(true); });
    host.check([] { EXPECT_EQ(60, AudioDev::volumeLevel); });
    host.callback([](HostListener& listener) { listener.onVolumeKey(false); });
    host.callback([](HostListener& listener) { listener.onVolumeKey(false); });
    host.check([] { EXPECT_EQ(40, AudioDev::volumeLevel); });
    run();
}

TEST_F(GEngineTest, comingBackWithoutSilentModeUsesSoundsAgain) {
    host.check([] { AudioDev::isSilent = true; });
    background();
    host.check([] { EXPECT_TRUE(AudioDev::isSilent); });
    foreground();
    host.check([] { EXPECT_FALSE(AudioDev::isSilent); });
    run();
}

TEST_F(GEngineTest, theDoorsTellTheScreenAndTakeKeys) {
    host.callback([this](HostListener&) {
        EXPECT_EQ("", host.doors->screenName());  // the test's own screen is none of the program's
        EXPECT_EQ(0, host.doors->currentEffect());
        EXPECT_TRUE(host.doors->navigate(HostKey::kRight));
    });
    host.check([this] { EXPECT_EQ((Heard{"enter", "KeyPress/KeyRight"}), screen->heard); });
    run();
    EXPECT_EQ(nullptr, host.doors);
}

TEST_F(GEngineTest, yieldingDeliversNothingAndEndsNothing) {
    host.check([this] {
        Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 0);
        for (int32_t i = 0; i < 5; i++) {
            Osp::Base::Runtime::Thread::Yield();
        }
        EXPECT_EQ(Heard{"enter"}, screen->heard);
        EXPECT_EQ(0, frames());
    });
    host.wait(1);
    host.check([this] { EXPECT_EQ((Heard{"enter", "Update"}), screen->heard); });
    run();
}

TEST_F(GEngineTest, aFrameShowsWhatItsOwnTickPaintedDoubledBelowTheBand) {
    host.check([this] {
        screen->handler = [](Event*) {
            G::scr->set(0xFFFF0000, 0, 0);
            G::scr->set(0xFF00FF00, 239, 319);
        };
        Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 0);
    });
    host.wait(1);
    host.check([this] {
        std::vector<uint16_t> display(480 * 800);
        host.frame->compose(display.data(), 480 * 2);
        auto at = [&display](int32_t x, int32_t y) {
            return display[static_cast<size_t>(y * 480 + x)];
        };
        EXPECT_EQ(1, frames());
        EXPECT_EQ(0x2104, at(0, 0));
        EXPECT_EQ(0x2104, at(479, 159));
        EXPECT_EQ(0xF800, at(0, 160));
        EXPECT_EQ(0xF800, at(1, 161));
        EXPECT_NE(0xF800, at(2, 160));
        EXPECT_EQ(0x07E0, at(478, 798));
        EXPECT_EQ(0x07E0, at(479, 799));
    });
    run();
}

TEST_F(GEngineTest, whatIsQueuedTwiceIsConsumedOnceAndThenNothingIsDue) {
    foreground();
    foreground();
    background();
    host.check([this] { EXPECT_EQ(-1, host.lastTimeoutMs); });
    run();
}

TEST_F(GEngineTest, screensGoAfterTheCanvasBecauseFinalisersRunForward) {
    class LastLook : public TestScreen {
    public:
        explicit LastLook(bool& canvasWasGone)
            : canvasWasGone(canvasWasGone) {}

        ~LastLook() override { canvasWasGone = Orm::canvas == nullptr; }

    private:
        bool& canvasWasGone;
    };

    bool canvasWasGone = false;
    host.check([&canvasWasGone] {
        delete G::stateSave;
        G::stateSave = new LastLook(canvasWasGone);
    });
    run();
    EXPECT_TRUE(canvasWasGone);
}

TEST(OspMain, keepsTheLowWordOfAFailure) {
    EXPECT_EQ(0, exitStatusOf(E_SUCCESS));
    EXPECT_EQ(0x0835, exitStatusOf(E_KEY_NOT_FOUND));
    EXPECT_NE(0, exitStatusOf(E_FAILURE));
}
