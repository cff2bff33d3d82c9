// SPDX-License-Identifier: MIT
// The phone's recorder and player deliver, end and fail as their header says.
#include "FullDisk.h"
#include "OspIo.h"
#include "OspMedia.h"
#include "SoundHost.h"
#include "TestFolders.h"
#include "TestSounds.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

using Osp::Base::ByteBuffer;
using Osp::Media::AudioIn;
using Osp::Media::Player;
using Samples = TestSounds::Samples;

namespace {

class Ear : public Osp::Media::IAudioInEventListener {
public:
    void OnAudioInBufferIsFilled(ByteBuffer* buffer) override {
        buffers.push_back(buffer);
        sizes.push_back(buffer->GetLimit());
        const auto* samples = reinterpret_cast<const int16_t*>(buffer->GetPointer());
        heard.insert(heard.end(), samples, samples + buffer->GetLimit() / 2);
        if (onFilled) {
            onFilled();
        }
    }

    void OnAudioInErrorOccurred(Osp::Media::AudioInErrorReason) override {
        sizesAtError.push_back(static_cast<int32_t>(sizes.size()));
    }

    void OnAudioInInterrupted() override {}

    void OnAudioInReleased() override {}

    std::vector<ByteBuffer*> buffers;
    std::vector<int32_t> sizes;
    std::vector<int32_t> sizesAtError;  // how many buffers had come before each error
    Samples heard;
    std::function<void()> onFilled;
};

class AudioInTest : public testing::Test {
protected:
    AudioInTest() {
        host.ears.setVoice(voice);
        first.Construct(3200);  // 100 ms each
        second.Construct(3200);
    }

    static result prepare(AudioIn& in) {
        return in.Prepare(Osp::Media::AUDIO_INPUT_DEVICE_MIC, Osp::Media::AUDIO_TYPE_PCM_S16_LE,
                          Osp::Media::AUDIO_CHANNEL_TYPE_MONO, 16000);
    }

    void start(AudioIn& in) {
        ASSERT_EQ(E_SUCCESS, in.Construct(ear));
        ASSERT_EQ(E_SUCCESS, prepare(in));
        ASSERT_EQ(E_SUCCESS, in.AddBuffer(&first));
        ASSERT_EQ(E_SUCCESS, in.AddBuffer(&second));
        ASSERT_EQ(E_SUCCESS, in.Start());
    }

    SoundHost host;
    Samples voice = TestSounds::noise(32000);
    Ear ear;
    ByteBuffer first;
    ByteBuffer second;
};

/// Notes when it is asked for and when it is given back.
class NotingEars : public FileMicrophone {
public:
    using FileMicrophone::FileMicrophone;

    void prepare() override { notes += "prepared "; }

    void release() override { notes += "released "; }

    std::string notes;
};

class NotingHost : public SoundHost {
public:
    HostMicrophone* microphone() override { return &notingEars; }

    NotingEars notingEars{[this] { return nowMs; }};
};

class End : public Osp::Media::IPlayerEventListener {
public:
    void OnPlayerOpened(result) override { opened++; }

    void OnPlayerEndOfClip() override {
        ends++;
        if (onEnd) {
            onEnd();
        }
    }

    void OnPlayerBuffering(int32_t) override {}

    void OnPlayerErrorOccurred(Osp::Media::PlayerErrorReason) override {
        errors++;
        endsAtError = ends;
        if (onError) {
            onError();
        }
    }

    void OnPlayerInterrupted() override {}

    void OnPlayerReleased() override {}

    void OnPlayerSeekCompleted(result) override {}

    int32_t ends = 0;
    int32_t errors = 0;
    int32_t endsAtError = -1;
    int32_t opened = 0;
    std::function<void()> onEnd;
    std::function<void()> onError;
};

class PlayerTest : public testing::Test {
protected:
    PlayerTest() {
        host.mapHome(folders);
        folders.write("home/clip.wav", TestSounds::wav(clip, 8000));
        EXPECT_EQ("", host.voice.openFile(folders.path("speaker.wav")));
    }

    result open(const std::string& content) {
        folders.write("home/other.wav", content);
        Player player;
        player.Construct(end, nullptr);
        return player.OpenFile("/Home/other.wav", false);
    }

    void start(Player& player) {
        ASSERT_EQ(E_SUCCESS, player.Construct(end, nullptr));
        ASSERT_EQ(E_SUCCESS, player.OpenFile("/Home/clip.wav", false));
        ASSERT_EQ(E_SUCCESS, player.Play());
    }

