// SPDX-License-Identifier: MIT
// The audio device records and plays, and stays usable after every failure of the phone.
#include "ArrFunc.h"
#include "AudioDev.h"
#include "AudioDevListeners.h"
#include "Event.h"
#include "Orm.h"
#include "OspIo.h"
#include "SoundHost.h"
#include "TestFolders.h"
#include "TestSounds.h"
#include "WavHeader.h"

#include <gtest/gtest.h>

using Osp::Base::ByteBuffer;
using Osp::Base::String;
using Samples = TestSounds::Samples;

namespace {

class AudioDevTest : public testing::Test {
protected:
    void SetUp() override {
        host.mapHome(folders);
        host.ears.setVoice(voice);
        Orm::paused = false;
        Orm::firstEvent = nullptr;
        AudioDev::static_ctor();
    }

    void TearDown() override {
        AudioDev::static_dtor();
        dropEvents();
    }

    static void dropEvents() {
        while (Orm::firstEvent != nullptr) {
            Event* head = Orm::firstEvent;
            Orm::firstEvent = head->next;
            delete head;
        }
    }

    void record(int32_t ms) {
        ASSERT_TRUE(AudioDev::initRec(&takePath));
        ASSERT_TRUE(AudioDev::startRec());
        host.pass(ms);
    }

    std::string take() { return folders.read("home/take.wav"); }

    std::string takeOf(uint32_t count) {
        return TestSounds::header(count, 16000) +
               TestSounds::bytes(TestSounds::part(voice, 0, count));
    }

    TestFolders folders;
    SoundHost host;
    Samples voice = TestSounds::noise(21 * 16000);
    String takePath = "/Home/take.wav";
};

class AudioDevPlayTest : public AudioDevTest {
protected:
    void SetUp() override {
        AudioDevTest::SetUp();
        folders.write("home/clip.wav", TestSounds::wav(clip, 8000));
        EXPECT_EQ("", host.voice.openFile(folders.path("speaker.wav")));
    }

    bool play() { return AudioDev::startPlay(&clipPath, &endEvent); }

    Samples played() {
        EXPECT_EQ("", host.voice.finishFile());
        return TestSounds::samplesOf(folders.read("speaker.wav"));
    }

    static Samples at(const Samples& samples, int32_t volume) {
        Samples scaled;
        for (const int16_t sample : samples) {
            scaled.push_back(static_cast<int16_t>(sample * volume / 100));
        }
        return scaled;
    }

    Samples clip = TestSounds::noise(8000, 7);  // one second
    String clipPath = "/Home/clip.wav";
    String endEvent = "EndOfMedia";
};

}  // namespace

TEST_F(AudioDevTest, startsReadyAtHalfVolumeWithNothingRunning) {
    EXPECT_EQ(1, AudioDev::state);
    EXPECT_EQ(50, AudioDev::volumeLevel);
    EXPECT_EQ(0, AudioDev::recordLength);
    EXPECT_EQ(nullptr, AudioDev::pPlayer);
    EXPECT_EQ(nullptr, AudioDev::pRecorder);
    EXPECT_EQ(nullptr, AudioDev::record);
    EXPECT_NE(nullptr, AudioDev::pPlayerListener);
    EXPECT_NE(nullptr, AudioDev::pRecorderListener);
    EXPECT_FALSE(AudioDev::isSilent);
    EXPECT_EQ(String(""), *AudioDev::msg);
}

TEST_F(AudioDevTest, preparingLeavesAFileOfFortyFourZeros) {
    folders.write("home/take.wav", "an older and much longer take of another day, all of it");
    EXPECT_TRUE(AudioDev::initRec(&takePath));
    EXPECT_EQ(2, AudioDev::state);
    EXPECT_EQ(WavHeader::kBytes, length(AudioDev::recordFileHeader));
    EXPECT_EQ(24000, AudioDev::__pByteBuffer1->GetCapacity());
    EXPECT_EQ(24000, AudioDev::__pByteBuffer3->GetCapacity());
    EXPECT_EQ(std::string(TestSounds::kHeaderBytes, '\0'), take());
}

