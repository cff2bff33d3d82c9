// SPDX-License-Identifier: MIT
// The last take is kept complete, readable for its user only, until it is replaced or deleted.
#include "DiskSync.h"
#include "FullDisk.h"
#include "LastTake.h"
#include "SmallDisk.h"
#include "TakeKeeper.h"
#include "TestFolders.h"
#include "TestSounds.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

using Samples = TestSounds::Samples;

namespace {

class LastTakeTest : public testing::Test {
protected:
    static mode_t modeOf(const std::string& path) {
        struct stat facts = {};
        return ::stat(path.c_str(), &facts) == 0 ? facts.st_mode & 0777 : 0;
    }

    Samples broughtBack() const {
        Samples samples;
        EXPECT_EQ("", last.bringBack(samples));
        return samples;
    }

    std::string stateFolder() const { return folders.path("state/murmelo"); }

    TestFolders folders;
    LastTake last{folders.path("state/murmelo")};
    const Samples voice = TestSounds::noise(1000);
};

class TakeKeeperTest : public LastTakeTest {
protected:
    TakeKeeper::Report note() {
        return [this](const HostMessage& message, const std::string& sentence) {
            told.push_back(message.text("en"));
            sentences.push_back(sentence);
        };
    }

    static Samples broughtBackBy(const TakeKeeper& keeper) {
        Samples samples;
        EXPECT_EQ("", keeper.bringBack(samples));
        return samples;
    }

    std::vector<std::string> told;
    std::vector<std::string> sentences;
    TakeKeeper keeper{folders.path("state/murmelo"), note()};
    const Samples recording = TestSounds::noise(500, 5);
    const Samples file = TestSounds::noise(600, 6);
    const Samples otherFile = TestSounds::noise(700, 7);
};

}  // namespace

TEST_F(LastTakeTest, comesBackSampleForSample) {
    EXPECT_FALSE(last.isThere());
    EXPECT_EQ("", last.keep(voice));
    EXPECT_TRUE(last.isThere());
    EXPECT_EQ(voice, broughtBack());
    EXPECT_EQ(voice, broughtBack());  // any number of times
    EXPECT_EQ(TestSounds::wav(voice, 16000), folders.read("state/murmelo/last-take.wav"));
}

TEST_F(LastTakeTest, isForItsUserOnly) {
    EXPECT_EQ("", last.keep(voice));
    EXPECT_EQ(mode_t{0700}, modeOf(stateFolder()));
    EXPECT_EQ(mode_t{0600}, modeOf(stateFolder() + "/last-take.wav"));
}

TEST_F(LastTakeTest, theNextTakesItsPlace) {
    EXPECT_EQ("", last.keep(voice));
    EXPECT_EQ("", last.keep(TestSounds::noise(20, 9)));
    EXPECT_EQ(TestSounds::noise(20, 9), broughtBack());
}

TEST_F(LastTakeTest, nothingHeardKeepsTheEarlierOne) {
    EXPECT_EQ("", last.keep(voice));
    EXPECT_EQ("", last.keep({}));
    EXPECT_EQ(voice, broughtBack());
}

TEST_F(LastTakeTest, aTakeOfMoreThanTwentySecondsIsKeptWhole) {
    const Samples late = TestSounds::noise(20 * 16000 + 480);
    EXPECT_EQ("", last.keep(late));
    EXPECT_EQ(late, broughtBack());
}

TEST_F(LastTakeTest, forgottenIsGone) {
    EXPECT_EQ("", last.keep(voice));
    EXPECT_EQ("", last.forget());
    EXPECT_FALSE(last.isThere());
    EXPECT_TRUE(std::filesystem::is_empty(stateFolder()));
    EXPECT_EQ("", last.forget());
    Samples samples = voice;
    EXPECT_EQ("there is no last take", last.bringBack(samples));
    EXPECT_EQ(voice, samples);
}

TEST_F(LastTakeTest, withoutAFolderNothingIsKept) {
    const LastTake none("");
    EXPECT_EQ("", none.keep(voice));
    EXPECT_FALSE(none.isThere());
}

TEST_F(LastTakeTest, aFolderThatCannotBeMadeIsToldByName) {
    folders.write("state", "a file where the folder should be");
    const Problem problem = last.keep(voice);
    EXPECT_NE(std::string::npos, problem.sentence().find(stateFolder())) << problem;
}

