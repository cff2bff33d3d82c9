// SPDX-License-Identifier: MIT
// The program's doors do their work, or refuse it, screen by screen.
#include "AppImage.h"
#include "AudioDev.h"
#include "Event.h"
#include "G.h"
#include "GameInterface.h"
#include "GEngine.h"
#include "MessageAndQuit.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "OspApp.h"
#include "OspGraphics.h"
#include "Res.h"
#include "SilentQuestion.h"
#include "SkBar.h"
#include "SoundHost.h"
#include "State.h"
#include "Str.h"
#include "TestFolders.h"
#include "TestPng.h"
#include "TestSounds.h"

#include <gtest/gtest.h>

#include <memory>

using Samples = TestSounds::Samples;

namespace {

class DoorsHost : public SoundHost {
public:
    void setDoors(HostDoors* offered) override { doors = offered; }

    void frameShown(HostFrame* newest) override { frame = newest; }

    HostDoors* doors = nullptr;
    HostFrame* frame = nullptr;
};

class GameInterfaceTest : public testing::Test {
protected:
    GameInterfaceTest() {
        host.mapHome(folders);
        host.mapShipped();
        registry.Open("");
        registry.Add("lang", "0");
        GEngine::pAppRegistry = &registry;
        game = std::make_unique<GameInterface>();
        game->AppInit();
        splashSaved = host.doors->saveSound();
        splashUsed = use(Samples(10, 1));
        State::setState(G::stateOptions, true, true);
    }

    ~GameInterfaceTest() override {
        game->AppQuit();
        game.reset();
        GEngine::pAppRegistry = nullptr;
    }

    static void tick() {
        while (!Orm::isDisposed && Orm::msUntilDue() == 0) {
            Orm::canvas->run();
        }
    }

    bool use(const Samples& samples) {
        return host.doors->useSound(samples.data(), static_cast<int32_t>(samples.size()));
    }

    void putTake() const {
        folders.write("home/Murmelo/MrmLastRec.wav", TestSounds::wav(Samples(400, 5), 16000));
    }

    bool hasSaved() const { return folders.has("home/Murmelo/rec_00000.wav"); }

    /// The soft keys as the next frame shows them: the display's rows under the doubled picture's.
    std::vector<uint16_t> shownKeys() {
        Osp::Graphics::Canvas canvas;
        game->AppPaint(&canvas);
        canvas.Show();
        std::vector<uint16_t> display(480 * 800);
        host.frame->compose(display.data(), 960);
        const auto first = display.begin() + ptrdiff_t{480} * (160 + 2 * SkBar::y1);
        return {first, first + ptrdiff_t{480} * 64};
    }

    /// The canvas after a slide has ended.
    std::vector<uint8_t> settledPicture() {
        host.nowMs += 1000;
        tick();
        return host.doors->canvasPng();
    }

    void touch(int32_t x, int32_t y) {
        game->OnPointerPressed(2 * x, 2 * y + 160);
        game->OnPointerReleased(2 * x, 2 * y + 160);
    }

    TestFolders folders;
    DoorsHost host;
    Osp::App::AppRegistry registry;
    std::unique_ptr<GameInterface> game;
    bool splashSaved = false;
    bool splashUsed = false;
};

}  // namespace

TEST_F(GameInterfaceTest, aTakeThatIsBroughtBackIsNotCut) {
    const Samples late = TestSounds::noise(20 * 16000 + 480);
    const auto count = static_cast<int32_t>(late.size());
    EXPECT_FALSE(host.doors->useTake(late.data(), 0));
    ASSERT_TRUE(host.doors->useTake(late.data(), count));
    EXPECT_EQ(TestSounds::wav(late, 16000), folders.read("home/Murmelo/MrmLastRec.wav"));
    EXPECT_EQ(1, host.doors->takenCount());
    EXPECT_FALSE(host.doors->useTake(late.data(), count));  // it is being cleaned up
    EXPECT_EQ(1, host.doors->takenCount());
}