TEST_F(AudioDevTest, preparingTwiceIsRefused) {
    EXPECT_TRUE(AudioDev::initRec(&takePath));
    EXPECT_FALSE(AudioDev::initRec(&takePath));
    EXPECT_EQ(2, AudioDev::state);
}

TEST_F(AudioDevTest, eachFailureWhilePreparingLeavesTheDeviceReadyForTheNextTry) {
    const std::pair<const char*, int32_t> failures[] = {
        {"AudioIn.Construct", 1}, {"AudioIn.Prepare", 1}, {"AudioIn.AddBuffer", 3},
        {"File.Construct", 1},    {"File.Write", 1},
    };
    for (const auto& [operation, n] : failures) {
        host.failNth(operation, n);
        EXPECT_FALSE(AudioDev::initRec(&takePath)) << operation;
        EXPECT_EQ(1, AudioDev::state) << operation;
        EXPECT_EQ(nullptr, AudioDev::record) << operation;
        EXPECT_TRUE(AudioDev::initRec(&takePath)) << operation;
        EXPECT_TRUE(AudioDev::stopRec()) << operation;
    }
}

TEST_F(AudioDevTest, aTakeThatCannotBeOpenedIsAFailure) {
    String nowhere = "/Home/missing/take.wav";
    EXPECT_FALSE(AudioDev::initRec(&nowhere));
    EXPECT_EQ(1, AudioDev::state);
}

TEST_F(AudioDevTest, aPhoneWithoutAMicrophoneCannotPrepare) {
    host.hasDevices = false;
    EXPECT_FALSE(AudioDev::initRec(&takePath));
    EXPECT_EQ(1, AudioDev::state);
    EXPECT_FALSE(folders.has("home/take.wav"));
}

TEST_F(AudioDevTest, theFirstTwoBuffersMayBeRefusedAndTheThirdStillRecords) {
    for (const int32_t refused : {1, 2}) {
        host.failNth("AudioIn.AddBuffer", refused);
        record(3000);
        EXPECT_TRUE(AudioDev::stopRec());
        EXPECT_EQ(takeOf(48000), take());
    }
}

TEST_F(AudioDevTest, recordingStartsOnlyWhenPrepared) {
    EXPECT_FALSE(AudioDev::startRec());
    EXPECT_EQ(1, AudioDev::state);
    record(0);
    EXPECT_FALSE(AudioDev::startRec());
    EXPECT_EQ(3, AudioDev::state);
}

TEST_F(AudioDevTest, aRecorderThatWillNotStartLeavesTheRecordingPrepared) {
    AudioDev::initRec(&takePath);
    host.failNth("AudioIn.Start", 1);
    EXPECT_FALSE(AudioDev::startRec());
    EXPECT_EQ(2, AudioDev::state);
    EXPECT_TRUE(AudioDev::startRec());
}

TEST_F(AudioDevTest, withoutARecorderStartingAndStoppingOnlyChangeTheState) {
    AudioDev::initRec(&takePath);
    delete AudioDev::pRecorder;
    AudioDev::pRecorder = nullptr;
    EXPECT_TRUE(AudioDev::startRec());
    EXPECT_EQ(3, AudioDev::state);
    EXPECT_TRUE(AudioDev::stopRec());
    EXPECT_EQ(1, AudioDev::state);
    EXPECT_EQ(std::string(TestSounds::kHeaderBytes, '\0'), take());
}

TEST_F(AudioDevTest, threeFilledBuffersAre36000Samples) {
    record(2250);
    EXPECT_EQ(72000, AudioDev::recordLength);
    EXPECT_TRUE(AudioDev::stopRec());
    EXPECT_EQ(1, AudioDev::state);
    EXPECT_EQ(nullptr, AudioDev::pRecorder);
    EXPECT_EQ(takeOf(36000), take());
}