TEST_F(LastTakeTest, aDiskThatIsFullKeepsTheEarlierTake) {
    EXPECT_EQ("", last.keep(voice));
    {
        const FullDisk disk(100);
        EXPECT_TRUE(last.keep(TestSounds::noise(5000, 3)));
    }
    EXPECT_EQ(TestSounds::wav(voice, 16000), folders.read("state/murmelo/last-take.wav"));
    std::filesystem::directory_iterator files(stateFolder());
    EXPECT_EQ("last-take.wav", files->path().filename());
    EXPECT_EQ(1, std::distance(files, {}));
}

TEST_F(LastTakeTest, theReasonNamesNoFile) {
    EXPECT_EQ("", last.keep(voice));
    Problem problem;
    {
        const FullDisk disk(100);
        problem = last.keep(TestSounds::noise(5000, 3));
    }
    EXPECT_EQ("the last take cannot be kept as \"" + stateFolder() +
                  "/last-take.wav\": File too large",
              problem.sentence());
    EXPECT_EQ("File too large", LastTake::reasonOf(problem));
    {
        const FullDisk disk(0);  // not even the header
        problem = last.keep(voice);
    }
    EXPECT_EQ("File too large", LastTake::reasonOf(problem));
    folders.write("file", "where a folder should be");
    problem = LastTake(folders.path("file/murmelo\": x")).keep(voice);
    EXPECT_EQ("Not a directory", LastTake::reasonOf(problem));
}

TEST_F(LastTakeTest, whatTheDiskRefusesComesBackAndIsForgotten) {
    const Samples next = TestSounds::noise(5000, 3);
    EXPECT_EQ("", last.keep(voice));
    const LastTake copy = last;
    {
        const FullDisk disk(100);
        EXPECT_TRUE(last.keep(next));
    }
    EXPECT_EQ(next, broughtBack());
    EXPECT_EQ(next, last.waiting());
    Samples samples;
    EXPECT_EQ("", copy.bringBack(samples));
    EXPECT_EQ(next, samples);
    EXPECT_EQ("", last.forget());
    EXPECT_FALSE(copy.isThere());
    EXPECT_TRUE(last.waiting().empty());
    EXPECT_TRUE(std::filesystem::is_empty(stateFolder()));
}

TEST_F(LastTakeTest, whatTheDiskRefusesOutlivesTheSettlingOfTheOneBefore) {
    const Samples next = TestSounds::noise(5000, 3);
    EXPECT_EQ("", last.write(voice));
    {
        const FullDisk disk(100);
        EXPECT_TRUE(last.write(next));
    }
    EXPECT_EQ("", last.syncToDisk());
    EXPECT_EQ(TestSounds::wav(voice, 16000), folders.read("state/murmelo/last-take.wav"));
    EXPECT_EQ(next, last.waiting());
    EXPECT_EQ(next, broughtBack());
}

TEST_F(LastTakeTest, whatIsInMemoryOnlyIsForgottenWithoutAFolder) {
    folders.write("state", "a file where the folder should be");
    EXPECT_TRUE(last.keep(voice));
    EXPECT_TRUE(last.isThere());
    EXPECT_EQ("", last.forget());
    EXPECT_FALSE(last.isThere());
}

TEST_F(LastTakeTest, aTakeThatCannotBeRenamedStaysInMemory) {
    folders.makeFolder("state/murmelo");
    std::filesystem::create_symlink(folders.path("missing/take.wav"),
                                    stateFolder() + "/last-take.wav");
    EXPECT_EQ("", last.write(voice));
    EXPECT_TRUE(last.waiting().empty());
    EXPECT_TRUE(last.syncToDisk());
    EXPECT_EQ(voice, last.waiting());
    EXPECT_EQ(voice, broughtBack());
    folders.makeFolder("missing");
    EXPECT_EQ("", last.keep(last.waiting()));
    EXPECT_TRUE(last.waiting().empty());
    EXPECT_EQ(TestSounds::wav(voice, 16000), folders.read("missing/take.wav"));
}

TEST_F(LastTakeTest, whatAKilledProgramLeftIsCleanedUpAndARunningOnesIsNot) {
    const pid_t child = fork();
    if (child == 0) {
        _exit(0);
    }
    waitpid(child, nullptr, 0);
    const std::string dead = "state/murmelo/last-take.wav.new-" + std::to_string(child);
    const std::string alive = "state/murmelo/last-take.wav.new-" + std::to_string(getppid());
    folders.write(dead, "half");
    folders.write(alive, "half");
    EXPECT_EQ("", last.keep(voice));
    EXPECT_FALSE(folders.has(dead));
    EXPECT_TRUE(folders.has(alive));
}