TEST_F(GameInterfaceTest, aSoundIsTakenInTheMenuAndInTheChoiceOfTheEffect) {
    EXPECT_TRUE(use(Samples(400, 5)));
    EXPECT_EQ("Process", host.doors->screenName());
    EXPECT_EQ(1, host.doors->takenCount());
    EXPECT_FALSE(use(Samples(400, 5)));
    EXPECT_EQ(1, host.doors->takenCount());
    tick();
    EXPECT_EQ("Play", host.doors->screenName());
    EXPECT_TRUE(use(Samples(600, 7)));
    EXPECT_EQ(2, host.doors->takenCount());
    tick();
    EXPECT_EQ("Play", host.doors->screenName());
    EXPECT_EQ(TestSounds::kHeaderBytes + 2 * 300,
              folders.read("home/Murmelo/MrmLastRec.wav").size());
}

TEST_F(GameInterfaceTest, theTakeIsSavedInTheMenuAndInTheChoiceOfTheEffect) {
    putTake();
    EXPECT_TRUE(host.doors->saveSound());
    tick();
    EXPECT_EQ("Save", host.doors->screenName());
    EXPECT_EQ(1, host.doors->savedCount());
    EXPECT_EQ("rec_00000.wav", host.doors->savedName());
    State::setState(G::statePlay, true, true);
    EXPECT_TRUE(host.doors->saveSound());
    tick();
    EXPECT_EQ(2, host.doors->savedCount());
    EXPECT_EQ("rec_00001.wav", host.doors->savedName());
}

TEST_F(GameInterfaceTest, nothingIsSavedWithoutATake) {
    EXPECT_FALSE(host.doors->saveSound());
    EXPECT_EQ("Options", host.doors->screenName());
    EXPECT_EQ(0, host.doors->savedCount());
    EXPECT_EQ("", host.doors->savedName());
}

TEST_F(GameInterfaceTest, aSoundWithoutSamplesIsRefused) {
    EXPECT_FALSE(use({}));
    EXPECT_EQ("Options", host.doors->screenName());
}

TEST_F(GameInterfaceTest, everyOtherScreenRefusesBoth) {
    putTake();
    folders.write("home/Murmelo/MrmLastProc.wav", TestSounds::wav(Samples(400, 5), 8000));
    EXPECT_FALSE(splashSaved);
    EXPECT_FALSE(splashUsed);
    for (State* screen : {G::stateFirstLang, G::statePlaying}) {
        State::setState(screen, true, true);
        putTake();
        EXPECT_FALSE(host.doors->saveSound()) << host.doors->screenName();
        EXPECT_FALSE(use(Samples(10, 1))) << host.doors->screenName();
        EXPECT_EQ(screen, State::currState);
    }
    State::setState(G::statePlay, true, true);
    AudioDev::stopPlay();
    G::setLastPlayedFx(0);
    State::setState(G::stateSave, true, true);
    EXPECT_FALSE(host.doors->saveSound());
    EXPECT_FALSE(use(Samples(10, 1)));
    State::setState(G::stateRecord, true, true);
    EXPECT_FALSE(host.doors->saveSound());
    EXPECT_FALSE(use(Samples(10, 1)));
    State::setState(G::stateRecording, true, true);
    EXPECT_FALSE(host.doors->saveSound());
    EXPECT_FALSE(use(Samples(10, 1)));
    EXPECT_EQ("Recording", host.doors->screenName());
    AudioDev::stopRec();
    MessageAndQuit::enter(MessageAndQuit::kFileError);
    EXPECT_FALSE(host.doors->saveSound());
    EXPECT_FALSE(use(Samples(10, 1)));
    EXPECT_EQ("MessageAndQuit", host.doors->screenName());
}

