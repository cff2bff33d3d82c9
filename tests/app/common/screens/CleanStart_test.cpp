// SPDX-License-Identifier: MIT
// A screen begins with nothing of the one before: no pending key, no frame of its animation.
#include "G.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "ScreensTest.h"
#include "State.h"
#include "TestSounds.h"

using Osp::Base::String;

namespace {

class CleanStartTest : public ScreensTest {
protected:
    CleanStartTest() {
        makeSoundFolder();
        putTake(TestSounds::noise(3200));
    }

    /// Schedules keys of a hasty user and a frame of an animation.
    static void leaveKeysAndAFrame() {
        for (int32_t code = OrmCanvas::kKeyRightSoft; code <= OrmCanvas::kKeyUp; code++) {
            Orm::canvas->keyPressed(code);
            Orm::canvas->keyReleased(code);
        }
        Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 5);
    }

    /// Delivers the event that changes the screen, ahead of everything that is pending, and checks
    /// that nothing of that is left.
    void expectCleanStart(const std::string& next,
                          const Names& own,
                          String* type,
                          String* subType = nullptr) {
        leaveKeysAndAFrame();
        const std::string before = screen();
        deliver(type, subType);
        EXPECT_EQ(next, screen()) << "from " << before;
        EXPECT_EQ(own, pending()) << "from " << before << " to " << next;
    }

    void expectCleanStartByKey(const std::string& next, const Names& own, String* key) {
        expectCleanStart(next, own, Orm::EV_T_KEY_PRESS, key);
    }

    void haveResult() {
        folders.write(kResult, TestSounds::wav({1, 2, 3}, 8000));
        G::setLastPlayedFx(G::getCurrFx());
    }

    void beginRecording() {
        host.ears.setVoice(TestSounds::noise(32000));
        enter(G::stateRecord);
        enter(G::stateRecording);
        pass(1000);
        ASSERT_EQ("Stop", labels()[1]);
    }

    void beginPlaying() {
        haveResult();
        enter(G::statePlaying);
    }

    const Names nothing;
};

}  // namespace

TEST_F(CleanStartTest, afterTheChoiceOfTheLanguageAndTheOpening) {
    enter(G::stateFirstLang);
    expectCleanStartByKey("Splash", {"Update@3000"}, Orm::EV_ST_KEY_MSK);
    expectCleanStartByKey("Options", nothing, Orm::EV_ST_KEY_MSK);
    enter(G::stateSplash);
    expectCleanStart("Options", nothing, Orm::EV_T_UPDATE);
}

TEST_F(CleanStartTest, fromTheMenu) {
    enter(G::stateOptions);
    expectCleanStartByKey("Play", nothing, Orm::EV_ST_KEY_RSK);
    enter(G::stateOptions);
    expectCleanStartByKey("Record", nothing, Orm::EV_ST_KEY_MSK);
}

TEST_F(CleanStartTest, aroundARecording) {
    enter(G::stateRecord);
    expectCleanStartByKey("Recording", {"Update@10", "TimeOut@20000"}, Orm::EV_ST_KEY_MSK);
    deliver(Orm::EV_T_SYS_PAUSE);  // gives the microphone back
    enter(G::stateRecord);
    expectCleanStartByKey("Options", nothing, Orm::EV_ST_KEY_RSK);
    enter(G::stateRecord);
    expectCleanStart("Options", nothing, Orm::EV_T_SYS_PAUSE);
    beginRecording();
    expectCleanStartByKey("Process", {"Update@0"}, Orm::EV_ST_KEY_MSK);
    beginRecording();
    expectCleanStart("Process", {"Update@0"}, G::EV_T_TIME_OUT);
    beginRecording();
    expectCleanStart("Options", nothing, Orm::EV_T_SYS_PAUSE);
}

TEST_F(CleanStartTest, afterWork) {
    beginRecording();
    deliver(G::EV_T_TIME_OUT);
    leaveKeysAndAFrame();
    ASSERT_EQ("Process", screen());
    for (int32_t slice = 0; slice < 100 && screen() == "Process"; slice++) {
        deliver(Orm::EV_T_UPDATE);
    }
    EXPECT_EQ("Play", screen());
    EXPECT_EQ(nothing, pending());
    beginRecording();
    deliver(G::EV_T_TIME_OUT);
    expectCleanStart("Options", nothing, Orm::EV_T_SYS_PAUSE);
}

TEST_F(CleanStartTest, fromTheChoiceOfTheEffect) {
    enter(G::statePlay);
    expectCleanStartByKey("Options", nothing, Orm::EV_ST_KEY_LSK);
    enter(G::statePlay);
    expectCleanStartByKey("Process", {"Update@0"}, Orm::EV_ST_KEY_MSK);
    haveResult();
    enter(G::statePlay);
    expectCleanStartByKey("Playing", {"Update@10"}, Orm::EV_ST_KEY_MSK);
}

TEST_F(CleanStartTest, duringATurnOfTheEffects) {
    enter(G::statePlay);
    key(OrmCanvas::kKeyRight);
    haveResult();
    pass(50);
    EXPECT_EQ("Play", screen());
    EXPECT_EQ(1U, pending().size());  // the next frame of the slide
    expectCleanStartByKey("Playing", {"Update@10"}, Orm::EV_ST_KEY_MSK);
}

TEST_F(CleanStartTest, afterPlaying) {
    beginPlaying();
    expectCleanStartByKey("Play", nothing, Orm::EV_ST_KEY_MSK);
    beginPlaying();
    expectCleanStart("Play", nothing, G::EV_T_END_OF_MEDIA);
    beginPlaying();
    expectCleanStart("Play", nothing, Orm::EV_T_SYS_PAUSE);
}

TEST_F(CleanStartTest, aroundASave) {
    enter(G::stateOptions);
    leaveKeysAndAFrame();
    State::setState(G::stateSave, true, true);  // as the door does
    EXPECT_EQ("Process", screen());
    EXPECT_EQ(Names{"Update@0"}, pending());
    haveResult();
    enter(G::stateSave);
    expectCleanStartByKey("Options", nothing, Orm::EV_ST_KEY_MSK);
}