    Samples played() {
        EXPECT_EQ("", host.voice.finishFile());
        return TestSounds::samplesOf(folders.read("speaker.wav"));
    }

    TestFolders folders;
    SoundHost host;
    End end;
    Samples clip = TestSounds::noise(8000);
};

}  // namespace

TEST(AudioInMicrophone, isAskedForOnceAndReleasedOnce) {
    NotingHost host;
    Ear ear;
    ByteBuffer buffer;
    buffer.Construct(3200);
    {
        AudioIn in;
        in.Construct(ear);
        in.Prepare(Osp::Media::AUDIO_INPUT_DEVICE_MIC, Osp::Media::AUDIO_TYPE_PCM_S16_LE,
                   Osp::Media::AUDIO_CHANNEL_TYPE_MONO, 16000);
        EXPECT_EQ("prepared ", host.notingEars.notes);
        in.AddBuffer(&buffer);
        in.Start();
        in.Stop();
        EXPECT_EQ("prepared ", host.notingEars.notes);
        in.Unprepare();
        EXPECT_EQ("prepared released ", host.notingEars.notes);
    }
    EXPECT_EQ("prepared released ", host.notingEars.notes);
}

TEST(AudioInMicrophone, isReleasedByARecorderThatIsDeleted) {
    NotingHost host;
    Ear ear;
    {
        AudioIn in;
        in.Construct(ear);
        in.Prepare(Osp::Media::AUDIO_INPUT_DEVICE_MIC, Osp::Media::AUDIO_TYPE_PCM_S16_LE,
                   Osp::Media::AUDIO_CHANNEL_TYPE_MONO, 16000);
        in.Start();
    }
    EXPECT_EQ("prepared released ", host.notingEars.notes);
}

TEST_F(AudioInTest, fillsTheBuffersInTheirOrderAndInTime) {
    AudioIn in;
    start(in);
    EXPECT_EQ(Osp::Media::AUDIOIN_STATE_RECORDING, in.GetState());
    host.pass(99);
    EXPECT_TRUE(ear.buffers.empty());
    host.pass(101);
    EXPECT_EQ((std::vector<ByteBuffer*>{&first, &second}), ear.buffers);
    EXPECT_EQ(TestSounds::part(voice, 0, 3200), ear.heard);
}

TEST_F(AudioInTest, whatComesWhileNoBufferIsQueuedWaitsForTheNext) {
    AudioIn in;
    start(in);
    host.pass(1000);
    EXPECT_EQ(2U, ear.buffers.size());
    in.AddBuffer(&first);
    host.pass(0);
    EXPECT_EQ(TestSounds::part(voice, 0, 4800), ear.heard);
}

TEST_F(AudioInTest, stoppingDeliversTheRestWhileItStillCountsAsRecording) {
    AudioIn in;
    start(in);
    Osp::Media::AudioInState during = Osp::Media::AUDIOIN_STATE_STOPPED;
    ear.onFilled = [&] { during = in.GetState(); };
    host.pass(50);
    EXPECT_EQ(E_SUCCESS, in.Stop());
    EXPECT_EQ((std::vector<int32_t>{1600}), ear.sizes);
    EXPECT_EQ(Osp::Media::AUDIOIN_STATE_RECORDING, during);
    EXPECT_EQ(Osp::Media::AUDIOIN_STATE_STOPPED, in.GetState());
    EXPECT_EQ(TestSounds::part(voice, 0, 800), ear.heard);
    host.pass(1000);
    EXPECT_EQ(1U, ear.sizes.size());
}

TEST_F(AudioInTest, stoppingAtOnceDeliversNothing) {
    AudioIn in;
    start(in);
    EXPECT_EQ(E_SUCCESS, in.Stop());
    EXPECT_TRUE(ear.sizes.empty());
}

TEST_F(AudioInTest, resettingDeliversNothingAndForgetsTheBuffers) {
    AudioIn in;
    start(in);
    host.pass(50);
    EXPECT_EQ(E_SUCCESS, in.Reset());
    EXPECT_EQ(Osp::Media::AUDIOIN_STATE_STOPPED, in.GetState());
    EXPECT_TRUE(ear.sizes.empty());
    EXPECT_EQ(E_SUCCESS, in.AddBuffer(&first));  // it is not queued any more
    EXPECT_EQ(E_SUCCESS, in.Start());
    host.pass(100);
    EXPECT_EQ(TestSounds::part(voice, 0, 1600), ear.heard);
}