TEST_F(GameInterfaceTest, aJobRefusesBothUntilItIsDone) {
    ASSERT_TRUE(use(Samples(400, 5)));
    for (int32_t slices = 0; slices < 3; slices++) {
        ASSERT_EQ("Process", host.doors->screenName());
        ASSERT_FALSE(host.doors->saveSound()) << slices;
        ASSERT_FALSE(use(Samples(600, 7))) << slices;
        Orm::canvas->run();
    }
    tick();
    EXPECT_EQ("Play", host.doors->screenName());
    EXPECT_FALSE(hasSaved());
    EXPECT_EQ(TestSounds::kHeaderBytes + 2 * 200,
              folders.read("home/Murmelo/MrmLastRec.wav").size());  // the first one
}

TEST_F(GameInterfaceTest, theHelpTextAndTheLanguageListRefuseBoth) {
    putTake();
    for (int32_t downs = 1; downs <= 2; downs++) {
        State::setState(G::stateOptions, true, true);
        host.doors->navigate(HostKey::kDown);  // from the entry of before
        tick();
        host.doors->navigate(HostKey::kMiddle);
        tick();
        EXPECT_FALSE(host.doors->saveSound()) << downs;
        EXPECT_FALSE(use(Samples(10, 1))) << downs;
        EXPECT_EQ("Options", host.doors->screenName());
        host.doors->navigate(HostKey::kMiddle);
        tick();
    }
    EXPECT_FALSE(hasSaved());
}

TEST_F(GameInterfaceTest, nothingIsTakenOrSavedWhilePausedOrAfterTheEnd) {
    putTake();
    game->AppPause();
    EXPECT_FALSE(host.doors->saveSound());
    EXPECT_FALSE(use(Samples(10, 1)));
    game->AppResume();
    Orm::dispose();
    EXPECT_FALSE(host.doors->saveSound());
    EXPECT_FALSE(use(Samples(10, 1)));
}

TEST_F(GameInterfaceTest, stopIsPressedOnlyWhileARecordingOffersIt) {
    host.ears.setVoice(TestSounds::noise(16000));
    EXPECT_FALSE(host.doors->stopRecording());
    State::setState(G::stateRecord, true, true);
    EXPECT_FALSE(host.doors->stopRecording());
    State::setState(G::stateRecording, true, true);
    EXPECT_FALSE(host.doors->stopRecording());  // nothing was heard yet
    host.pass(800);
    EXPECT_FALSE(host.doors->stopRecording());  // no frame has shown the key yet
    tick();
    EXPECT_TRUE(host.doors->stopRecording());
    EXPECT_EQ("Recording", host.doors->screenName());
    tick();
    EXPECT_EQ("Play", host.doors->screenName());  // the take is cleaned up
    EXPECT_FALSE(host.doors->stopRecording());
}

TEST_F(GameInterfaceTest, stopIsNotPressedWhileAClipPlaysOrTheProgramIsPausedOrHasEnded) {
    putTake();
    folders.write("home/Murmelo/MrmLastProc.wav", TestSounds::wav(Samples(400, 5), 8000));
    State::setState(G::statePlaying, true, true);
    ASSERT_EQ(Str::str_SK_STOP, SkBar::strMsk);
    EXPECT_FALSE(host.doors->stopRecording());
    AudioDev::stopPlay();
    State::setState(G::stateRecord, true, true);
    State::setState(G::stateRecording, true, true);
    SkBar::setStr(Res::Null, Str::str_SK_STOP, Res::Null);
    Orm::paused = true;
    EXPECT_FALSE(host.doors->stopRecording());
    Orm::paused = false;
    Orm::dispose();
    EXPECT_FALSE(host.doors->stopRecording());
}

TEST_F(GameInterfaceTest, thePictureIsTheCanvassOwn) {
    const std::vector<uint8_t> png = host.doors->canvasPng();
    const TestPicture picture = TestPng::read({png.begin(), png.end()});
    EXPECT_EQ(240, picture.w);
    EXPECT_EQ(320, picture.h);
    for (size_t i = 0; i < picture.argb.size(); i++) {
        ASSERT_EQ(Orm::getScreen()->pixels[i] | 0xFF000000U, picture.argb[i]) << i;
    }
}