TEST_F(AudioDevTest, samplesAreCountedFromTheFirstFilledBufferOn) {
    record(749);
    EXPECT_EQ(0, AudioDev::recordLength);
    host.pass(1);
    EXPECT_EQ(24000, AudioDev::recordLength);
}

TEST_F(AudioDevTest, theLastWordIsInTheTake) {
    record(1001);
    EXPECT_EQ(24000, AudioDev::recordLength);
    EXPECT_TRUE(AudioDev::stopRec());
    EXPECT_EQ(32032, AudioDev::recordLength);
    EXPECT_EQ(takeOf(16016), take());
}

TEST_F(AudioDevTest, twentySecondsLoseAndDoubleNothing) {
    record(20000);
    EXPECT_TRUE(AudioDev::stopRec());
    EXPECT_EQ(takeOf(320000), take());
}

TEST_F(AudioDevTest, aProgramThatWasBusyForLongLosesNothing) {
    record(0);
    host.nowMs += 5000;  // longer than the three buffers last
    EXPECT_TRUE(AudioDev::stopRec());
    EXPECT_EQ(takeOf(80000), take());
}

TEST_F(AudioDevTest, aTakeThatDoesNotFitOnTheDiskKeepsWhatWasWrittenAndTheNextIsWholeAgain) {
    record(0);
    host.failNth("File.Write", 2);  // of 0.75 seconds each
    host.pass(2000);
    EXPECT_TRUE(AudioDev::stopRec());
    EXPECT_EQ(64000, AudioDev::recordLength);  // the header tells what was heard
    EXPECT_EQ(TestSounds::header(32000, 16000), take().substr(0, TestSounds::kHeaderBytes));
    EXPECT_EQ(TestSounds::kHeaderBytes + 24000, take().size());  // up to the buffer that was lost
    record(1000);
    EXPECT_TRUE(AudioDev::stopRec());
    EXPECT_EQ(takeOf(16000), take());
}

TEST_F(AudioDevTest, aTakeEndsWhereABufferCouldNotBeWrittenAndHasNoGap) {
    for (const bool early : {false, true}) {
        ASSERT_TRUE(AudioDev::initRec(&takePath));
        ASSERT_TRUE(AudioDev::startRec());
        host.failNth("File.Write", early ? 1 : 2);
        host.pass(4 * 750);  // after the lost one there is room again
        EXPECT_TRUE(AudioDev::stopRec());
        EXPECT_EQ(4 * 24000, AudioDev::recordLength);  // all that came counts as received
        const Samples whole = early ? Samples{} : TestSounds::part(voice, 0, 12000);
        EXPECT_EQ(TestSounds::header(48000, 16000) + TestSounds::bytes(whole), take());
    }
    record(750);  // the next take is whole
    EXPECT_TRUE(AudioDev::stopRec());
    EXPECT_EQ(takeOf(12000), take());
}

TEST_F(AudioDevTest, eachRecordingStartsFromItsBeginning) {
    record(2000);
    AudioDev::stopRec();
    record(100);
    AudioDev::stopRec();
    EXPECT_EQ(3200, AudioDev::recordLength);
    EXPECT_EQ(takeOf(1600), take());
}

TEST_F(AudioDevTest, stoppingBeforeTheStartLeavesAnEmptyTake) {
    AudioDev::initRec(&takePath);
    EXPECT_TRUE(AudioDev::stopRec());
    EXPECT_EQ(TestSounds::header(0, 16000), take());
}

TEST_F(AudioDevTest, stoppingWhenNothingRecordsIsRefused) {
    EXPECT_FALSE(AudioDev::stopRec());
    record(10);
    EXPECT_TRUE(AudioDev::stopRec());
    EXPECT_FALSE(AudioDev::stopRec());
}