TEST_F(AudioInTest, aDeletedRecorderCallsNoListener) {
    {
        AudioIn in;
        start(in);
        host.pass(99);
    }
    host.pass(1000);
    EXPECT_TRUE(ear.sizes.empty());
    AudioIn next;
    start(next);  // the microphone is free again
}

TEST_F(AudioInTest, aListenerMayDeleteTheRecorder) {
    auto* in = new AudioIn();
    start(*in);
    ear.onFilled = [&] {
        delete in;
        in = nullptr;
    };
    host.pass(500);
    EXPECT_EQ(1U, ear.sizes.size());
    EXPECT_EQ(nullptr, in);
}

TEST_F(AudioInTest, aListenerMayDeleteTheRecorderThatIsBeingStopped) {
    auto* in = new AudioIn();
    start(*in);
    ear.onFilled = [&] {
        delete in;
        in = nullptr;
    };
    host.nowMs += 150;  // more than one buffer waits
    EXPECT_EQ(E_SUCCESS, in->Stop());
    EXPECT_EQ(1U, ear.sizes.size());
    EXPECT_EQ(nullptr, in);
}

TEST_F(AudioInTest, aListenerMayStopTheRecorderThatIsBeingStopped) {
    AudioIn in;
    start(in);
    ear.onFilled = [&] {
        ear.onFilled = nullptr;
        EXPECT_EQ(E_SUCCESS, in.Stop());
    };
    host.nowMs += 150;
    EXPECT_EQ(E_SUCCESS, in.Stop());
    EXPECT_EQ((std::vector<int32_t>{3200, 1600}), ear.sizes);
    EXPECT_EQ(Osp::Media::AUDIOIN_STATE_STOPPED, in.GetState());
}

TEST_F(AudioInTest, aListenerMayResetTheRecorderThatIsBeingStopped) {
    AudioIn in;
    start(in);
    ear.onFilled = [&] { in.Reset(); };
    host.nowMs += 150;
    in.Stop();
    EXPECT_EQ(1U, ear.sizes.size());
    EXPECT_EQ(Osp::Media::AUDIOIN_STATE_STOPPED, in.GetState());
}

TEST_F(AudioInTest, aLostMicrophoneDeliversWhatItHeardAndThenTheError) {
    AudioIn in;
    start(in);
    host.nowMs += 150;
    EXPECT_TRUE(host.ears.lose());
    EXPECT_EQ((std::vector<int32_t>{3200, 1600}), ear.sizes);
    EXPECT_EQ((std::vector<int32_t>{2}), ear.sizesAtError);
    EXPECT_EQ(TestSounds::part(voice, 0, 2400), ear.heard);
    host.pass(1000);
    EXPECT_EQ(2U, ear.sizes.size());
    EXPECT_EQ(Osp::Media::AUDIOIN_STATE_RECORDING, in.GetState());
    EXPECT_EQ(E_SUCCESS, in.Stop());
    EXPECT_EQ(Osp::Media::AUDIOIN_STATE_STOPPED, in.GetState());
    EXPECT_EQ(2U, ear.sizes.size());
    EXPECT_EQ(1U, ear.sizesAtError.size());
}

TEST_F(AudioInTest, aLostMicrophoneIsToldWithWhatBecomesOfTheTake) {
    const std::string gone = "the microphone is gone";
    AudioIn in;
    start(in);
    host.nowMs += 150;
    EXPECT_TRUE(host.ears.lose());
    EXPECT_TRUE(host.sentences.empty());  // a pause may still throw the take away
    EXPECT_EQ(E_SUCCESS, in.Stop());
    EXPECT_EQ((std::vector<std::string>{gone + "; what it heard until now is kept"}),
              host.sentences);

    host.sentences.clear();
    ASSERT_EQ(E_SUCCESS, in.AddBuffer(&first));
    ASSERT_EQ(E_SUCCESS, in.Start());
    host.nowMs += 50;
    EXPECT_TRUE(host.ears.lose());
    EXPECT_EQ(E_SUCCESS, in.Reset());
    EXPECT_EQ((std::vector<std::string>{gone}), host.sentences);

    host.sentences.clear();
    ASSERT_EQ(E_SUCCESS, in.AddBuffer(&first));
    ASSERT_EQ(E_SUCCESS, in.Start());
    EXPECT_TRUE(host.ears.lose());
    EXPECT_EQ((std::vector<std::string>{gone}), host.sentences);  // at once: nothing was heard
    EXPECT_EQ(E_SUCCESS, in.Stop());
    EXPECT_EQ((std::vector<std::string>{gone}), host.sentences);

    host.sentences.clear();
    {
        AudioIn deleted;
        start(deleted);
        host.nowMs += 50;
        EXPECT_TRUE(host.ears.lose());
    }
    EXPECT_EQ((std::vector<std::string>{gone}), host.sentences);
}