TEST_F(GameInterfaceTest, displayPixelsAreHalvedAndThePictureBeginsAtRow160) {
    SkBar::setStr(Str::str_SK_YES, Str::str_SK_OK, Str::str_SK_NO);
    State::setState(G::stateOptions, true, true);
    game->OnPointerReleased(159, 160 + 2 * 288);  // canvas 79: the left third, without a label
    tick();
    EXPECT_TRUE(GameInterface::Active);
    game->OnPointerReleased(320, 160 + 2 * 288 - 1);  // canvas row 287: above the bar
    tick();
    EXPECT_TRUE(GameInterface::Active);
    game->OnPointerReleased(320, 160 + 2 * 288);
    tick();
    EXPECT_FALSE(GameInterface::Active);
}

TEST_F(GameInterfaceTest, aFrameIsThePictureDoubledAtRow160WithTheBorderAroundIt) {
    Osp::Graphics::Canvas canvas;
    game->AppPaint(&canvas);
    canvas.Show();
    ASSERT_NE(nullptr, host.frame);
    std::vector<uint16_t> display(480 * 800);
    host.frame->compose(display.data(), 960);
    const auto at = [&](int32_t x, int32_t y) { return display[static_cast<size_t>(y * 480 + x)]; };
    for (const int32_t x : {0, 240, 479}) {
        // 0x10 in each channel is 2 in five bits and 4 in six.
        EXPECT_EQ(0x1082, at(x, 0));
        EXPECT_EQ(0x1082, at(x, 159));
    }
    for (int32_t y = 0; y < 320; y += 7) {
        for (int32_t x = 0; x < 240; x += 11) {
            const uint32_t argb = Orm::getScreen()->get(x, y);
            const auto wanted = static_cast<uint16_t>((argb >> 8 & 0xF800) | (argb >> 5 & 0x07E0) |
                                                      (argb >> 3 & 0x001F));
            for (const int32_t d : {0, 1}) {
                ASSERT_EQ(wanted, at(2 * x + d, 160 + 2 * y)) << x << " " << y;
                ASSERT_EQ(wanted, at(2 * x + d, 161 + 2 * y)) << x << " " << y;
            }
        }
    }
}

TEST_F(GameInterfaceTest, aFrameIsOneTickBeforeItIsPainted) {
    Osp::Graphics::Canvas canvas;
    Orm::schedEvent(Orm::EV_T_KEY_PRESS, Orm::EV_ST_KEY_RSK, nullptr, 0);
    Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 0);
    game->AppPaint(&canvas);
    EXPECT_FALSE(GameInterface::Active);
    ASSERT_NE(nullptr, Orm::firstEvent);
    EXPECT_EQ(nullptr, Orm::firstEvent->next);
}

TEST_F(GameInterfaceTest, aPhoneThatHadItsVoiceBackIsAskedAboutAgain) {
    host.silent = true;
    game->AppPause();
    game->AppResume();
    host.silent = false;
    game->AppPause();
    game->AppResume();
    host.silent = true;
    game->AppPause();
    game->AppResume();
    EXPECT_TRUE(OrmCanvas::showIsSilentPopup);
    EXPECT_TRUE(Orm::isPaused());
}

TEST_F(GameInterfaceTest, aSilentPhoneAtTheResumeIsAskedAboutOnlyOnce) {
    host.silent = true;
    game->AppPause();
    game->AppResume();
    EXPECT_TRUE(OrmCanvas::showIsSilentPopup);
    EXPECT_TRUE(OrmCanvas::silentPopupShown);
    EXPECT_TRUE(Orm::isPaused());
    SkBar::setStr(Str::str_SK_YES, Res::Null, Str::str_SK_NO);  // as a frame does
    game->AppPause();
    game->AppResume();
    EXPECT_TRUE(Orm::isPaused());
    touch(200, 304);
    EXPECT_TRUE(AudioDev::isSilent);
    EXPECT_FALSE(Orm::isPaused());
    EXPECT_EQ(Str::str_SK_SELECT, SkBar::strMsk);  // the menu's own labels were kept
    game->AppPause();
    game->AppResume();
    EXPECT_FALSE(OrmCanvas::showIsSilentPopup);
    EXPECT_FALSE(Orm::isPaused());
    EXPECT_TRUE(AudioDev::isSilent);
}