TEST_F(LastTakeTest, whatIsWrittenComesBackBeforeTheDiskHasIt) {
    EXPECT_EQ("", last.keep(voice));
    const Samples next = TestSounds::noise(20, 9);
    EXPECT_EQ("", last.write(next));
    EXPECT_EQ(next, broughtBack());
    EXPECT_EQ(TestSounds::wav(voice, 16000), folders.read("state/murmelo/last-take.wav"));
    EXPECT_EQ(mode_t{0600}, modeOf(stateFolder() + "/last-take.wav.next"));
    EXPECT_EQ("", last.syncToDisk());
    EXPECT_EQ(next, broughtBack());
    EXPECT_EQ(TestSounds::wav(next, 16000), folders.read("state/murmelo/last-take.wav"));
    EXPECT_FALSE(folders.has("state/murmelo/last-take.wav.next"));
    EXPECT_EQ("", last.syncToDisk());  // nothing is left to do
    EXPECT_EQ(next, broughtBack());
}

TEST_F(LastTakeTest, aProgramThatIsKilledBeforeTheDiskHasItLosesNothing) {
    EXPECT_EQ("", last.keep(voice));
    const Samples next = TestSounds::noise(20, 9);
    const pid_t child = fork();
    if (child == 0) {
        static_cast<void>(last.write(next));
        kill(getpid(), SIGKILL);
    }
    waitpid(child, nullptr, 0);
    EXPECT_EQ(next, broughtBack());
    EXPECT_EQ("", last.keep(TestSounds::noise(30, 8)));
    EXPECT_EQ(TestSounds::noise(30, 8), broughtBack());
}

TEST_F(LastTakeTest, afterAPowerCutTheOneBeforeComesBack) {
    EXPECT_EQ("", last.keep(voice));
    for (const std::string& left :
         {std::string(), TestSounds::header(1000, 16000), std::string(2044, '\0')}) {
        folders.write("state/murmelo/last-take.wav.next", left);
        EXPECT_EQ(voice, broughtBack()) << left.size();
    }
}

TEST_F(LastTakeTest, whatIsForgottenBeforeTheDiskHasItIsGone) {
    EXPECT_EQ("", last.keep(voice));
    EXPECT_EQ("", last.write(TestSounds::noise(20, 9)));
    EXPECT_EQ("", last.forget());
    EXPECT_EQ("", last.syncToDisk());
    EXPECT_FALSE(last.isThere());
    EXPECT_TRUE(std::filesystem::is_empty(stateFolder()));
}

TEST_F(LastTakeTest, theNewestOfTwoThatAreWrittenStays) {
    EXPECT_EQ("", last.write(voice));
    EXPECT_EQ("", last.write(TestSounds::noise(20, 9)));
    EXPECT_EQ("", last.syncToDisk());
    EXPECT_EQ("", last.syncToDisk());
    EXPECT_EQ(TestSounds::noise(20, 9), broughtBack());
}

TEST_F(LastTakeTest, aTakeIsPendingUntilItsOwnSync) {
    EXPECT_FALSE(last.isPending());
    EXPECT_EQ("", last.write(voice));
    EXPECT_TRUE(last.isPending());
    EXPECT_EQ("", last.syncToDisk());
    EXPECT_FALSE(last.isPending());
    EXPECT_EQ("", last.write(voice));
    EXPECT_EQ("", last.forget());
    EXPECT_FALSE(last.isPending());
}

TEST_F(LastTakeTest, aPipeInItsPlaceIsMovedAsideAndNeverWaitedFor) {
    folders.makeFolder("state/murmelo");
    ASSERT_EQ(0, mkfifo((stateFolder() + "/last-take.wav").c_str(), 0600));
    EXPECT_FALSE(last.isThere());
    EXPECT_EQ("", last.keep(voice));
    EXPECT_EQ(voice, broughtBack());
}

TEST_F(LastTakeTest, aDamagedOneIsToldByName) {
    folders.write("state/murmelo/last-take.wav", "no sound at all, and quite long enough for one");
    Samples samples = voice;
    const Problem problem = last.bringBack(samples);
    EXPECT_NE(std::string::npos, problem.sentence().find("last-take.wav")) << problem;
    EXPECT_EQ(voice, samples);
}

