// SPDX-License-Identifier: MIT
// Files are replaced, renamed and moved aside without losing any, whatever has their name.
#include "SafeFile.h"
#include "TestFolders.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

class SafeFileTest : public testing::Test {
protected:
    void link(const std::string& target, const std::string& name) {
        ASSERT_EQ(0, symlink(target.c_str(), folders.path(name).c_str()));
    }

    bool isLink(const std::string& name) { return fs::is_symlink(folders.path(name)); }

    /// Writes a file in all the steps that the header describes.
    bool save(const std::string& name, const std::string& text) {
        const std::string target = SafeFile::realTarget(folders.path(name));
        const int fd = SafeFile::create(target + ".new");
        EXPECT_LE(0, fd) << std::strerror(errno);
        EXPECT_EQ(static_cast<ssize_t>(text.size()), write(fd, text.data(), text.size()));
        return SafeFile::finish(fd) && SafeFile::replace(target + ".new", target);
    }

    TestFolders folders;
};

/// As on a file system that cannot rename to a free name in one step.
bool noStep(const std::string& /*from*/, const std::string& /*to*/) {
    errno = EINVAL;
    return false;
}

bool failsToRename(const std::string& /*from*/, const std::string& /*to*/) {
    errno = EIO;
    return false;
}

}  // namespace

TEST_F(SafeFileTest, aFileIsReplacedAndNothingElseIsLeft) {
    folders.write("a/sound", "old");
    EXPECT_TRUE(save("a/sound", "new"));
    EXPECT_EQ("new", folders.read("a/sound"));
    EXPECT_FALSE(folders.has("a/sound.new"));
}

TEST_F(SafeFileTest, linksAreFollowedToTheirEndEvenIfNothingIsThereYet) {
    folders.makeFolder("a");
    folders.makeFolder("b");
    link("../b/second", "a/first");
    link(folders.path("b/sound"), "b/second");
    EXPECT_EQ(folders.path("b/sound"), SafeFile::realTarget(folders.path("a/first")));
    EXPECT_TRUE(save("a/first", "new"));
    EXPECT_EQ("new", folders.read("b/sound"));
    EXPECT_TRUE(save("a/first", "newer"));
    EXPECT_EQ("newer", folders.read("b/sound"));
    EXPECT_TRUE(isLink("a/first"));
    EXPECT_TRUE(isLink("b/second"));
}

TEST_F(SafeFileTest, aCircleOfLinksIsNotFollowed) {
    link("two", "one");
    link("one", "two");
    EXPECT_EQ(folders.path("one"), SafeFile::realTarget(folders.path("one")));
}

TEST_F(SafeFileTest, aNewFileTakesThePlaceOfAnUnfinishedOneOnly) {
    folders.write("a.part", "half a so");
    const int fd = SafeFile::create(folders.path("a.part"));
    ASSERT_LE(0, fd);
    EXPECT_TRUE(SafeFile::finish(fd));
    EXPECT_EQ("", folders.read("a.part"));
    EXPECT_FALSE(folders.has("a.part.aside-1"));
    folders.remove("a.part");
    link("elsewhere", "a.part");
    const int beside = SafeFile::create(folders.path("a.part"));
    ASSERT_LE(0, beside);
    EXPECT_TRUE(SafeFile::finish(beside));
    EXPECT_TRUE(isLink("a.part.aside-1"));
    EXPECT_FALSE(folders.has("elsewhere"));
}

TEST_F(SafeFileTest, failuresTellTheirReason) {
    EXPECT_EQ(-1, SafeFile::create(folders.path("missing/a")));
    EXPECT_EQ(ENOENT, errno);
    EXPECT_FALSE(SafeFile::finish(-1));
    EXPECT_EQ(EBADF, errno);
    EXPECT_FALSE(SafeFile::replace(folders.path("missing"), folders.path("a")));
    EXPECT_EQ(ENOENT, errno);
    EXPECT_FALSE(SafeFile::syncFolderOf(folders.path("missing/a")));
    EXPECT_EQ(ENOENT, errno);
}

TEST_F(SafeFileTest, aFolderWithoutANameInFrontIsTheCurrentOne) {
    const fs::path before = fs::current_path();
    fs::current_path(folders.path(""));
    EXPECT_TRUE(SafeFile::syncFolderOf("a"));
    fs::current_path(before);
}