TEST_F(GameInterfaceTest, aPhoneWithItsVoiceBackTakesQuestionAndAnswerAway) {
    host.silent = true;
    game->AppPause();
    game->AppResume();
    host.silent = false;
    game->AppPause();
    game->AppResume();
    EXPECT_FALSE(OrmCanvas::showIsSilentPopup);
    EXPECT_FALSE(OrmCanvas::silentPopupShown);
    EXPECT_FALSE(Orm::isPaused());
    EXPECT_EQ(Str::str_SK_SELECT, SkBar::strMsk);
    AudioDev::isSilent = true;
    game->AppPause();
    game->AppResume();
    EXPECT_FALSE(AudioDev::isSilent);
}

TEST_F(GameInterfaceTest, aPhoneWithItsVoiceBackShowsTheScreensOwnKeysAgain) {
    const std::vector<uint16_t> before = shownKeys();
    host.silent = true;
    game->AppPause();
    game->AppResume();
    EXPECT_FALSE(before == shownKeys());  // "Yes" and "No"
    host.silent = false;
    game->AppPause();
    game->AppResume();
    EXPECT_TRUE(before == shownKeys());
}

TEST_F(GameInterfaceTest, aPhoneThatTurnsSilentDuringARecordingIsAskedAboutAtTheResume) {
    host.ears.setVoice(TestSounds::noise(16000));
    State::setState(G::stateRecord, true, true);
    State::setState(G::stateRecording, true, true);
    host.silent = true;
    game->AppPause();
    EXPECT_EQ("Options", host.doors->screenName());
    game->AppResume();
    EXPECT_TRUE(OrmCanvas::showIsSilentPopup);
    EXPECT_TRUE(Orm::isPaused());
    SkBar::setStr(Str::str_SK_YES, Res::Null, Str::str_SK_NO);
    touch(40, 304);
    EXPECT_FALSE(OrmCanvas::showIsSilentPopup);
    EXPECT_FALSE(Orm::isPaused());
    EXPECT_EQ(Str::str_SK_QUIT, SkBar::strRsk);
}

TEST_F(GameInterfaceTest, aQuestionRaisedWhileTheProgramRunsPausesItFirst) {
    State::setState(G::statePlay, true, true);
    host.silent = true;
    game->AppResume();
    EXPECT_TRUE(OrmCanvas::showIsSilentPopup);
    EXPECT_TRUE(Orm::isPaused());
    shownKeys();  // a frame sets "Yes" and "No"
    touch(40, 304);
    EXPECT_FALSE(OrmCanvas::showIsSilentPopup);
    EXPECT_FALSE(Orm::isPaused());
    EXPECT_EQ(Str::str_SK_OPTIONS, SkBar::strLsk);
    EXPECT_EQ(Str::str_SK_PLAY, SkBar::strMsk);
    EXPECT_EQ(Str::str_SK_QUIT, SkBar::strRsk);
}

