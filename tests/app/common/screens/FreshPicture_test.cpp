// SPDX-License-Identifier: MIT
// A screen's picture does not depend on the picture before it. Boxes and bars are translucent:
// parts below them that are not painted again would shine through, or become darker each time.
#include "AppImage.h"
#include "AudioDev.h"
#include "G.h"
#include "Header.h"
#include "Main.h"
#include "Menu.h"
#include "Message.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "Progress.h"
#include "ScreensTest.h"
#include "SkBar.h"
#include "State.h"
#include "Str.h"
#include "TakeJob.h"
#include "TestSounds.h"

#include <functional>

namespace {

class FreshPictureTest : public ScreensTest {
protected:
    using Step = std::function<void()>;

    FreshPictureTest() {
        makeSoundFolder();
        putTake({10, 10, 20, 20, 30, 30, 40, 40});
        host.ears.setVoice(TestSounds::noise(16000));
    }

    /// Checks that the step leads to the named screen, and that the picture there is the same if
    /// the step began on a screen of one colour, of another, or (twice) after the preparation. If
    /// the screen has a box, it must have been painted once.
    static void expectFresh(const std::string& screenName,
                            const Step& prepare,
                            const Step& step,
                            const Step& paintBox = nullptr) {
        prepare();
        G::scr->set(0xFF123456);
        step();
        ASSERT_EQ(screenName, screen());
        const Pixels shown = picture();
        prepare();
        G::scr->set(0xFFEDCBA9);
        step();
        EXPECT_TRUE(shown == picture());
        for (const int32_t visit : {1, 2}) {
            prepare();
            step();
            EXPECT_TRUE(shown == picture()) << visit;
        }
        EXPECT_EQ(screenName, screen());
        if (paintBox) {
            Main::paintBgAndFx();
            SkBar::paint(true);
            paintBox();
            EXPECT_TRUE(shown == picture());
        }
    }

    static void waitBox() { Progress::paintInit(Str::str_PLEASE_WAIT); }

    static void show(State* next) { State::setState(next, true, true); }

    static void touchRow(int32_t index) {
        touch(120, Menu::y + 10 + index * (Menu::rh + 12) + (Menu::rh + 12) / 2);
    }

    void haveResult() {
        folders.remove("home/Murmelo/rec_00000.wav");
        folders.write(kResult, TestSounds::wav({1, 2, 3}, 8000));
        G::setLastPlayedFx(G::getCurrFx());
    }

    void haveNoResult() {
        folders.remove(kResult);
        G::setLastPlayedFx(G::getCurrFx());
    }

    static void startRecording() {
        show(G::stateRecord);
        show(G::stateRecording);
    }

    /// Presses the middle key and stops there, before the first slice of a job.
    static void press() {
        Orm::canvas->keyPressed(OrmCanvas::kKeyMiddle);
        Orm::canvas->run();
    }
};

}  // namespace

TEST_F(FreshPictureTest, theMenu) {
    expectFresh(
        "Options", [] {}, [] { show(G::stateOptions); });
}

TEST_F(FreshPictureTest, theHelp) {
    expectFresh(
        "Options", [] { show(G::stateOptions); }, [] { touchRow(1); }, Message::paint);
}

TEST_F(FreshPictureTest, theLanguages) {
    expectFresh(
        "Options", [] { show(G::stateOptions); }, [] { touchRow(2); });
}

TEST_F(FreshPictureTest, theWordBeforeARecording) {
    const auto prepare = [] {
        AudioDev::stopRec();
        show(G::stateOptions);
    };
    expectFresh(
        "Record", prepare, [] { show(G::stateRecord); }, Message::paint);
}

TEST_F(FreshPictureTest, aRecording) {
    const auto prepare = [] {
        if (screen() == "Recording") {
            deliver(Orm::EV_T_SYS_PAUSE);
        }
        show(G::stateRecord);
    };
    expectFresh(
        "Recording", prepare, [] { show(G::stateRecording); },
        [] { Progress::paintInit(Str::str_LBL_RECORDING); });
}

TEST_F(FreshPictureTest, theMenuAfterARecordingThatWasGivenUp) {
    expectFresh("Options", startRecording, [] { deliver(Orm::EV_T_SYS_PAUSE); });
}

TEST_F(FreshPictureTest, theJobOfATake) {
    const auto prepare = [this] {
        startRecording();
        pass(1000);
    };
    expectFresh(
        "Process", prepare, [] { deliver(G::EV_T_TIME_OUT); }, waitBox);
}

TEST_F(FreshPictureTest, theJobOfASoundFromOutside) {
    const int16_t samples[] = {1, 2, 3, 4};
    expectFresh(
        "Process", [] { show(G::statePlay); }, [&samples] { TakeJob::use(samples, 4); }, waitBox);
}

TEST_F(FreshPictureTest, theChoiceOfTheEffect) {
    expectFresh(
        "Play", [] { show(G::stateOptions); }, [] { show(G::statePlay); });
}

TEST_F(FreshPictureTest, theJobOfAnEffect) {
    expectFresh(
        "Process", [] { show(G::statePlay); }, press,
        [] {
            Header::paint(false);
            waitBox();
        });
}

TEST_F(FreshPictureTest, playing) {
    const auto prepare = [this] {
        AudioDev::stopPlay();
        haveResult();
    };
    expectFresh("Playing", prepare, [] { show(G::statePlaying); });
}

TEST_F(FreshPictureTest, theJobBeforeASave) {
    expectFresh(
        "Process", [] { show(G::stateOptions); }, [] { show(G::stateSave); }, waitBox);
}

TEST_F(FreshPictureTest, aSavedSound) {
    const auto prepare = [this] {
        show(G::stateOptions);
        haveResult();
    };
    expectFresh(
        "Save", prepare, [] { show(G::stateSave); }, Message::paint);
}

TEST_F(FreshPictureTest, aMessageInsteadOfASavedSound) {
    expectFresh(
        "MessageAndQuit", [this] { haveNoResult(); }, [] { show(G::stateSave); });
}

TEST_F(FreshPictureTest, aMessageInsteadOfPlaying) {
    expectFresh(
        "MessageAndQuit", [this] { haveNoResult(); }, [] { show(G::statePlaying); });
}

TEST_F(FreshPictureTest, aMessageInsteadOfARecording) {
    const auto prepare = [this] {
        AudioDev::stopRec();
        show(G::stateRecord);
        host.failNth("AudioIn.Start", 1);
    };
    expectFresh("MessageAndQuit", prepare, [] { show(G::stateRecording); });
}

TEST_F(FreshPictureTest, aMessageInsteadOfTheWordBeforeARecording) {
    const auto prepare = [this] { host.failNth("AudioIn.Prepare", 1); };
    expectFresh("MessageAndQuit", prepare, [] { show(G::stateRecord); });
}

TEST_F(FreshPictureTest, aMessageInsteadOfTheJobOfATake) {
    const auto prepare = [this] {
        startRecording();
        pass(1000);
        folders.remove(kTake);
    };
    expectFresh("MessageAndQuit", prepare, [] { deliver(G::EV_T_TIME_OUT); });
}

TEST_F(FreshPictureTest, aMessageInsteadOfTheJobOfAnEffect) {
    folders.remove(kTake);
    expectFresh(
        "MessageAndQuit", [] { show(G::statePlay); }, press);
}

TEST_F(FreshPictureTest, aMessageOfTheStart) {
    host.phoneBytes = 1024;
    expectFresh(
        "MessageAndQuit", [] {}, [] { show(G::stateSplash); });
}
