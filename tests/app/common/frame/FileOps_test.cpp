// SPDX-License-Identifier: MIT
// Sounds get free numbers, and files are moved, copied and deleted without losing one.
#include "FileOps.h"
#include "TestFolders.h"
#include "TestHost.h"

#include <gtest/gtest.h>

#include <memory>

using Osp::Base::String;

namespace {

class FileOpsTest : public testing::Test {
protected:
    void SetUp() override {
        host.mapHome(folders);
        FileOps::static_ctor();
        FileOps::mkdir("/Home/Murmelo/");
    }

    void TearDown() override { FileOps::static_dtor(); }

    static std::string nextName() {
        const std::unique_ptr<String> name(
            FileOps::getNextAvailableName("/Home/Murmelo/", "rec_", ".wav"));
        return name != nullptr ? name->ToUtf8() : "none";
    }

    void put(const std::string& name) { folders.write("home/Murmelo/" + name, "x"); }

    TestFolders folders;
    TestHost host;
};

}  // namespace

TEST_F(FileOpsTest, anEmptyFolderBeginsAtZero) {
    EXPECT_EQ("rec_00000.wav", nextName());
}

TEST_F(FileOpsTest, theHighestNumberCounts) {
    put("rec_00007.wav");
    put("rec_00012.wav");
    EXPECT_EQ("rec_00013.wav", nextName());
}

TEST_F(FileOpsTest, namesThatAreNotOursAreIgnored) {
    put("rec_7.wav");
    put("rec_.wav");
    put("rec_0001x.wav");
    put("rec_00044.txt");
    put("old_00044.wav");
    EXPECT_EQ("rec_00000.wav", nextName());
}

TEST_F(FileOpsTest, aSixthDigitIsNotRead) {
    put("rec_000123.wav");
    EXPECT_EQ("rec_00013.wav", nextName());
}

TEST_F(FileOpsTest, theLastNumberIsUsedAgainAndAgain) {
    put("rec_99999.wav");
    EXPECT_EQ("rec_99999.wav", nextName());
    EXPECT_TRUE(FileOps::exists("/Home/Murmelo/rec_99999.wav"));
    EXPECT_EQ("rec_99999.wav", nextName());
}

TEST_F(FileOpsTest, theLastNumberTriesToRemoveAFileOfItsBareNameFirst) {
    put("rec_99999.wav");
    host.failNth("File.Remove", 1);
    EXPECT_EQ("rec_99999.wav", nextName());
    // That attempt has used the failure up.
    EXPECT_TRUE(FileOps::deleteFile("/Home/Murmelo/rec_99999.wav"));
}

TEST_F(FileOpsTest, anyOtherNumberRemovesNothing) {
    put("rec_99998.wav");
    host.failNth("File.Remove", 1);
    EXPECT_EQ("rec_99999.wav", nextName());
    EXPECT_FALSE(FileOps::deleteFile("/Home/Murmelo/rec_99998.wav"));
}

TEST_F(FileOpsTest, aMissingFolderIsMade) {
    folders.remove("home/Murmelo");
    EXPECT_EQ("rec_00000.wav", nextName());
    EXPECT_TRUE(FileOps::exists("/Home/Murmelo/"));
}

TEST_F(FileOpsTest, aFolderThatCannotBeMadeGivesNoName) {
    folders.remove("home/Murmelo");
    host.failNth("Directory.Create", 1);
    EXPECT_EQ("none", nextName());
}

TEST_F(FileOpsTest, deletingReportsWhatIsMissing) {
    put("a.wav");
    String folder("/Home/Murmelo/");
    String name("a.wav");
    EXPECT_TRUE(FileOps::exists(&folder, &name));
    EXPECT_TRUE(FileOps::deleteFile(&folder, &name));
    EXPECT_FALSE(FileOps::deleteFile(&folder, &name));
    put("a.wav");
    host.failNth("File.Remove", 1);
    EXPECT_FALSE(FileOps::deleteFile("/Home/Murmelo/a.wav"));
}