TEST_F(AudioDevTest, itsStatesHaveTheNumbersOneToFour) {
    EXPECT_EQ(1, AudioDev::state);
    ASSERT_TRUE(AudioDev::initRec(&takePath));
    EXPECT_EQ(2, AudioDev::state);
    ASSERT_TRUE(AudioDev::startRec());
    EXPECT_EQ(3, AudioDev::state);
    ASSERT_TRUE(AudioDev::stopRec());
    EXPECT_EQ(1, AudioDev::state);
    String event("EndOfMedia");
    ASSERT_TRUE(AudioDev::startPlay(&takePath, &event));
    EXPECT_EQ(4, AudioDev::state);
    ASSERT_TRUE(AudioDev::stopPlay());
    EXPECT_EQ(1, AudioDev::state);
}

TEST_F(AudioDevTest, aLateBufferMendsTheHeaderAndKeepsTheStart) {
    record(750);
    AudioDev::pRecorder->Stop();  // like a device that still has to deliver its last buffers
    ByteBuffer late;
    late.Construct(4);
    for (uint32_t count = 12002; count <= 12004; count += 2) {
        late.Clear();
        const Samples two = TestSounds::part(voice, count - 2, 2);
        std::copy_n(reinterpret_cast<const unsigned char*>(two.data()), 4, late.GetPointer());
        AudioDev::pRecorderListener->OnAudioInBufferIsFilled(&late);
        EXPECT_EQ(takeOf(count), take());
    }
    EXPECT_TRUE(AudioDev::stopRec());
    EXPECT_EQ(takeOf(12004), take());
}

TEST_F(AudioDevTest, aLateBufferAfterTheReleaseMendsTheHeaderToo) {
    record(750);
    AudioDev::pRecorder->Stop();
    AudioDev::pRecorder->Unprepare();
    ByteBuffer late;
    late.Construct(2);
    AudioDev::pRecorderListener->OnAudioInBufferIsFilled(&late);
    EXPECT_EQ(TestSounds::header(12001, 16000), take().substr(0, TestSounds::kHeaderBytes));
    EXPECT_EQ(24002, AudioDev::recordLength);
}

TEST_F(AudioDevTest, aBufferOfAnOddSizeCountsWholeSamples) {
    record(750);
    AudioDev::pRecorder->Stop();
    ByteBuffer late;
    late.Construct(3);
    AudioDev::pRecorderListener->OnAudioInBufferIsFilled(&late);
    EXPECT_EQ(24003, AudioDev::recordLength);
    EXPECT_EQ(TestSounds::header(12001, 16000), take().substr(0, TestSounds::kHeaderBytes));
}

TEST_F(AudioDevTest, aHeaderThatCannotBePlacedIsNotWrittenIntoTheSound) {
    record(750);
    host.failNth("File.Seek", 1);
    EXPECT_TRUE(AudioDev::stopRec());
    EXPECT_EQ(std::string(TestSounds::kHeaderBytes, '\0') +
                  TestSounds::bytes(TestSounds::part(voice, 0, 12000)),
              take());
}

TEST_F(AudioDevTest, stoppingWhilePausedLeavesTheHeaderZero) {
    record(800);
    Orm::paused = true;
    EXPECT_TRUE(AudioDev::stopRec());
    EXPECT_EQ(1, AudioDev::state);
    EXPECT_EQ(std::string(TestSounds::kHeaderBytes, '\0'),
              take().substr(0, TestSounds::kHeaderBytes));
    // The rest of the voice is not fetched any more.
    EXPECT_EQ(TestSounds::kHeaderBytes + 24000U, take().size());
    EXPECT_EQ(nullptr, AudioDev::record);
}

TEST_F(AudioDevTest, filledBuffersArePassedOverWhilePaused) {
    record(0);
    Orm::paused = true;
    host.pass(3000);
    EXPECT_EQ(0, AudioDev::recordLength);
    EXPECT_EQ(TestSounds::kHeaderBytes, take().size());
}

TEST_F(AudioDevTest, filledBuffersArePassedOverWithoutARecorder) {
    ByteBuffer buffer;
    buffer.Construct(100);
    AudioDev::pRecorderListener->OnAudioInBufferIsFilled(&buffer);
    EXPECT_EQ(0, AudioDev::recordLength);
}