TEST_F(SafeFileTest, movingAsideTakesTheFirstFreeNumber) {
    EXPECT_TRUE(SafeFile::moveAside(folders.path("a")));  // nothing lies there already
    folders.write("a.aside-2", "second");
    for (const char* text : {"first", "third"}) {
        folders.write("a", text);
        EXPECT_TRUE(SafeFile::moveAside(folders.path("a")));
        EXPECT_FALSE(folders.has("a"));
    }
    EXPECT_EQ("first", folders.read("a.aside-1"));
    EXPECT_EQ("second", folders.read("a.aside-2"));
    EXPECT_EQ("third", folders.read("a.aside-3"));
}

TEST_F(SafeFileTest, movingAsideTellsTheNewName) {
    std::string name = "before";
    EXPECT_TRUE(SafeFile::moveAside(folders.path("a"), &name));
    EXPECT_EQ("", name);
    folders.write("a", "mine");
    EXPECT_TRUE(SafeFile::moveAside(folders.path("a"), &name));
    EXPECT_EQ(folders.path("a.aside-1"), name);
}

TEST_F(SafeFileTest, whateverIsRenamedToAFreeNameInTwoStepsArrivesWhole) {
    folders.write("file", "mine");
    folders.write("folder/inside", "mine");
    link("nowhere", "link");
    for (const std::string name : {"file", "folder", "link"}) {
        const std::string to = folders.path("new " + name);
        EXPECT_TRUE(SafeFile::renameToFree(folders.path(name), to, noStep)) << name;
        EXPECT_FALSE(folders.has(name)) << name;
    }
    EXPECT_EQ("mine", folders.read("new file"));
    EXPECT_EQ("mine", folders.read("new folder/inside"));
    EXPECT_TRUE(isLink("new link"));
}

TEST_F(SafeFileTest, aNameThatIsTakenIsNotRenamedOverInTwoSteps) {
    folders.write("file", "mine");
    folders.write("taken", "foreign");
    EXPECT_FALSE(SafeFile::renameToFree(folders.path("file"), folders.path("taken"), noStep));
    EXPECT_EQ(EEXIST, errno);
    EXPECT_EQ("mine", folders.read("file"));
    EXPECT_EQ("foreign", folders.read("taken"));
}

TEST_F(SafeFileTest, aRenamingInTwoStepsThatFailsLeavesNothingEmpty) {
    folders.write("file", "mine");
    folders.makeFolder("folder");
    for (const char* name : {"file", "folder"}) {
        EXPECT_FALSE(
            SafeFile::renameToFree(folders.path(name), folders.path("new"), noStep, failsToRename));
        EXPECT_EQ(EIO, errno);
        EXPECT_TRUE(folders.has(name));
        EXPECT_FALSE(folders.has("new"));
    }
    EXPECT_FALSE(SafeFile::renameToFree(folders.path("missing"), folders.path("new"), noStep));
    EXPECT_EQ(ENOENT, errno);
    EXPECT_FALSE(folders.has("new"));
}

TEST_F(SafeFileTest, aLinkIsMovedAsideAndNotWhatItLeadsTo) {
    folders.write("b", "mine");
    link("b", "a");
    link("nowhere", "a.aside-1");
    EXPECT_TRUE(SafeFile::moveAside(folders.path("a")));
    EXPECT_EQ("mine", folders.read("b"));
    EXPECT_EQ("mine", folders.read("a.aside-2"));
    EXPECT_TRUE(isLink("a.aside-1"));
}

TEST_F(SafeFileTest, whatCannotBeRenamedIsNotMovedAside) {
    const std::string name(255, 'n');  // no longer name is possible
    folders.write(name, "mine");
    EXPECT_FALSE(SafeFile::moveAside(folders.path(name)));
    EXPECT_EQ(ENAMETOOLONG, errno);
    EXPECT_EQ("mine", folders.read(name));
}

TEST_F(SafeFileTest, whatIsNoOrdinaryFileIsNamed) {
    folders.write("file", "");
    ASSERT_EQ(0, mkfifo(folders.path("pipe").c_str(), 0600));
    link("pipe", "link");
    link("file", "fine");
    EXPECT_EQ("", SafeFile::whyNotOrdinary(folders.path("file")));
    EXPECT_EQ("", SafeFile::whyNotOrdinary(folders.path("fine")));
    EXPECT_EQ("", SafeFile::whyNotOrdinary(folders.path("missing")));
    EXPECT_EQ("is a folder", SafeFile::whyNotOrdinary(folders.path("")));
    EXPECT_EQ("is a pipe", SafeFile::whyNotOrdinary(folders.path("pipe")));
    EXPECT_EQ("is a pipe", SafeFile::whyNotOrdinary(folders.path("link")));
    EXPECT_EQ("is a device", SafeFile::whyNotOrdinary("/dev/null"));
}