TEST_F(GameInterfaceTest, aQuestionRaisedDuringARecordingEndsItAndKeepsTheMenusKeys) {
    host.ears.setVoice(TestSounds::noise(16000));
    State::setState(G::stateRecord, true, true);
    State::setState(G::stateRecording, true, true);
    SkBar::setStr(Res::Null, Str::str_SK_STOP, Res::Null);
    host.silent = true;
    game->AppResume();
    EXPECT_EQ("Options", host.doors->screenName());
    EXPECT_TRUE(OrmCanvas::showIsSilentPopup);
    EXPECT_TRUE(Orm::isPaused());
    shownKeys();
    touch(200, 304);
    EXPECT_FALSE(Orm::isPaused());
    EXPECT_EQ(Res::Null, SkBar::strLsk);
    EXPECT_EQ(Str::str_SK_SELECT, SkBar::strMsk);
    EXPECT_EQ(Str::str_SK_QUIT, SkBar::strRsk);
}

TEST_F(GameInterfaceTest, handlesNoOtherEvent) {
    EXPECT_EQ(0, game->HandleEvent(nullptr, 1));
}

TEST_F(GameInterfaceTest, afterTheEndTouchesAndFramesDoNothing) {
    game->AppQuit();
    ASSERT_EQ(nullptr, Orm::canvas);
    touch(120, 300);
    game->OnPointerMove(10, 10);
    Osp::Graphics::Canvas canvas;
    game->AppPaint(&canvas);
    canvas.Show();
    std::vector<uint16_t> display(size_t{480} * 800, 1);
    host.frame->compose(display.data(), 960);
    EXPECT_EQ(std::vector<uint16_t>(size_t{480} * 800), display);  // not even the band above
}

TEST_F(GameInterfaceTest, textsOfTheMenuAreItsEntriesAndKeys) {
    const ScreenTexts texts = host.doors->texts();
    EXPECT_EQ("en", texts.language);
    EXPECT_EQ("Options", texts.screen);
    EXPECT_EQ("", texts.title);
    ASSERT_EQ(3U, texts.entries.size());
    EXPECT_EQ("Record", texts.entries[0].text);
    EXPECT_TRUE(texts.entries[0].isFocused);
    EXPECT_FALSE(texts.entries[1].isFocused);
    EXPECT_EQ("", texts.softKeys[0].text);
    EXPECT_EQ("Select", texts.softKeys[1].text);
    EXPECT_EQ("Quit", texts.softKeys[2].text);
    EXPECT_EQ("", texts.message);
    EXPECT_EQ(ScreenTexts::kNoProgress, texts.progressQ10);
}

TEST_F(GameInterfaceTest, aTouchOnTheMiddleOfAnEntryChoosesIt) {
    const ScreenPlace help = host.doors->texts().entries[1].place;
    touch(help.x + help.w / 2, help.y + help.h / 2);
    tick();
    const ScreenTexts texts = host.doors->texts();
    EXPECT_TRUE(texts.entries.empty()) << "the help covers the menu";
    EXPECT_NE("", texts.message);
    EXPECT_EQ("Ok", texts.softKeys[1].text);
    const ScreenPlace ok = texts.softKeys[1].place;
    touch(ok.x + ok.w / 2, ok.y + ok.h / 2);
    tick();
    EXPECT_EQ(3U, host.doors->texts().entries.size());
}

TEST_F(GameInterfaceTest, textsFollowTheLanguage) {
    Res::setCurrLangIndex(1);
    State::setState(G::stateOptions, true, true);
    const ScreenTexts texts = host.doors->texts();
    EXPECT_EQ("de", texts.language);
    EXPECT_EQ("Aufnahme", texts.entries[0].text);
    Res::setCurrLangIndex(0);
}

TEST_F(GameInterfaceTest, textsOfTheChoiceAreTheEffectAndTheArrows) {
    putTake();
    State::setState(G::statePlay, true, true);
    ScreenTexts texts = host.doors->texts();
    EXPECT_EQ("No effect", texts.title);
    ASSERT_EQ(2U, texts.arrows.size());
    const ScreenPlace right = texts.arrows[1].place;
    touch(right.x + right.w / 2, right.y + right.h / 2);
    tick();
    texts = host.doors->texts();
    EXPECT_EQ("Robot", texts.title);
    EXPECT_EQ(1, host.doors->currentEffect());
    EXPECT_TRUE(texts.entries.empty());
    EXPECT_EQ("Play", texts.softKeys[1].text);
}

