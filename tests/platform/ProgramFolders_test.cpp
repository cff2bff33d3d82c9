// SPDX-License-Identifier: MIT
// The program finds its folders by options, variables and the desktop's settings, and locks them.
#include "ProgramFolders.h"
#include "TestFolders.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <map>
#include <memory>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr const char* kLock = ".murmelo.lock";

/// A user with a home and pictures, and nothing else in the environment that names a folder.
class ProgramFoldersTest : public testing::Test {
protected:
    ProgramFoldersTest() {
        for (const char* name : {"HOME", "MURMELO_DATA", "MURMELO_HOME", "XDG_CONFIG_HOME",
                                 "XDG_DATA_HOME", "XDG_STATE_HOME"}) {
            const char* value = std::getenv(name);
            before[name] = value != nullptr ? std::make_unique<std::string>(value) : nullptr;
            unsetenv(name);
        }
        folders.makeFolder("data/Res");
        folders.makeFolder("user/.config");
        setenv("MURMELO_DATA", folders.path("data").c_str(), 1);
        setenv("HOME", folders.path("user").c_str(), 1);
    }

    ~ProgramFoldersTest() override {
        for (const auto& [name, value] : before) {
            value != nullptr ? setenv(name.c_str(), value->c_str(), 1) : unsetenv(name.c_str());
        }
    }

    /// Finds the folders with a home given on the command line, or without one.
    HostFolders find(const std::string& home = "") const {
        HostFolders found;
        EXPECT_EQ("", ProgramFolders::find(home, "", found));
        return found;
    }

    std::string real(const std::string& name) const {
        return std::filesystem::canonical(folders.path(name)).string();
    }

    /// Asks in a child process without rights, because root can read everything.
    static bool isWhatAUserWithoutRightsHears(const HostFolders& found, const std::string& words) {
        constexpr uid_t kNobody = 65534;
        if (geteuid() == 0 && chown(found.sounds().c_str(), kNobody, kNobody) != 0) {
            return false;
        }
        const pid_t child = fork();
        if (child == 0) {
            if (geteuid() == 0 && setresuid(kNobody, kNobody, kNobody) != 0) {
                _exit(2);
            }
            const std::string error = ProgramFolders::whySoundsCannotBeKept(found).sentence();
            const bool fits = words.empty()
                                  ? error.empty()
                                  : error.find(found.sounds() + "\" " + words) != std::string::npos;
            _exit(fits ? 0 : 1);
        }
        int status = -1;
        return waitpid(child, &status, 0) == child && status == 0;
    }

    void link(const std::string& target, const std::string& name) {
        ASSERT_EQ(0, symlink(target.c_str(), folders.path(name).c_str()));
    }

    TestFolders folders;

private:
    std::map<std::string, std::unique_ptr<std::string>> before;
};

}  // namespace

TEST_F(ProgramFoldersTest, theLastTakeLiesInTheStateFolder) {
    EXPECT_EQ(folders.path("user/.local/state/murmelo"), find().state);
    EXPECT_FALSE(folders.has("user/.local/state"));  // made when a take is kept
    setenv("XDG_STATE_HOME", folders.path("state").c_str(), 1);
    EXPECT_EQ(folders.path("state/murmelo"), find().state);
    setenv("XDG_STATE_HOME", "not/from/the/root", 1);
    EXPECT_EQ(folders.path("user/.local/state/murmelo"), find().state);
}

TEST_F(ProgramFoldersTest, withoutAHomeTheLastTakeIsNotKept) {
    unsetenv("HOME");
    EXPECT_EQ("", find(folders.path("given")).state);
}

TEST_F(ProgramFoldersTest, theMusicFolderIsTheOneThatTheDesktopNames) {
    folders.makeFolder("user/Music");
    folders.makeFolder("user/Musik");
    folders.write("user/.config/user-dirs.dirs", "XDG_MUSIC_DIR=\"$HOME/Musik\"\n");
    EXPECT_EQ(real("user/Musik"), find().home);
    folders.write("user/.config/user-dirs.dirs", "XDG_MUSIC_DIR=\"$HOME/\"\n");
    const std::string made = find().home;
    EXPECT_EQ(real("user/.local/share/murmelo"), made);
    folders.write("user/.config/user-dirs.dirs", "XDG_DOWNLOAD_DIR=\"$HOME/\"\n");
    EXPECT_EQ(real("user/.local/share/murmelo"), find().home);
}