TEST_F(AudioInTest, aMicrophoneLostBeforeItHeardAnythingOnlyTellsTheError) {
    AudioIn in;
    start(in);
    EXPECT_TRUE(host.ears.lose());
    EXPECT_EQ((std::vector<int32_t>{0}), ear.sizesAtError);
    EXPECT_FALSE(host.ears.lose());
}

TEST_F(AudioInTest, aListenerMayDeleteOrStopTheRecorderWhoseMicrophoneIsLost) {
    for (const bool deletes : {true, false}) {
        auto* in = new AudioIn();
        start(*in);
        bool first = true;
        ear.onFilled = [&] {
            if (!std::exchange(first, false)) {
                return;
            }
            if (deletes) {
                delete in;
                in = nullptr;
            } else {
                EXPECT_EQ(E_SUCCESS, in->Stop());
            }
        };
        host.nowMs += 150;
        EXPECT_TRUE(host.ears.lose());
        EXPECT_TRUE(ear.sizesAtError.empty());  // there is no recording any more
        ear.onFilled = nullptr;
        delete in;
    }
}

TEST_F(AudioInTest, onlyThePhonesOwnFormatIsPrepared) {
    AudioIn in;
    in.Construct(ear);
    const auto mic = Osp::Media::AUDIO_INPUT_DEVICE_MIC;
    const auto type = Osp::Media::AUDIO_TYPE_PCM_S16_LE;
    const auto mono = Osp::Media::AUDIO_CHANNEL_TYPE_MONO;
    EXPECT_NE(E_SUCCESS,
              in.Prepare(static_cast<Osp::Media::AudioInputDevice>(1), type, mono, 16000));
    EXPECT_NE(E_SUCCESS, in.Prepare(mic, static_cast<Osp::Media::AudioSampleType>(4), mono, 16000));
    EXPECT_NE(E_SUCCESS,
              in.Prepare(mic, type, static_cast<Osp::Media::AudioChannelType>(2), 16000));
    EXPECT_NE(E_SUCCESS, in.Prepare(mic, type, mono, 8000));
    EXPECT_EQ(Osp::Media::AUDIOIN_STATE_INITIALIZED, in.GetState());
    EXPECT_EQ(E_SUCCESS, in.Prepare(mic, type, mono, 16000));
    EXPECT_EQ(Osp::Media::AUDIOIN_STATE_PREPARED, in.GetState());
}

TEST_F(AudioInTest, operationsOutOfTurnFail) {
    AudioIn in;
    EXPECT_NE(E_SUCCESS, prepare(in));
    EXPECT_EQ(E_SUCCESS, in.Construct(ear));
    EXPECT_NE(E_SUCCESS, in.Construct(ear));
    EXPECT_NE(E_SUCCESS, in.Start());
    EXPECT_NE(E_SUCCESS, in.Stop());
    EXPECT_NE(E_SUCCESS, in.Reset());
    EXPECT_NE(E_SUCCESS, in.Unprepare());
    EXPECT_NE(E_SUCCESS, in.AddBuffer(&first));
    prepare(in);
    EXPECT_NE(E_SUCCESS, prepare(in));
    EXPECT_EQ(E_SUCCESS, in.Start());
    EXPECT_NE(E_SUCCESS, in.Start());
    EXPECT_NE(E_SUCCESS, in.Unprepare());
    in.Stop();
    EXPECT_EQ(E_SUCCESS, in.Unprepare());
    EXPECT_EQ(Osp::Media::AUDIOIN_STATE_UNPREPARED, in.GetState());
    EXPECT_NE(E_SUCCESS, in.AddBuffer(&first));
    EXPECT_EQ(E_SUCCESS, prepare(in));
}