TEST_F(TakeKeeperTest, aRecordingIsKeptAtOnce) {
    keeper.recorded(recording);
    EXPECT_EQ(recording, broughtBack());
}

TEST_F(TakeKeeperTest, aFileIsKeptAtOnceWhereThereIsNothingElse) {
    keeper.used(file);
    EXPECT_EQ(file, broughtBack());
}

TEST_F(TakeKeeperTest, theRecordingThatAFileDisplacedComesBack) {
    keeper.recorded(recording);
    keeper.used(file);
    EXPECT_EQ(recording, broughtBack());
    keeper.broughtBack();
    keeper.takeDeleted();  // the program ends with the recording
    EXPECT_EQ(recording, broughtBack());
}

TEST_F(TakeKeeperTest, aFileIsKeptWhenTheProgramLetsGoOfIt) {
    keeper.recorded(recording);
    keeper.used(file);
    keeper.takeDeleted();
    EXPECT_EQ(file, broughtBack());
    keeper.used(otherFile);
    keeper.used(recording);
    EXPECT_EQ(otherFile, broughtBack());
}

TEST_F(TakeKeeperTest, aRecordingAfterAFileIsTheLastTake) {
    keeper.recorded(otherFile);
    keeper.used(file);
    keeper.recorded(recording);
    keeper.takeDeleted();
    EXPECT_EQ(recording, broughtBack());
}

TEST_F(TakeKeeperTest, whatWasForgottenIsNotKeptLater) {
    keeper.recorded(recording);
    keeper.used(file);
    EXPECT_EQ("", keeper.forget());
    keeper.takeDeleted();
    EXPECT_FALSE(keeper.isThere());
}

TEST_F(TakeKeeperTest, theDiskIsWaitedForLaterAndTheTakeIsThereAtOnce) {
    std::vector<std::function<Problem()>> syncs;
    TakeKeeper patient(stateFolder(), note(),
                       [&](std::function<Problem()> sync) { syncs.push_back(std::move(sync)); });
    patient.recorded(recording);
    patient.takeDeleted();  // there is nothing else to keep
    ASSERT_EQ(1U, syncs.size());
    EXPECT_TRUE(patient.isThere());
    EXPECT_EQ(recording, broughtBack());
    EXPECT_FALSE(folders.has("state/murmelo/last-take.wav"));
    EXPECT_EQ("", syncs[0]());
    EXPECT_EQ(TestSounds::wav(recording, 16000), folders.read("state/murmelo/last-take.wav"));
    EXPECT_TRUE(told.empty());
}

TEST_F(TakeKeeperTest, aTakeThatTheDiskRefusesIsKeptWhenTheProgramLetsGoOfIt) {
    keeper.recorded(file);
    {
        const FullDisk disk(100);
        keeper.recorded(recording);
        EXPECT_EQ(1U, told.size());
        keeper.takeDeleted();  // still full, and not told twice
        EXPECT_EQ(1U, told.size());
    }
    EXPECT_EQ(file, broughtBack());  // the disk has the earlier one
    keeper.takeDeleted();
    EXPECT_EQ(1U, told.size());
    EXPECT_EQ(recording, broughtBack());
}

TEST_F(TakeKeeperTest, aFullDiskIsToldInWordsOfTheProgram) {
    const FullDisk disk(100);
    keeper.recorded(recording);
    EXPECT_EQ(std::vector<std::string>{"Disk full: there is no spare copy of the recording."},
              told);
    EXPECT_EQ("There is no spare copy of the recording: the last take cannot be kept as \"" +
                  stateFolder() + "/last-take.wav\": File too large",
              sentences.at(0));
}

TEST_F(TakeKeeperTest, anotherReasonIsToldWithoutTheFile) {
    folders.write("state", "a file where the folder should be");
    keeper.recorded(recording);
    EXPECT_EQ("There is no spare copy of the recording: Not a directory", told.at(0));
}

