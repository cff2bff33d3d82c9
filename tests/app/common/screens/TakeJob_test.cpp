// SPDX-License-Identifier: MIT
// A sound from outside replaces a recording.
#include "G.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "ScreensTest.h"
#include "State.h"
#include "TakeJob.h"
#include "TestSounds.h"

namespace {

using Samples = TestSounds::Samples;

class TakeJobTest : public ScreensTest {
protected:
    TakeJobTest() {
        makeSoundFolder();
        enter(G::statePlay);
    }

    static void use(const Samples& samples) {
        TakeJob::use(samples.data(), static_cast<int32_t>(samples.size()));
    }
};

}  // namespace

TEST_F(TakeJobTest, aSoundBecomesTheTakeInThePlaceOfAllThatWasThere) {
    putTake({9, 9, 9});
    folders.write(kResult, "old");
    G::setLastPlayedFx(4);
    const Samples sound = TestSounds::noise(1000);
    use(sound);
    EXPECT_EQ("Process", screen());
    EXPECT_EQ(TestSounds::wav(sound, 16000), folders.read(kTake));
    EXPECT_FALSE(hasResult());
    EXPECT_EQ(-1, G::getLastPlayedFx());
}

TEST_F(TakeJobTest, itIsCleanedUpAsARecordingIs) {
    const Samples sound = TestSounds::noise(3000);
    use(sound);
    tick();
    EXPECT_EQ("Play", screen());
    const std::string used = folders.read(kTake);
    putTake(sound);
    TakeJob::enter();
    tick();
    EXPECT_EQ(folders.read(kTake), used);
    EXPECT_EQ(TestSounds::kHeaderBytes + 2 * 1500, used.size());
}

TEST_F(TakeJobTest, whatGoesBeyondTwentySecondsIsLeftOut) {
    const Samples sound = TestSounds::noise(320001);
    use(sound);
    EXPECT_EQ(TestSounds::wav(TestSounds::part(sound, 0, 320000), 16000), folders.read(kTake));
}

TEST_F(TakeJobTest, aTakeThatCannotBeWrittenIsFatalAndNotLeft) {
    for (const char* operation : {"File.Construct", "File.Write", "File.Flush"}) {
        host.failNth(operation, 1);
        use({1, 2, 3, 4});
        EXPECT_EQ(kStorageLow, fatalBody()) << operation;
        EXPECT_FALSE(hasTake()) << operation;
        enter(G::statePlay);
    }
}

TEST_F(TakeJobTest, aResultThatWillNotGoIsFatal) {
    putTake({9, 9, 9});
    folders.write(kResult, "result");
    host.failNth("File.Remove", 2);
    use({1, 2, 3, 4});
    EXPECT_EQ(kFileError, fatalBody());
    EXPECT_EQ("result", folders.read(kResult));
}

TEST_F(TakeJobTest, whatIsNoFileInThePlaceOfTheTwoIsMovedAside) {
    folders.write(std::string(kTake) + "/inside.txt", "mine");
    folders.write(std::string(kResult) + "/inside.txt", "mine too");
    use({1, 2, 3, 4});
    tick();
    EXPECT_EQ("Play", screen());
    EXPECT_EQ("mine", folders.read(std::string(kTake) + ".aside-1/inside.txt"));
    EXPECT_EQ("mine too", folders.read(std::string(kResult) + ".aside-1/inside.txt"));
}

TEST_F(TakeJobTest, aResultThatCannotBeMovedAsideIsFatal) {
    folders.write(std::string(kResult) + "/inside.txt", "mine");
    host.failNth("File.MoveAside", 1);
    use({1, 2, 3, 4});
    EXPECT_EQ(kFileError, fatalBody());
    EXPECT_EQ("mine", folders.read(std::string(kResult) + "/inside.txt"));
}

TEST_F(TakeJobTest, withoutATakeTheMessageStands) {
    TakeJob::enter();
    EXPECT_EQ(kFileError, fatalBody());
}

TEST_F(TakeJobTest, aPauseLeadsToTheMenuAndTheTakeStays) {
    use(TestSounds::noise(1000));
    Orm::canvas->run();
    Orm::setPaused(true);
    EXPECT_EQ("Options", screen());
    EXPECT_TRUE(hasTake());
}