TEST_F(AudioInTest, buffersThatAreNoneAreRefused) {
    AudioIn in;
    in.Construct(ear);
    prepare(in);
    ByteBuffer tiny;
    tiny.Construct(1);
    EXPECT_NE(E_SUCCESS, in.AddBuffer(nullptr));
    EXPECT_NE(E_SUCCESS, in.AddBuffer(&tiny));
    EXPECT_EQ(E_SUCCESS, in.AddBuffer(&first));
    EXPECT_NE(E_SUCCESS, in.AddBuffer(&first));
}

TEST_F(AudioInTest, aMicrophoneInUseCannotBeStartedTwice) {
    AudioIn in;
    start(in);
    Ear otherEar;
    AudioIn other;
    other.Construct(otherEar);
    prepare(other);
    EXPECT_NE(E_SUCCESS, other.Start());
    EXPECT_EQ(Osp::Media::AUDIOIN_STATE_PREPARED, other.GetState());
}

TEST_F(AudioInTest, eachOperationFailsWhenToldTo) {
    AudioIn in;
    const std::pair<const char*, std::function<result()>> operations[] = {
        {"AudioIn.Construct", [&] { return in.Construct(ear); }},
        {"AudioIn.Prepare", [&] { return prepare(in); }},
        {"AudioIn.AddBuffer", [&] { return in.AddBuffer(&first); }},
        {"AudioIn.Start", [&] { return in.Start(); }},
        {"AudioIn.Stop", [&] { return in.Stop(); }},
        {"AudioIn.Reset", [&] { return in.Reset(); }},
        {"AudioIn.Unprepare", [&] { return in.Unprepare(); }},
    };
    for (const auto& [name, operation] : operations) {
        const Osp::Media::AudioInState before = in.GetState();
        host.failNth(name, 1);
        EXPECT_NE(E_SUCCESS, operation()) << name;
        EXPECT_EQ(before, in.GetState()) << name;
        EXPECT_EQ(E_SUCCESS, operation()) << name;
    }
}

TEST_F(AudioInTest, tooLittleRoomForATakeIsToldBeforeItIsRecorded) {
    for (const int64_t freeBytes : {640044, 640045, 1 << 30, -1}) {
        host.phoneBytes = freeBytes;
        AudioIn in;
        start(in);
        EXPECT_TRUE(host.sentences.empty()) << freeBytes;
    }
    host.phoneBytes = 640043;  // one byte less than 20 seconds and their header
    AudioIn in;
    ASSERT_EQ(E_SUCCESS, in.Construct(ear));
    EXPECT_EQ(E_SUCCESS, prepare(in));  // a few words have room
    EXPECT_EQ((std::vector<std::string>{"only 640 KB are free; a take of 20 seconds needs 641 KB"}),
              host.sentences);
}

TEST_F(AudioInTest, aBufferThatCannotBeWrittenIsToldOnceForEachRecording) {
    TestFolders folders;
    host.mapHome(folders);
    Osp::Io::File file;
    ASSERT_EQ(E_SUCCESS, file.Construct("/Home/take.wav", "wb+"));
    AudioIn in;
    start(in);
    ear.onFilled = [&] {
        host.failNth("File.Write", 1);
        EXPECT_NE(E_SUCCESS, file.Write("sound", 5));
    };
    std::vector<std::string> once = {"the take is cut short: No space left on device"};
    host.pass(100);
    EXPECT_EQ(once, host.sentences);
    host.pass(100);
    EXPECT_EQ(once, host.sentences);
    ASSERT_EQ(E_SUCCESS, in.AddBuffer(&first));
    host.pass(50);
    EXPECT_EQ(E_SUCCESS, in.Stop());
    once.emplace_back("0 of 0.3 seconds of the take are kept");  // 250 ms were heard
    EXPECT_EQ(once, host.sentences);
    ASSERT_EQ(E_SUCCESS, in.AddBuffer(&first));
    ASSERT_EQ(E_SUCCESS, in.Start());
    host.pass(50);
    EXPECT_EQ(E_SUCCESS, in.Stop());  // the last buffer counts as well
    EXPECT_EQ(4U, host.sentences.size());
}

