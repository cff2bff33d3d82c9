// SPDX-License-Identifier: MIT
// A file as speaker collects the clips at their time and volume.
#include "ClipEnds.h"
#include "FileSpeaker.h"
#include "TestFolders.h"
#include "TestSounds.h"

#include <gtest/gtest.h>

using Samples = TestSounds::Samples;

namespace {

class FileSpeakerTest : public testing::Test {
protected:
    static std::shared_ptr<const HostClip> clipOf(Samples samples, int32_t rateHz) {
        return std::make_shared<HostClip>(HostClip{std::move(samples), rateHz});
    }

    Samples file(const std::string& name) { return TestSounds::samplesOf(folders.read(name)); }

    TestFolders folders;
    int64_t nowMs = 0;
    FileSpeaker speaker{[this] { return nowMs; }};
    ClipEnds end;
    Samples samples = TestSounds::noise(801);
};

}  // namespace

TEST_F(FileSpeakerTest, aClipEndsInTheMillisecondOfItsLastSample) {
    speaker.play(clipOf(samples, 8000), end);
    EXPECT_EQ(101, speaker.dueMs());  // 100.125 ms
    nowMs = 100;
    EXPECT_FALSE(speaker.deliver());
    nowMs = 101;
    EXPECT_TRUE(speaker.deliver());
    EXPECT_EQ(1, end.ends);
    EXPECT_EQ(DueTime::kNever, speaker.dueMs());
}

TEST_F(FileSpeakerTest, manyVolumeStepsDoNotMoveTheEnd) {
    speaker.play(clipOf(samples, 11025), end);
    const int64_t dueMs = speaker.dueMs();
    EXPECT_EQ(73, dueMs);  // 72.65 ms
    for (nowMs = 0; nowMs < 70; nowMs++) {
        speaker.setVolume(90);
    }
    EXPECT_EQ(dueMs, speaker.dueMs());
}

TEST_F(FileSpeakerTest, oneFileCollectsEverythingUntilTheNext) {
    EXPECT_EQ("", speaker.openFile(folders.path("a.wav")));
    for (int32_t i = 0; i < 2; i++) {
        speaker.play(clipOf({1, 2, 3}, 8000), end);
        nowMs += 1;
        speaker.deliver();
    }
    EXPECT_EQ("", speaker.openFile(folders.path("b.wav")));
    speaker.play(clipOf({4}, 8000), end);
    nowMs += 1;
    speaker.deliver();
    EXPECT_EQ("", speaker.finishFile());
    EXPECT_EQ((Samples{1, 2, 3, 1, 2, 3}), file("a.wav"));
    EXPECT_EQ((Samples{4}), file("b.wav"));
}

TEST_F(FileSpeakerTest, aClipThatRunsAcrossTwoFilesIsInBoth) {
    EXPECT_EQ("", speaker.openFile(folders.path("a.wav")));
    speaker.play(clipOf(samples, 8000), end);
    nowMs = 50;
    EXPECT_EQ("", speaker.openFile(folders.path("b.wav")));
    nowMs = 200;
    speaker.deliver();
    EXPECT_EQ("", speaker.finishFile());
    EXPECT_EQ(TestSounds::part(samples, 0, 400), file("a.wav"));
    EXPECT_EQ(TestSounds::part(samples, 400, 401), file("b.wav"));
}

TEST_F(FileSpeakerTest, otherRatesAreConvertedToTheFiles) {
    EXPECT_EQ("", speaker.openFile(folders.path("a.wav")));
    speaker.play(clipOf(Samples(16000, 1000), 16000), end);
    nowMs = 1000;
    speaker.deliver();
    EXPECT_EQ("", speaker.finishFile());
    const Samples heard = file("a.wav");
    ASSERT_EQ(8000U, heard.size());
    EXPECT_NEAR(1000, heard[4000], 2);
}

TEST_F(FileSpeakerTest, nothingIsHeardWithoutAFile) {
    speaker.play(clipOf(samples, 8000), end);
    nowMs = 60;
    EXPECT_EQ("", speaker.openFile(folders.path("a.wav")));
    speaker.stop();
    EXPECT_EQ("", speaker.finishFile());
    EXPECT_TRUE(file("a.wav").empty());
}

TEST_F(FileSpeakerTest, aPlaceThatCannotBeWrittenShowsAtOnce) {
    EXPECT_NE("", speaker.openFile(folders.path("missing/a.wav")));
}

TEST_F(FileSpeakerTest, aLostSpeakerKeepsWhatWasPlayedAndTellsNoEnd) {
    ASSERT_EQ("", speaker.openFile(folders.path("heard.wav")));
    EXPECT_FALSE(speaker.lose());
    speaker.play(clipOf(samples, 8000), end);
    nowMs = 50;
    EXPECT_TRUE(speaker.lose());
    EXPECT_EQ(1, end.losses);
    nowMs = 1000;
    EXPECT_FALSE(speaker.deliver());
    EXPECT_FALSE(speaker.lose());
    EXPECT_EQ(0, end.ends);
    EXPECT_EQ("", speaker.finishFile());
    EXPECT_EQ(TestSounds::part(samples, 0, 400), file("heard.wav"));
    EXPECT_TRUE(speaker.play(clipOf(samples, 8000), end));  // the next clip finds a speaker
}