TEST_F(TakeKeeperTest, atTheEndAFullDiskKeepsTheBeginningOfTheTake) {
    constexpr size_t kLimit = 100000;
    const Samples longTake = TestSounds::noise(160000, 8);
    keeper.recorded(file);
    {
        const FullDisk disk(kLimit);
        keeper.recorded(longTake);
        keeper.takeDeleted();
        Samples samples;
        EXPECT_EQ("", keeper.bringBack(samples));
        EXPECT_EQ(longTake, samples);  // the program goes on: the whole take is in memory
        told.clear();
        keeper.end();
    }
    const Samples kept = broughtBack();
    EXPECT_GE(kLimit, 44 + 2 * kept.size());
    EXPECT_LE(kLimit, 44 + 2 * kept.size() + 8192);
    EXPECT_EQ(Samples(longTake.begin(), longTake.begin() + static_cast<ptrdiff_t>(kept.size())),
              kept);
    const std::string tenths = std::to_string(kept.size() / 1600);
    EXPECT_EQ(std::vector<std::string>{"Disk full: " + tenths.substr(0, 1) + "." +
                                       tenths.substr(1) + " of 10 seconds kept."},
              told);
}

TEST_F(TakeKeeperTest, atTheEndAFullDiskKeepsTheRecordingAndNotTheBeginningOfAFile) {
    keeper.recorded(recording);
    const Samples longFile = TestSounds::noise(160000, 8);
    {
        const FullDisk disk(100000);
        keeper.used(longFile);
        keeper.end();
    }
    EXPECT_EQ(recording, broughtBack());
    EXPECT_EQ(std::vector<std::string>{"Disk full: there is no spare copy of the recording."},
              told);
}

TEST_F(TakeKeeperTest, aRecordingThatIsNotKeptIsToldOnce) {
    const FullDisk disk(20);
    keeper.recorded(recording);
    keeper.takeDeleted();
    EXPECT_EQ(1U, told.size());
}

TEST_F(TakeKeeperTest, atTheEndAFullDiskWithoutAnyRoomIsTold) {
    const FullDisk disk(20);
    keeper.recorded(recording);
    told.clear();
    keeper.end();
    EXPECT_EQ(std::vector<std::string>{"Disk full: there is no spare copy of the recording."},
              told);
}

TEST_F(TakeKeeperTest, atTheEndTheBeginningIsSyncedToo) {
    std::vector<std::function<Problem()>> syncs;
    TakeKeeper patient(stateFolder(), note(),
                       [&](std::function<Problem()> sync) { syncs.push_back(std::move(sync)); });
    {
        const FullDisk disk(500);
        patient.recorded(recording);
        patient.end();
    }
    ASSERT_EQ(1U, syncs.size());
    EXPECT_EQ("", syncs[0]());
    EXPECT_TRUE(folders.has("state/murmelo/last-take.wav"));
    EXPECT_FALSE(broughtBack().empty());
}

TEST_F(TakeKeeperTest, atTheEndADiskThatIsFullAtTheSyncKeepsTheBeginningOfTheTake) {
    const Samples longTake = TestSounds::noise(16000, 8);
    std::vector<std::function<Problem()>> syncs;
    TakeKeeper patient(stateFolder(), note(),
                       [&](std::function<Problem()> sync) { syncs.push_back(std::move(sync)); });
    keeper.recorded(file);
    patient.recorded(longTake);
    patient.end();
    const FullAtSync disk(10000);
    for (size_t i = 0; i < syncs.size(); i++) {
        patient.synced(syncs[i]());
    }
    EXPECT_EQ(Samples(longTake.begin(), longTake.begin() + 4000), broughtBack());
    EXPECT_TRUE(folders.has("state/murmelo/last-take.wav"));
    EXPECT_FALSE(folders.has("state/murmelo/last-take.wav.next"));
    EXPECT_EQ(std::vector<std::string>{"Disk full: 0.2 of 1 seconds kept."}, told);
}

TEST_F(TakeKeeperTest, atTheEndASyncThatNeverHasRoomKeepsTheEarlierTake) {
    keeper.recorded(file);
    const FullAtSync disk(20);
    keeper.recorded(recording);
    told.clear();
    keeper.end();
    EXPECT_EQ(TestSounds::wav(file, 16000), folders.read("state/murmelo/last-take.wav"));
    EXPECT_EQ(std::vector<std::string>{"Disk full: there is no spare copy of the recording."},
              told);
}

TEST_F(TakeKeeperTest, aDiskThatIsFullAtTheSyncIsToldWhileTheProgramGoesOn) {
    const FullAtSync disk(20);
    keeper.recorded(recording);
    EXPECT_EQ(std::vector<std::string>{"Disk full: there is no spare copy of the recording."},
              told);
    EXPECT_EQ(recording, broughtBackBy(keeper));
}