TEST_F(AudioInTest, aTakeThatIsCutShortTellsAtItsEndHowMuchIsKept) {
    TestFolders folders;
    host.mapHome(folders);
    Osp::Io::File file;
    ASSERT_EQ(E_SUCCESS, file.Construct("/Home/take.wav", "wb+"));
    ASSERT_EQ(E_SUCCESS,
              file.Write(std::string(TestSounds::kHeaderBytes, '\0').data(), WavHeader::kBytes));
    AudioIn in;
    start(in);
    int32_t buffers = 0;
    ear.onFilled = [&] {
        buffers++;
        const FullDisk disk(TestSounds::kHeaderBytes +
                            2 * 3300);  // 206 ms: in the middle of the third buffer
        const std::string sound(3200, 's');
        EXPECT_EQ(buffers < 3, file.Write(sound.data(), 3200) == E_SUCCESS);
        in.AddBuffer(ear.buffers.back());
    };
    host.pass(400);
    EXPECT_EQ((std::vector<std::string>{"the take is cut short: File too large"}), host.sentences);
    EXPECT_EQ(E_SUCCESS, in.Stop());
    ASSERT_EQ(2U, host.told.size());
    EXPECT_EQ("0.2 of 0.4 seconds of the take are kept", host.sentences[1]);
    EXPECT_EQ("Disk full: 0.2 of 0.4 seconds kept.", host.told[1].text("en"));
    EXPECT_EQ("Speicher voll: 0,2 von 0,4 Sekunden bleiben erhalten.", host.told[1].text("de"));
}

TEST_F(AudioInTest, aFailedWriteOutsideARecordingIsNoMatterOfTheTake) {
    TestFolders folders;
    host.mapHome(folders);
    Osp::Io::File file;
    ASSERT_EQ(E_SUCCESS, file.Construct("/Home/other.wav", "wb+"));
    AudioIn in;
    start(in);
    host.failNth("File.Write", 1);
    EXPECT_NE(E_SUCCESS, file.Write("sound", 5));
    host.pass(200);
    EXPECT_EQ(E_SUCCESS, in.Stop());
    EXPECT_TRUE(host.sentences.empty());
}

TEST_F(PlayerTest, playsAClipAndEndsWhenItsLastSampleWasHeard) {
    Player player;
    start(player);
    EXPECT_EQ(Osp::Media::PLAYER_STATE_PLAYING, player.GetState());
    host.pass(999);
    EXPECT_EQ(0, end.ends);
    host.pass(1);
    EXPECT_EQ(1, end.ends);
    EXPECT_EQ(Osp::Media::PLAYER_STATE_ENDOFCLIP, player.GetState());
    EXPECT_EQ(0, end.opened);
    EXPECT_EQ(clip, played());
}

TEST_F(PlayerTest, playsAgainAfterTheEnd) {
    Player player;
    start(player);
    host.pass(1000);
    EXPECT_EQ(E_SUCCESS, player.Play());
    host.pass(1000);
    EXPECT_EQ(2, end.ends);
    EXPECT_EQ(16000U, played().size());
}

TEST_F(PlayerTest, aPauseIsSilentAtOnceAndGoesOnWhereItStood) {
    Player player;
    start(player);
    host.pass(300);
    EXPECT_EQ(E_SUCCESS, player.Pause());
    EXPECT_EQ(Osp::Media::PLAYER_STATE_PAUSED, player.GetState());
    host.pass(5000);
    EXPECT_EQ(TestSounds::part(clip, 0, 2400), played());
    EXPECT_EQ(E_SUCCESS, player.Play());
    host.pass(699);
    EXPECT_EQ(0, end.ends);
    host.pass(1);
    EXPECT_EQ(1, end.ends);
    EXPECT_EQ(clip, played());
}

TEST_F(PlayerTest, stoppingAndClosingAreSilentAtOnce) {
    for (const bool closes : {false, true}) {
        Player player;
        start(player);
        host.pass(100);
        EXPECT_EQ(E_SUCCESS, closes ? player.Close() : player.Stop());
        host.pass(2000);
    }
    EXPECT_EQ(0, end.ends);
    EXPECT_EQ(1600U, played().size());
}

TEST_F(PlayerTest, aDeletedPlayerCallsNoListener) {
    {
        Player player;
        start(player);
        host.pass(999);
    }
    host.pass(2000);
    EXPECT_EQ(0, end.ends);
}

TEST_F(PlayerTest, aListenerMayDeleteThePlayer) {
    auto* player = new Player();
    start(*player);
    end.onEnd = [&] {
        delete player;
        player = nullptr;
    };
    host.pass(1000);
    EXPECT_EQ(nullptr, player);
}