TEST_F(GameInterfaceTest, textsOfWorkInProgressTellHowFarItIs) {
    use(Samples(160000, 5));
    ScreenTexts texts = host.doors->texts();
    EXPECT_EQ("Process", texts.screen);
    EXPECT_EQ("Please wait", texts.caption);
    EXPECT_EQ(0, texts.progressQ10);
    Orm::canvas->run();
    Orm::canvas->run();
    texts = host.doors->texts();
    EXPECT_GT(texts.progressQ10, 0);
    EXPECT_LT(texts.progressQ10, 1024);
    tick();
    EXPECT_EQ(ScreenTexts::kNoProgress, host.doors->texts().progressQ10);
}

TEST_F(GameInterfaceTest, theQuestionAboutSilenceHidesTheMenuFromTheTexts) {
    host.silent = true;
    SilentQuestion::raise();
    Osp::Graphics::Canvas canvas;
    game->AppPaint(&canvas);
    const ScreenTexts texts = host.doors->texts();
    EXPECT_TRUE(texts.isQuestion);
    EXPECT_NE("", texts.message);
    EXPECT_TRUE(texts.entries.empty());
    EXPECT_EQ("Yes", texts.softKeys[0].text);
    EXPECT_EQ("No", texts.softKeys[2].text);
}

TEST_F(GameInterfaceTest, thereAreNoTextsAfterTheEnd) {
    game->AppQuit();
    EXPECT_EQ("", host.doors->texts().screen);
    EXPECT_EQ("", host.doors->texts().language);
}

TEST_F(GameInterfaceTest, aHeadTurnsToItsEffectAsTheArrowsDo) {
    use(Samples(400, 5));
    tick();
    ASSERT_EQ("Play", host.doors->screenName());
    for (const int32_t effect : {5, 7, 0, 0, 3}) {
        EXPECT_TRUE(host.doors->showEffect(effect));
        EXPECT_EQ(effect, host.doors->currentEffect());
    }
    const std::vector<uint8_t> byHead = settledPicture();
    host.doors->navigate(HostKey::kLeft);
    tick();
    host.doors->navigate(HostKey::kRight);
    tick();
    EXPECT_EQ(3, host.doors->currentEffect());
    EXPECT_EQ(settledPicture(), byHead);
}

TEST_F(GameInterfaceTest, aHeadTurnsToItsEffectInTheChoiceOfTheEffectOnly) {
    EXPECT_FALSE(host.doors->showEffect(1));
    use(Samples(400, 5));
    EXPECT_FALSE(host.doors->showEffect(1));  // the take is being worked on
    tick();
    EXPECT_FALSE(host.doors->showEffect(-1));
    EXPECT_FALSE(host.doors->showEffect(8));
    EXPECT_EQ(0, host.doors->currentEffect());
    host.silent = true;
    SilentQuestion::resume();
    EXPECT_FALSE(host.doors->showEffect(1));
}

TEST_F(GameInterfaceTest, whatIsOfferedIsWhatTheDoorsDo) {
    EXPECT_TRUE(host.doors->canUseSound());
    EXPECT_FALSE(host.doors->canSave());
    use(Samples(400, 5));
    EXPECT_FALSE(host.doors->canUseSound());
    EXPECT_FALSE(host.doors->canSave());
    tick();
    EXPECT_TRUE(host.doors->canUseSound());
    EXPECT_TRUE(host.doors->canSave());
}

TEST_F(GameInterfaceTest, theEffectsAreNamedInTheProgramsLanguage) {
    EXPECT_EQ("Backwards", host.doors->effectName(2));
    Res::setCurrLangIndex(1);
    EXPECT_EQ("Rückwärts", host.doors->effectName(2));
    EXPECT_EQ("", host.doors->effectName(-1));
    EXPECT_EQ("", host.doors->effectName(8));
}
