// SPDX-License-Identifier: MIT
// New folders are synced before a file in them counts as kept: a power cut could remove both.
#include "DiskSync.h"
#include "LastTake.h"
#include "ReplacedFile.h"
#include "SafeFile.h"
#include "TestFolders.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <string>
#include <sys/stat.h>

namespace {

class FolderSyncTest : public testing::Test {
protected:
    FolderSyncTest() { DiskSync::synced.clear(); }

    bool isSynced(const std::string& name) const {
        return DiskSync::synced.count(std::filesystem::canonical(folders.path(name)).string()) != 0;
    }

    TestFolders folders;
};

}  // namespace

TEST_F(FolderSyncTest, theFirstTakeOutlivesAPowerCut) {
    EXPECT_EQ("", LastTake(folders.path("state/a/murmelo")).keep({1, 2, 3}));
    for (const char* folder : {".", "state", "state/a", "state/a/murmelo"}) {
        EXPECT_TRUE(isSynced(folder)) << folder;
    }
    struct stat facts = {};
    ASSERT_EQ(0, stat(folders.path("state/a/murmelo").c_str(), &facts));
    EXPECT_EQ(0700U, facts.st_mode & 07777U);
}

TEST_F(FolderSyncTest, theFirstSettingOutlivesAPowerCut) {
    EXPECT_TRUE(ReplacedFile::write(folders.path("config/a/window"), "480 800\n"));
    for (const char* folder : {".", "config", "config/a"}) {
        EXPECT_TRUE(isSynced(folder)) << folder;
    }
}

TEST_F(FolderSyncTest, aFolderThatIsThereNeedsNothing) {
    folders.makeFolder("config/a");
    EXPECT_TRUE(SafeFile::makeFolders(folders.path("config/a"), 0777));
    EXPECT_TRUE(SafeFile::makeFolders(folders.path("config/a/"), 0777));
    EXPECT_TRUE(DiskSync::synced.empty());
}

TEST_F(FolderSyncTest, aFileInTheWayIsToldByErrno) {
    folders.write("config", "a file");
    EXPECT_FALSE(SafeFile::makeFolders(folders.path("config/a"), 0777));
    EXPECT_EQ(ENOTDIR, errno);
    EXPECT_FALSE(SafeFile::makeFolders(folders.path("config"), 0777));
    EXPECT_EQ(EEXIST, errno);
}