TEST_F(ProgramFoldersTest, withoutADesktopItIsMusicIfThereIsSuchAFolder) {
    EXPECT_EQ(folders.path("user/.local/share/murmelo"), find().home);
    folders.write("user/Music", "no folder");
    EXPECT_EQ(real("user/.local/share/murmelo"), find().home);
    folders.remove("user/Music");
    folders.makeFolder("user/Music");
    EXPECT_EQ(real("user/Music"), find().home);
    ASSERT_EQ(0, mkfifo(folders.path("user/.config/user-dirs.dirs").c_str(), 0600));
    EXPECT_EQ(real("user/.local/share/murmelo"), find().home);  // it names nothing
}

TEST_F(ProgramFoldersTest, theIconsLieBesideThePicturesOrWhereTheirLinkLeadsTo) {
    EXPECT_EQ("", ProgramFolders::icons());
    folders.remove("data/Res");
    folders.makeFolder("store/pictures");
    link("../store/pictures", "data/Res");
    EXPECT_EQ(real("store/pictures"), find().res);
    EXPECT_EQ("", ProgramFolders::icons());
    folders.makeFolder("store/icons");
    EXPECT_EQ(real("store/icons"), ProgramFolders::icons());
    folders.makeFolder("data/icons");
    EXPECT_EQ(folders.path("data/icons"), ProgramFolders::icons());
}

TEST_F(ProgramFoldersTest, theSoundFolderIsBelowTheHome) {
    folders.makeFolder("home/Murmelo");
    const HostFolders found = find(folders.path("home"));
    EXPECT_EQ("", found.soundFolder);
    EXPECT_EQ(real("home/Murmelo"), found.sounds());
    EXPECT_EQ("", ProgramFolders::whySoundsCannotBeKept(found));
}

TEST_F(ProgramFoldersTest, aSoundFolderThatIsALinkMayLeadAnywhere) {
    folders.makeFolder("disk/deep/sounds");
    folders.makeFolder("home");
    link(folders.path("disk/deep"), "disk/link");
    for (const std::string& target :
         {folders.path("disk/link/sounds"), std::string("../disk/link/sounds")}) {
        folders.remove("home/Murmelo");
        link(target, "home/Murmelo");
        const HostFolders found = find(folders.path("home"));
        EXPECT_EQ(real("disk/deep/sounds"), found.soundFolder);
        EXPECT_EQ(real("disk/deep/sounds"), found.sounds());
        EXPECT_EQ("", ProgramFolders::whySoundsCannotBeKept(found));
    }
}

TEST_F(ProgramFoldersTest, aSoundFolderThatIsALinkToNothingYetIsWhereItLeadsTo) {
    folders.makeFolder("home");
    link(folders.path("disk/sounds"), "home/Murmelo");
    const HostFolders found = find(folders.path("home"));
    EXPECT_EQ(folders.path("disk/sounds"), found.soundFolder);
    EXPECT_EQ("", ProgramFolders::whySoundsCannotBeKept(found));
    EXPECT_LT(0, ProgramFolders::freeBytes(found));
}

TEST_F(ProgramFoldersTest, twoHomesThatLeadToOneSoundFolderDoNotRunTogether) {
    folders.makeFolder("disk");
    for (const std::string home : {"one", "two"}) {
        folders.makeFolder(home);
        link("../disk", home + "/Murmelo");
    }
    {
        FolderLocks first;
        EXPECT_EQ("", first.take(find(folders.path("one"))));
        const std::string error = FolderLocks().take(find(folders.path("two"))).sentence();
        EXPECT_NE(std::string::npos, error.find("already running")) << error;
        EXPECT_NE(std::string::npos, error.find(real("disk"))) << error;
    }
    EXPECT_FALSE(folders.has(std::string("disk/") + kLock));
    EXPECT_EQ("", FolderLocks().take(find(folders.path("two"))));
}

TEST_F(ProgramFoldersTest, twoHomesThatLeadToASoundFolderThatIsStillToBeMadeDoNotRunTogether) {
    folders.makeFolder("disk");
    for (const std::string home : {"one", "two"}) {
        folders.makeFolder(home);
        link("../disk/sounds", home + "/Murmelo");
    }
    const HostFolders one = find(folders.path("one"));
    const HostFolders two = find(folders.path("two"));
    FolderLocks first;
    EXPECT_EQ("", first.take(one));
    const std::string error = FolderLocks().take(two).sentence();
    EXPECT_NE(std::string::npos, error.find("already running")) << error;
}

TEST_F(ProgramFoldersTest, aSoundFolderThatCannotBeMadeNeedsNoLock) {
    folders.makeFolder("home");
    link("../missing/sounds", "home/Murmelo");
    EXPECT_EQ("", FolderLocks().take(find(folders.path("home"))));
    EXPECT_FALSE(folders.has("missing"));
}