TEST_F(AudioDevTest, aBufferWithoutAFileIsOnlyCounted) {
    ByteBuffer buffer;
    buffer.Construct(100);
    AudioDev::ConsumeBuffer(&buffer);
    EXPECT_EQ(100, AudioDev::recordLength);
}

TEST_F(AudioDevTest, aRecorderThatWillNotStopIsSilencedAndItsFileLeftUnfinished) {
    record(750);
    host.failNth("AudioIn.Stop", 1);
    EXPECT_TRUE(AudioDev::stopRec());
    EXPECT_EQ(1, AudioDev::state);
    EXPECT_EQ(std::string(TestSounds::kHeaderBytes, '\0'),
              take().substr(0, TestSounds::kHeaderBytes));
    host.pass(3000);
    EXPECT_EQ(24000, AudioDev::recordLength);
    record(750);
    EXPECT_TRUE(AudioDev::stopRec());
    EXPECT_EQ(takeOf(12000), take());
}

TEST_F(AudioDevTest, aRecorderThatStopsButIsNotReleasedFinishesItsFile) {
    record(750);
    host.failNth("AudioIn.Unprepare", 1);
    EXPECT_TRUE(AudioDev::stopRec());
    EXPECT_EQ(takeOf(12000), take());
}

TEST_F(AudioDevTest, aRecorderThatWillNotResetIsGoneAllTheSame) {
    record(750);
    Orm::paused = true;
    host.failNth("AudioIn.Reset", 1);
    EXPECT_TRUE(AudioDev::stopRec());
    EXPECT_EQ(nullptr, AudioDev::pRecorder);
    EXPECT_EQ(std::string(TestSounds::kHeaderBytes, '\0'),
              take().substr(0, TestSounds::kHeaderBytes));
    Orm::paused = false;
    host.pass(3000);
    EXPECT_EQ(24000, AudioDev::recordLength);
}

TEST_F(AudioDevTest, aPreparedRecorderThatIsNotReleasedLeavesTheFileToTheNextRecording) {
    AudioDev::initRec(&takePath);
    host.failNth("AudioIn.Unprepare", 1);
    EXPECT_TRUE(AudioDev::stopRec());
    EXPECT_NE(nullptr, AudioDev::record);
    record(750);
    EXPECT_TRUE(AudioDev::stopRec());
    EXPECT_EQ(takeOf(12000), take());
}

TEST_F(AudioDevTest, theEndOfTheProgramReleasesTheCurrentRecording) {
    record(800);
    AudioDev::static_dtor();
    host.pass(3000);  // no listener is called
    EXPECT_EQ(nullptr, AudioDev::pRecorder);
    EXPECT_EQ(nullptr, AudioDev::record);
    EXPECT_EQ(nullptr, AudioDev::recordFileHeader);
    EXPECT_EQ(nullptr, AudioDev::msg);
    EXPECT_EQ(TestSounds::kHeaderBytes + 24000U, take().size());
    AudioDev::static_ctor();
}

TEST_F(AudioDevPlayTest, playsToTheEndAndThenSchedulesTheEvent) {
    EXPECT_TRUE(play());
    EXPECT_EQ(4, AudioDev::state);
    host.pass(999);
    EXPECT_EQ(nullptr, Orm::firstEvent);
    host.pass(1);
    ASSERT_NE(nullptr, Orm::firstEvent);
    EXPECT_EQ(&endEvent, Orm::firstEvent->type);
    EXPECT_EQ(1000, Orm::firstEvent->time);
    EXPECT_EQ(4, AudioDev::state);
    EXPECT_EQ(at(clip, 50), played());
}

TEST_F(AudioDevPlayTest, stoppingAfterTheEndOnlyReturnsToReady) {
    play();
    host.pass(1000);
    host.failNth("Player.Stop", 1);
    EXPECT_TRUE(AudioDev::stopPlay());
    EXPECT_EQ(1, AudioDev::state);
    EXPECT_NE(nullptr, AudioDev::pPlayer);
    EXPECT_TRUE(host.fails("Player.Stop"));  // was not called before
}