TEST_F(TakeKeeperTest, atTheEndALimitOnTheSizeOfFilesKeepsTheEarlierTake) {
    keeper.recorded(file);
    {
        const FullDisk disk(20);
        keeper.recorded(recording);
        keeper.end();
    }
    EXPECT_EQ(file, broughtBack());  // deleting it would make no room
}

namespace {

class TakeKeeperOnASmallDisk : public TakeKeeperTest {
protected:
    void SetUp() override {
        if (!disk.isMounted()) {
            GTEST_SKIP() << "a file system cannot be mounted here";
        }
    }

    SmallDisk disk{stateFolder()};
    Samples longTake = TestSounds::noise(160000, 8);
};

}  // namespace

TEST_F(TakeKeeperOnASmallDisk, atTheEndTheEarlierTakeGivesItsRoomOnlyToALongerBeginning) {
    const Samples earlier = TestSounds::noise(40000, 3);
    keeper.recorded(earlier);
    disk.fill(20000);
    keeper.recorded(longTake);
    told.clear();
    keeper.end();
    const Samples kept = broughtBack();
    EXPECT_LE(36000U, kept.size());  // what the earlier one had, and not the 10000 beside it
    EXPECT_GT(longTake.size(), kept.size());
    EXPECT_EQ(Samples(longTake.begin(), longTake.begin() + static_cast<ptrdiff_t>(kept.size())),
              kept);
    EXPECT_EQ(1U, told.size());
}

TEST_F(TakeKeeperOnASmallDisk, atTheEndAShortEarlierTakeGivesNothingToTheBeginning) {
    keeper.recorded(file);
    disk.fill(100000);
    keeper.recorded(longTake);
    keeper.end();
    EXPECT_LE(45000U, broughtBack().size());
}

TEST_F(TakeKeeperTest, aFileDoesNotReplaceATakeThatTheDiskRefused) {
    {
        const FullDisk disk(100);
        keeper.recorded(recording);
        keeper.used(file);
    }
    Samples samples;
    EXPECT_EQ("", keeper.bringBack(samples));
    EXPECT_EQ(recording, samples);
    keeper.broughtBack();
    keeper.takeDeleted();
    EXPECT_EQ(recording, broughtBack());
}

TEST_F(TakeKeeperTest, theDiskIsWaitedForAlsoAfterItRefused) {
    std::vector<std::function<Problem()>> syncs;
    TakeKeeper patient(stateFolder(), note(),
                       [&](std::function<Problem()> sync) { syncs.push_back(std::move(sync)); });
    {
        const FullDisk disk(100);
        patient.recorded(recording);
    }
    EXPECT_TRUE(syncs.empty());
    patient.takeDeleted();
    ASSERT_EQ(1U, syncs.size());
    EXPECT_EQ("", syncs[0]());
    EXPECT_EQ(TestSounds::wav(recording, 16000), folders.read("state/murmelo/last-take.wav"));
    patient.takeDeleted();
    EXPECT_EQ(1U, syncs.size());
}

TEST_F(TakeKeeperTest, theLastTakeIsTheProgramsUnlessThatIsNotKept) {
    EXPECT_EQ("", last.keep(otherFile));  // in an earlier run
    EXPECT_TRUE(keeper.isThere());
    EXPECT_FALSE(keeper.isPrograms());
    keeper.recorded(recording);
    EXPECT_TRUE(keeper.isPrograms());
    keeper.takeDeleted();
    EXPECT_TRUE(keeper.isPrograms());  // it was
    keeper.recorded({});               // silence
    EXPECT_FALSE(keeper.isPrograms());
    keeper.broughtBack();
    EXPECT_TRUE(keeper.isPrograms());
    keeper.used(file);
    EXPECT_FALSE(keeper.isPrograms());  // the recording before is kept
    keeper.takeDeleted();
    EXPECT_TRUE(keeper.isPrograms());
    EXPECT_EQ("", keeper.forget());
    EXPECT_FALSE(keeper.isPrograms());
    keeper.used(file);
    EXPECT_TRUE(keeper.isPrograms());
    const FullDisk disk(100);
    keeper.recorded(recording);
    EXPECT_TRUE(keeper.isPrograms());  // in memory
}

TEST_F(TakeKeeperTest, aTakeThatCannotBeKeptIsReported) {
    folders.write("state", "a file where the folder should be");
    keeper.recorded(recording);
    EXPECT_EQ(1U, told.size());
}