TEST_F(FileOpsTest, whatIsNoFileIsMovedAsideInsteadOfDeleted) {
    put("a.wav/inside.txt");
    EXPECT_TRUE(FileOps::deleteFile("/Home/Murmelo/a.wav"));
    EXPECT_EQ("x", folders.read("home/Murmelo/a.wav.aside-1/inside.txt"));
    EXPECT_FALSE(FileOps::deleteFile("/Home/Murmelo/a.wav"));
}

TEST_F(FileOpsTest, makingWayLeavesTheNameFreeOrSaysThatItIsNot) {
    EXPECT_TRUE(FileOps::makeWay("/Home/Murmelo/a.wav"));
    put("a.wav");
    EXPECT_TRUE(FileOps::makeWay("/Home/Murmelo/a.wav"));
    EXPECT_FALSE(folders.has("home/Murmelo/a.wav"));
    put("a.wav");
    host.failNth("File.Remove", 1);
    EXPECT_FALSE(FileOps::makeWay("/Home/Murmelo/a.wav"));
    EXPECT_TRUE(folders.has("home/Murmelo/a.wav"));
    put("b.wav/inside.txt");
    host.failNth("File.MoveAside", 1);
    EXPECT_FALSE(FileOps::makeWay("/Home/Murmelo/b.wav"));
    EXPECT_TRUE(FileOps::makeWay("/Home/Murmelo/b.wav"));
}

TEST_F(FileOpsTest, copyingToAFreeNameTellsWhetherItWasTaken) {
    put("a.wav");
    bool isTaken = true;
    EXPECT_TRUE(FileOps::copyToFree("/Home/Murmelo/a.wav", "/Home/Murmelo/b.wav", isTaken));
    EXPECT_FALSE(isTaken);
    EXPECT_FALSE(FileOps::copyToFree("/Home/Murmelo/a.wav", "/Home/Murmelo/b.wav", isTaken));
    EXPECT_TRUE(isTaken);
    EXPECT_FALSE(FileOps::copyToFree("/Home/Murmelo/none.wav", "/Home/Murmelo/b.wav", isTaken));
    EXPECT_FALSE(isTaken);
}

TEST_F(FileOpsTest, copyingMayKeepTheOldFile) {
    put("a.wav");
    folders.write("home/Murmelo/b.wav", "old");
    EXPECT_TRUE(FileOps::copyKeeping("/Home/Murmelo/a.wav", "/Home/Murmelo/b.wav"));
    EXPECT_EQ("x", folders.read("home/Murmelo/b.wav"));
    EXPECT_EQ("old", folders.read("home/Murmelo/b.wav.aside-1"));
}

TEST_F(FileOpsTest, copyingOverwrites) {
    put("a.wav");
    folders.write("home/Murmelo/b.wav", "something longer");
    EXPECT_TRUE(FileOps::copy("/Home/Murmelo/a.wav", "/Home/Murmelo/b.wav"));
    EXPECT_EQ("x", folders.read("home/Murmelo/b.wav"));
    EXPECT_FALSE(FileOps::copy("/Home/Murmelo/none.wav", "/Home/Murmelo/c.wav"));
}

TEST_F(FileOpsTest, makingAFolderMakesNoParents) {
    EXPECT_TRUE(FileOps::mkdir("/Home/Murmelo/"));
    EXPECT_TRUE(FileOps::mkdir("/Home/Other"));
    EXPECT_FALSE(FileOps::mkdir("/Home/No/Such"));
}

TEST_F(FileOpsTest, storageIsBytesOrUnknown) {
    host.phoneBytes = 1025;
    host.cardBytes = -1;
    EXPECT_EQ(1025, FileOps::getAvailPhone());
    EXPECT_EQ(-1, FileOps::getAvailMemCard());
    host.phoneBytes = int64_t{5} << 40;
    EXPECT_EQ(0x7FFFFFFF, FileOps::getAvailPhone());
}

TEST_F(FileOpsTest, aTestWriteIsNeverDone) {
    String path("/Home/Murmelo/");
    EXPECT_FALSE(FileOps::testWrite(&path, 10));
}