TEST_F(AudioDevPlayTest, stoppingInTheMiddleIsSilentAtOnceAndSchedulesNothing) {
    play();
    host.pass(250);
    EXPECT_TRUE(AudioDev::stopPlay());
    EXPECT_EQ(1, AudioDev::state);
    EXPECT_EQ(nullptr, AudioDev::pPlayer);
    host.pass(2000);
    EXPECT_EQ(nullptr, Orm::firstEvent);
    EXPECT_EQ(at(TestSounds::part(clip, 0, 2000), 50), played());
}

TEST_F(AudioDevPlayTest, aPausedPlayerIsStoppedToo) {
    play();
    host.pass(100);
    AudioDev::pPlayer->Pause();
    EXPECT_TRUE(AudioDev::stopPlay());
    EXPECT_EQ(nullptr, AudioDev::pPlayer);
}

TEST_F(AudioDevPlayTest, aPlayerThatWillNotStopPlaysOnButTheDeviceIsReady) {
    play();
    host.failNth("Player.Stop", 1);
    EXPECT_TRUE(AudioDev::stopPlay());
    EXPECT_EQ(1, AudioDev::state);
    EXPECT_NE(nullptr, AudioDev::pPlayer);
    EXPECT_TRUE(play());  // the old player is deleted first
}

TEST_F(AudioDevPlayTest, playingWhileSomethingRunsIsRefusedWithAMessage) {
    AudioDev::initRec(&takePath);
    EXPECT_FALSE(play());
    EXPECT_EQ(String("NOT_STATE_READY"), *AudioDev::msg);
    EXPECT_EQ(2, AudioDev::state);
    AudioDev::startRec();
    EXPECT_FALSE(play());
    EXPECT_EQ(3, AudioDev::state);
    AudioDev::stopRec();
    play();
    EXPECT_FALSE(play());
    EXPECT_EQ(4, AudioDev::state);
    EXPECT_FALSE(AudioDev::initRec(&takePath));
}

TEST_F(AudioDevPlayTest, eachFailureWhileStartingKeepsThePlayerUntilTheNextTry) {
    for (const char* operation :
         {"Player.Construct", "Player.OpenFile", "Player.SetVolume", "Player.Play"}) {
        host.failNth(operation, 1);
        EXPECT_FALSE(play()) << operation;
        EXPECT_EQ(1, AudioDev::state) << operation;
        EXPECT_NE(nullptr, AudioDev::pPlayer) << operation;
        EXPECT_EQ(String(""), *AudioDev::msg) << operation;
        EXPECT_EQ(nullptr, AudioDev::endOfMediaEventType) << operation;
    }
    EXPECT_TRUE(play());
}

TEST_F(AudioDevPlayTest, aPhoneWithoutASpeakerCannotPlay) {
    host.hasDevices = false;
    EXPECT_FALSE(play());
    EXPECT_EQ(1, AudioDev::state);
}

TEST_F(AudioDevPlayTest, aTakeThatAPauseHasInterruptedIsRefused) {
    folders.write("home/clip.wav", std::string(52, '\0'));
    EXPECT_FALSE(play());
}

TEST_F(AudioDevPlayTest, stoppingWhenNothingPlaysIsRefused) {
    EXPECT_FALSE(AudioDev::stopPlay());
}

TEST_F(AudioDevPlayTest, theVolumeGoesFromNothingToNinety) {
    for (int32_t i = 0; i < 9; i++) {
        AudioDev::changeVolume(1);
    }
    EXPECT_EQ(90, AudioDev::volumeLevel);
    AudioDev::changeVolume(0);  // everything that is not negative is up
    EXPECT_EQ(90, AudioDev::volumeLevel);
    AudioDev::changeVolume(-1);
    EXPECT_EQ(80, AudioDev::volumeLevel);
    for (int32_t i = 0; i < 9; i++) {
        AudioDev::changeVolume(-2);
    }
    EXPECT_EQ(0, AudioDev::volumeLevel);
    AudioDev::changeVolume(0);
    EXPECT_EQ(10, AudioDev::volumeLevel);
}