TEST_F(PlayerTest, aLostSpeakerTellsTheErrorAndThenTheEnd) {
    for (const bool paused : {false, true}) {
        end = {};
        Player player;
        start(player);
        host.pass(300);
        if (paused) {
            player.Pause();
        }
        EXPECT_TRUE(host.voice.lose());
        EXPECT_EQ(1, end.errors);
        EXPECT_EQ(0, end.endsAtError);
        EXPECT_EQ(1, end.ends);
        EXPECT_EQ(Osp::Media::PLAYER_STATE_ENDOFCLIP, player.GetState());
        host.pass(2000);
        EXPECT_EQ(1, end.ends);
        EXPECT_EQ((std::vector<std::string>{"the speaker is gone"}), host.sentences);
        host.sentences.clear();
    }
    EXPECT_EQ(2U * 2400, played().size());
}

TEST_F(PlayerTest, theEndFollowsTheErrorEvenIfThePlayerIsClosedBetweenThem) {
    Player player;
    start(player);
    end.onError = [&] { EXPECT_EQ(E_SUCCESS, player.Close()); };
    EXPECT_TRUE(host.voice.lose());
    EXPECT_EQ(1, end.ends);
    EXPECT_EQ(Osp::Media::PLAYER_STATE_CLOSED, player.GetState());
}

TEST_F(PlayerTest, theEndDoesNotFollowTheErrorIfThePlayerIsDeletedOrPlaysAgain) {
    for (const bool deletes : {true, false}) {
        auto* player = new Player();
        start(*player);
        end.onError = [&] {
            if (deletes) {
                delete player;
                player = nullptr;
            } else {
                EXPECT_EQ(E_SUCCESS, player->Play());
            }
        };
        EXPECT_TRUE(host.voice.lose());
        EXPECT_EQ(0, end.ends);
        delete player;
    }
}

TEST_F(PlayerTest, aPlayerDeletedAtASecondLossWithinTheFirstIsNotTouchedAgain) {
    auto* player = new Player();
    start(*player);
    end.onError = [&] {
        if (end.errors == 1) {
            EXPECT_EQ(E_SUCCESS, player->Play());
            EXPECT_TRUE(host.voice.lose());
        } else {
            delete player;
            player = nullptr;
        }
    };
    EXPECT_TRUE(host.voice.lose());
    EXPECT_EQ(nullptr, player);
    EXPECT_EQ(2, end.errors);
    EXPECT_EQ(0, end.ends);
}

TEST_F(PlayerTest, anEmptyClipEndsAtOnce) {
    folders.write("home/clip.wav", TestSounds::wav({}, 8000));
    Player player;
    start(player);
    host.pass(0);
    EXPECT_EQ(1, end.ends);
}

TEST_F(PlayerTest, aFileCutShortPlaysAsFarAsItGoes) {
    folders.write("home/clip.wav", TestSounds::header(8000, 8000) +
                                       TestSounds::bytes(TestSounds::part(clip, 0, 80)) + "x");
    Player player;
    start(player);
    host.pass(10);
    EXPECT_EQ(1, end.ends);
    EXPECT_EQ(TestSounds::part(clip, 0, 80), played());
}

TEST_F(PlayerTest, aFileThatCannotBeReadOrMeasuredIsRefused) {
    Player player;
    player.Construct(end, nullptr);
    for (const auto& [operation, calls] : {std::pair{"File.Read", 2}, std::pair{"File.Seek", 2}}) {
        for (int32_t nth = 1; nth <= calls; nth++) {
            host.failNth(operation, nth);
            EXPECT_NE(E_SUCCESS, player.OpenFile("/Home/clip.wav", false)) << operation << nth;
        }
    }
    EXPECT_EQ(E_SUCCESS, player.OpenFile("/Home/clip.wav", false));
}

TEST_F(PlayerTest, whatFollowsTheSamplesIsNotPlayed) {
    folders.write("home/clip.wav", TestSounds::wav(clip, 8000) + "LIST and more of that");
    Player player;
    start(player);
    host.pass(1000);
    EXPECT_EQ(clip, played());
}