TEST_F(ProgramFoldersTest, theRoomForSoundsIsThatOfTheDiskWhereTheirFolderWillLie) {
    folders.makeFolder("home");
    link("/proc/missing/sounds", "home/Murmelo");  // a disk that has no room at all
    EXPECT_EQ(0, ProgramFolders::freeBytes(find(folders.path("home"))));
    folders.remove("home/Murmelo");
    EXPECT_LT(0, ProgramFolders::freeBytes(find(folders.path("home"))));
}

TEST_F(ProgramFoldersTest, aSoundFolderThatCannotBeReadSaysSo) {
    folders.makeFolder("home/Murmelo");
    const HostFolders found = find(folders.path("home"));
    for (const char* folder : {"", "home"}) {
        ASSERT_EQ(0, chmod(folders.path(folder).c_str(), 0755));
    }
    for (const auto& [mode, words] :
         {std::pair(0300, "cannot be read: Permission denied"),
          std::pair(0500, "cannot be written: Permission denied"), std::pair(0700, "")}) {
        ASSERT_EQ(0, chmod(found.sounds().c_str(), static_cast<mode_t>(mode)));
        EXPECT_TRUE(isWhatAUserWithoutRightsHears(found, words)) << words;
    }
}

TEST_F(ProgramFoldersTest, aSoundFolderThatLeadsToItsOwnHomeIsLockedOnce) {
    folders.makeFolder("home");
    link(".", "home/Murmelo");
    EXPECT_EQ("", FolderLocks().take(find(folders.path("home"))));
}

TEST_F(ProgramFoldersTest, aPathBelowTheHomeIsShownFromThere) {
    const std::string home = folders.path("user");
    EXPECT_EQ("~/Music/rec_00000.wav", ProgramFolders::shown(home + "/Music/rec_00000.wav"));
    EXPECT_EQ(home, ProgramFolders::shown(home));
    EXPECT_EQ(home + "s/a.wav", ProgramFolders::shown(home + "s/a.wav"));
    EXPECT_EQ("/media/a.wav", ProgramFolders::shown("/media/a.wav"));
    setenv("HOME", "/", 1);
    EXPECT_EQ("/media/a.wav", ProgramFolders::shown("/media/a.wav"));
    unsetenv("HOME");
    EXPECT_EQ("/media/a.wav", ProgramFolders::shown("/media/a.wav"));
}

TEST(HomeLock, aLinkInItsPlaceIsNotFollowed) {
    const TestFolders folders;
    folders.write("mine", "precious");
    for (const char* target : {"mine", "nothing yet"}) {
        folders.remove(kLock);
        ASSERT_EQ(0, symlink(target, folders.path(kLock).c_str()));
        EXPECT_EQ("\"" + folders.path("") + "/" + kLock +
                      "\" is not a lock file of Murmelo: remove it",
                  HomeLock().take(folders.path("")));
        EXPECT_TRUE(std::filesystem::is_symlink(folders.path(kLock)));
    }
    EXPECT_EQ("precious", folders.read("mine"));
    EXPECT_FALSE(folders.has("nothing yet"));
}

TEST(HomeLock, aPipeInItsPlaceStays) {
    const TestFolders folders;
    ASSERT_EQ(0, mkfifo(folders.path(kLock).c_str(), 0600));
    EXPECT_NE("", HomeLock().take(folders.path("")));
    EXPECT_TRUE(folders.has(kLock));
}

TEST(HomeLock, aFolderOrASocketInItsPlaceIsCalledWhatItIs) {
    const TestFolders folders;
    const std::string words = "is not a lock file of Murmelo: remove it";
    folders.makeFolder(kLock);
    EXPECT_NE(std::string::npos, HomeLock().take(folders.path("")).sentence().find(words));
    EXPECT_TRUE(folders.has(kLock));
    folders.remove(kLock);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const std::string path = folders.path(kLock);
    ASSERT_LT(path.size(), sizeof address.sun_path);
    std::memcpy(address.sun_path, path.c_str(), path.size());
    const int server = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(0, bind(server, reinterpret_cast<const sockaddr*>(&address), sizeof address));
    EXPECT_NE(std::string::npos, HomeLock().take(folders.path("")).sentence().find(words));
    EXPECT_TRUE(folders.has(kLock));
    close(server);
}

TEST(HomeLock, aHomeThatIsHeldIsRefusedUntilItIsLetGo) {
    const TestFolders folders;
    auto first = std::make_unique<HomeLock>();
    EXPECT_EQ("", first->take(folders.path("")));
    EXPECT_NE(std::string::npos,
              HomeLock().take(folders.path("")).sentence().find("already running"));
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

// Another program has emptied the folder while this one runs, and has taken the lock.
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