TEST_F(AudioDevPlayTest, theVolumeIsHeardAtOnce) {
    play();
    host.pass(500);
    AudioDev::changeVolume(-1);
    host.pass(500);
    Samples expected = at(TestSounds::part(clip, 0, 4000), 50);
    const Samples quieter = at(TestSounds::part(clip, 4000, 4000), 40);
    expected.insert(expected.end(), quieter.begin(), quieter.end());
    EXPECT_EQ(expected, played());
}

TEST_F(AudioDevPlayTest, aSilentPhonePlaysWithoutASoundAndStillEnds) {
    AudioDev::isSilent = true;
    play();
    host.pass(500);
    host.failNth("Player.SetVolume", 1);
    AudioDev::changeVolume(1);
    EXPECT_EQ(60, AudioDev::volumeLevel);
    EXPECT_TRUE(host.fails("Player.SetVolume"));  // was not called before
    host.pass(500);
    EXPECT_NE(nullptr, Orm::firstEvent);
    EXPECT_EQ(Samples(8000, 0), played());
}

TEST_F(AudioDevPlayTest, thePlayerIsClosedWhenOpeningOrPlayingFailsLater) {
    play();
    AudioDev::pPlayerListener->OnPlayerOpened(E_SUCCESS);
    EXPECT_EQ(Osp::Media::PLAYER_STATE_PLAYING, AudioDev::pPlayer->GetState());
    AudioDev::pPlayerListener->OnPlayerOpened(E_FAILURE);
    EXPECT_EQ(Osp::Media::PLAYER_STATE_CLOSED, AudioDev::pPlayer->GetState());
    EXPECT_TRUE(AudioDev::stopPlay());
    play();
    AudioDev::pPlayerListener->OnPlayerErrorOccurred(Osp::Media::PLAYER_ERROR_DEVICE_FAILED);
    EXPECT_EQ(Osp::Media::PLAYER_STATE_CLOSED, AudioDev::pPlayer->GetState());
    EXPECT_EQ(4, AudioDev::state);
    host.pass(2000);
    EXPECT_EQ(nullptr, Orm::firstEvent);
}

TEST_F(AudioDevPlayTest, whatThePhoneAlsoTellsChangesNothing) {
    play();
    AudioDev::pPlayerListener->OnPlayerBuffering(50);
    AudioDev::pPlayerListener->OnPlayerInterrupted();
    AudioDev::pPlayerListener->OnPlayerReleased();
    AudioDev::pPlayerListener->OnPlayerSeekCompleted(E_SUCCESS);
    AudioDev::pRecorderListener->OnAudioInErrorOccurred(Osp::Media::AUDIOIN_ERROR_DEVICE_FAILED);
    AudioDev::pRecorderListener->OnAudioInInterrupted();
    AudioDev::pRecorderListener->OnAudioInReleased();
    EXPECT_EQ(4, AudioDev::state);
    host.pass(1000);
    EXPECT_NE(nullptr, Orm::firstEvent);
}

TEST_F(AudioDevPlayTest, theEndOfTheProgramReleasesTheCurrentPlayback) {
    play();
    AudioDev::static_dtor();
    EXPECT_EQ(nullptr, AudioDev::pPlayer);
    host.pass(2000);
    EXPECT_EQ(nullptr, Orm::firstEvent);
    AudioDev::static_ctor();
}

TEST_F(AudioDevPlayTest, aTakeIsHeardAsItWasSpoken) {
    record(1000);
    AudioDev::stopRec();
    EXPECT_TRUE(AudioDev::startPlay(&takePath, &endEvent));
    host.pass(999);
    EXPECT_EQ(nullptr, Orm::firstEvent);
    host.pass(1);
    EXPECT_NE(nullptr, Orm::firstEvent);
    EXPECT_EQ(8000U, played().size());  // the speaker's file is at 8000 Hz
}
