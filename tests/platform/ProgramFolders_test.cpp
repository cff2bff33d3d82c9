#include "ProgramFolders.h"
#include "TestFolders.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

constexpr const char* kLock = ".murmelo.lock";

}  // namespace

TEST(HomeLock, aHomeThatIsHeldIsRefusedUntilItIsLetGo) {
    const TestFolders folders;
    auto first = std::make_unique<HomeLock>();
    EXPECT_EQ("", first->take(folders.path("")));
    EXPECT_NE(std::string::npos, HomeLock().take(folders.path("")).find("already running"));
    first = nullptr;
    EXPECT_EQ("", HomeLock().take(folders.path("")));
}

TEST(HomeLock, nothingStaysInTheHomeAfterwards) {
    const TestFolders folders;
    {
        HomeLock lock;
        EXPECT_EQ("", lock.take(folders.path("")));
        EXPECT_TRUE(folders.has(kLock));
    }
    EXPECT_FALSE(folders.has(kLock));
}

TEST(HomeLock, whoIsRefusedLeavesTheLockOfTheOther) {
    const TestFolders folders;
    HomeLock lock;
    EXPECT_EQ("", lock.take(folders.path("")));
    EXPECT_NE("", HomeLock().take(folders.path("")));
    EXPECT_TRUE(folders.has(kLock));
    EXPECT_NE("", HomeLock().take(folders.path("")));
}

TEST(HomeLock, theFileOfAProgramThatWasKilledIsTakenOver) {
    const TestFolders folders;
    folders.write(kLock, "");
    {
        HomeLock lock;
        EXPECT_EQ("", lock.take(folders.path("")));
    }
    EXPECT_FALSE(folders.has(kLock));
}

// Somebody empties the folder while the program runs, and starts another one there.
TEST(HomeLock, aFileThatReplacedItsOwnIsNotTakenAway) {
    const TestFolders folders;
    {
        HomeLock lock;
        EXPECT_EQ("", lock.take(folders.path("")));
        folders.remove(kLock);
        folders.write(kLock, "of another");
    }
    EXPECT_EQ("of another", folders.read(kLock));
}

TEST(HomeLock, aHomeThatIsGoneAtTheEndIsNoMatter) {
    const TestFolders folders;
    folders.makeFolder("home");
    HomeLock lock;
    EXPECT_EQ("", lock.take(folders.path("home")));
    folders.remove("home");
    EXPECT_NE("", HomeLock().take(folders.path("home")));
}