TEST_F(PlayerTest, everyOtherKindOfFileIsRefused) {
    const std::string plain = TestSounds::wav(TestSounds::part(clip, 0, 10), 8000);
    EXPECT_EQ(E_SUCCESS, open(plain));
    const std::pair<size_t, std::string> changes[] = {
        {0, "RIFX"},
        {8, "WAVX"},
        {12, "fmtx"},
        {16, TestSounds::little(18, 4)},
        {20, TestSounds::little(3, 2)},
        {22, TestSounds::little(2, 2)},
        {24, TestSounds::little(999, 4) + TestSounds::little(1998, 4)},
        {24, TestSounds::little(192001, 4) + TestSounds::little(384002, 4)},
        {24, TestSounds::little(0x80000000U, 4) + TestSounds::little(0, 4)},
        {28, TestSounds::little(16001, 4)},
        {32, TestSounds::little(4, 2)},
        {34, TestSounds::little(8, 2)},
        {36, "LIST"},
        {40, TestSounds::little(19, 4)},
        {40, TestSounds::little(0xFFFFFFFEU, 4)},
        {40, TestSounds::little((1U << 26) + 2, 4)},
    };
    for (const auto& [at, change] : changes) {
        EXPECT_NE(E_SUCCESS, open(TestSounds::changed(plain, at, change))) << at;
    }
    EXPECT_NE(E_SUCCESS, open(plain.substr(0, 43)));
    EXPECT_NE(E_SUCCESS, open(""));
    EXPECT_EQ(E_SUCCESS, open(plain.substr(0, TestSounds::kHeaderBytes)));
}

TEST_F(PlayerTest, theSizeInTheRiffHeaderIsNotLookedAt) {
    const std::string wav = TestSounds::wav(clip, 8000);
    EXPECT_EQ(E_SUCCESS, open(TestSounds::changed(wav, 4, TestSounds::little(0xFFFFFFFF, 4))));
}

TEST_F(PlayerTest, operationsOutOfTurnFail) {
    Player player;
    EXPECT_NE(E_SUCCESS, player.OpenFile("/Home/clip.wav", false));
    EXPECT_NE(E_SUCCESS, player.Construct(end, this));
    EXPECT_EQ(E_SUCCESS, player.Construct(end, nullptr));
    EXPECT_NE(E_SUCCESS, player.Construct(end, nullptr));
    EXPECT_NE(E_SUCCESS, player.Play());
    EXPECT_NE(E_SUCCESS, player.Pause());
    EXPECT_NE(E_SUCCESS, player.Stop());
    EXPECT_NE(E_SUCCESS, player.Close());
    EXPECT_NE(E_SUCCESS, player.OpenFile("/Home/missing.wav", false));
    EXPECT_NE(E_SUCCESS, player.OpenFile("/Home/clip.wav", true));
    EXPECT_EQ(E_SUCCESS, player.OpenFile("/Home/clip.wav", false));
    EXPECT_NE(E_SUCCESS, player.OpenFile("/Home/clip.wav", false));
    EXPECT_NE(E_SUCCESS, player.SetVolume(101));
    EXPECT_NE(E_SUCCESS, player.SetVolume(-1));
    EXPECT_EQ(E_SUCCESS, player.Play());
    EXPECT_NE(E_SUCCESS, player.Play());
    EXPECT_EQ(E_SUCCESS, player.Close());
    EXPECT_NE(E_SUCCESS, player.Close());
    EXPECT_EQ(E_SUCCESS, player.OpenFile("/Home/clip.wav", false));
}

TEST_F(PlayerTest, aSpeakerInUseCannotBeStartedTwice) {
    Player player;
    start(player);
    Player other;
    other.Construct(end, nullptr);
    other.OpenFile("/Home/clip.wav", false);
    EXPECT_NE(E_SUCCESS, other.Play());
    EXPECT_EQ(Osp::Media::PLAYER_STATE_OPENED, other.GetState());
}

TEST_F(PlayerTest, eachOperationFailsWhenToldTo) {
    Player player;
    const std::pair<const char*, std::function<result()>> operations[] = {
        {"Player.Construct", [&] { return player.Construct(end, nullptr); }},
        {"Player.OpenFile", [&] { return player.OpenFile("/Home/clip.wav", false); }},
        {"Player.SetVolume", [&] { return player.SetVolume(90); }},
        {"Player.Play", [&] { return player.Play(); }},
        {"Player.Pause", [&] { return player.Pause(); }},
        {"Player.Stop", [&] { return player.Stop(); }},
        {"Player.Close", [&] { return player.Close(); }},
    };
    for (const auto& [name, operation] : operations) {
        const Osp::Media::PlayerState before = player.GetState();
        host.failNth(name, 1);
        EXPECT_NE(E_SUCCESS, operation()) << name;
        EXPECT_EQ(before, player.GetState()) << name;
        EXPECT_EQ(E_SUCCESS, operation()) << name;
    }
}
