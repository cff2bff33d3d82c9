// SPDX-License-Identifier: MIT
// The phone's files and folders reach only the mapped roots, and report every failure.
#include "FullDisk.h"
#include "OspIo.h"
#include "TestFolders.h"
#include "TestHost.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

using Osp::Base::String;
using Osp::Io::Directory;
using Osp::Io::DirEnumerator;
using Osp::Io::File;

namespace {

/// A phone with its three roots in a temporary folder, and a secret outside them.
class OspIo : public testing::Test {
protected:
    OspIo() {
        folders.write("secret.txt", "secret");
        folders.makeFolder("home/Murmelo");
        folders.write("res/logo.png", "picture");
        folders.write("framework/image/font/default.bmf", "font");
        host.mappedFolders.home = folders.path("home");
        host.mappedFolders.res = folders.path("res");
        host.mappedFolders.framework = folders.path("framework");
    }

    void writeHome(const std::string& name, const std::string& content) {
        folders.write("home/" + name, content);
    }

    std::string home(const std::string& name) { return folders.read("home/" + name); }

    bool homeHas(const std::string& name) { return folders.has("home/" + name); }

    void removeHome(const std::string& name) { folders.remove("home/" + name); }

    void link(const std::string& target, const std::string& name) {
        linkAt(target, "home/" + name);
    }

    void linkAt(const std::string& target, const std::string& name) {
        ASSERT_EQ(0, symlink(target.c_str(), folders.path(name).c_str()));
    }

    TestFolders folders;
    TestHost host;
};

bool opens(const String& path, const char* mode = "rb") {
    File file;
    return file.Construct(path, mode) == E_SUCCESS;
}

std::string contentOf(const String& path) {
    File file;
    char bytes[64] = {};
    file.Construct(path, "rb");
    const int32_t count = file.Read(bytes, sizeof bytes);
    return count < 0 ? "failed" : std::string(bytes, static_cast<size_t>(count));
}

std::vector<std::string> namesIn(const char* path) {
    std::vector<std::string> names;
    Directory folder;
    if (folder.Construct(path) != E_SUCCESS) {
        return {"failed"};
    }
    const std::unique_ptr<DirEnumerator> entries(folder.ReadN());
    while (entries != nullptr && entries->MoveNext() == E_SUCCESS) {
        names.push_back(entries->GetCurrentDirEntry().GetName().ToUtf8());
    }
    return names;
}

}  // namespace

TEST_F(OspIo, theThreeRootsLeadToTheirFolders) {
    writeHome("a.txt", "mine");
    EXPECT_EQ("mine", contentOf("/Home/a.txt"));
    EXPECT_EQ("picture", contentOf("/Res/logo.png"));
    EXPECT_EQ("font", contentOf("/com/tallowin/orm/image/font/default.bmf"));
    EXPECT_EQ("mine", contentOf("/Home//./a.txt"));
}

TEST_F(OspIo, pathsUnderNoMappedRootFail) {
    EXPECT_FALSE(opens(folders.path("secret.txt").c_str()));
    EXPECT_FALSE(opens("/Reslogo.png"));
    EXPECT_FALSE(opens("Res/logo.png"));
    EXPECT_FALSE(opens("/com/tallowin/image/font/default.bmf"));
    EXPECT_FALSE(opens(""));
    EXPECT_FALSE(File::IsFileExist("/"));
    host.mappedFolders.res.clear();
    EXPECT_FALSE(opens("/Res/logo.png"));
    EXPECT_FALSE(File::IsFileExist("/Res/"));
}

TEST_F(OspIo, parentStepsAreRefusedEvenInsideTheRoot) {
    writeHome("a.txt", "mine");
    EXPECT_FALSE(opens("/Home/../secret.txt"));
    EXPECT_FALSE(opens("/Home/Murmelo/../a.txt"));
    EXPECT_FALSE(File::IsFileExist("/Home/.."));
    EXPECT_NE(E_SUCCESS, Directory::Create("/Home/../new", false));
    EXPECT_FALSE(folders.has("new"));
}

TEST_F(OspIo, embeddedZerosAreRefused) {
    writeHome("a.txt", "mine");
    String path("/Home/a.txt");
    path.Append(char16_t{0});
    path.Append(String(".png"));
    EXPECT_FALSE(opens(path));
    EXPECT_FALSE(File::IsFileExist(path));
    EXPECT_NE(E_SUCCESS, File::Remove(path));
    EXPECT_TRUE(homeHas("a.txt"));
}

TEST_F(OspIo, linksThatLeadOutOfTheRootAreRefused) {
    link("../secret.txt", "out");
    link("..", "up");
    link(folders.path("home/a.txt"), "absolute");
    link("/a.txt", "rooted");
    writeHome("a.txt", "mine");
    EXPECT_FALSE(opens("/Home/out"));
    EXPECT_FALSE(opens("/Home/out", "wb+"));
    EXPECT_FALSE(opens("/Home/up/secret.txt"));
    EXPECT_FALSE(opens("/Home/absolute"));
    EXPECT_FALSE(opens("/Home/rooted"));
    EXPECT_NE(E_SUCCESS, File::Copy("/Home/a.txt", "/Home/out", false));
    EXPECT_NE(E_SUCCESS, File::Remove("/Home/up/secret.txt"));
    EXPECT_EQ("secret", folders.read("secret.txt"));
}

TEST_F(OspIo, aLinkToALinkThatLeadsOutIsRefusedToo) {
    link("../../secret.txt", "Murmelo/out");
    link("Murmelo/out", "indirect");
    EXPECT_FALSE(opens("/Home/indirect"));
}

TEST_F(OspIo, linksInsideTheRootAreFollowed) {
    writeHome("a.txt", "mine");
    link("../a.txt", "Murmelo/inside");
    link("Murmelo", "folder");
    EXPECT_EQ("mine", contentOf("/Home/Murmelo/inside"));
    EXPECT_EQ("mine", contentOf("/Home/folder/inside"));
}

TEST_F(OspIo, linksBelowTheReadOnlyRootsAreFollowedWhereverTheyLead) {
    folders.write("store/1", "linked picture");
    folders.write("store/fonts/small.bmf", "linked font");
    linkAt(folders.path("store/1"), "res/absolute.png");
    linkAt("../store/1", "res/relative.png");
    linkAt("relative.png", "res/indirect.png");
    linkAt("../../store/fonts", "framework/image/more");
    for (const char* path : {"/Res/absolute.png", "/Res/relative.png", "/Res/indirect.png"}) {
        EXPECT_EQ("linked picture", contentOf(path)) << path;
        EXPECT_TRUE(File::IsFileExist(path)) << path;
        EXPECT_FALSE(opens(path, "rb+")) << path;
        EXPECT_NE(E_SUCCESS, File::Remove(path)) << path;
    }
    EXPECT_EQ("linked font", contentOf("/com/tallowin/orm/image/more/small.bmf"));
    EXPECT_EQ(std::vector<std::string>{"small.bmf"}, namesIn("/com/tallowin/orm/image/more/"));
    EXPECT_EQ(E_SUCCESS, File::Copy("/Res/indirect.png", "/Home/copy.png", true));
    EXPECT_EQ("linked picture", home("copy.png"));
}

TEST_F(OspIo, whatIsNoFileBelowTheReadOnlyRootsIsNotOpened) {
    linkAt("nothing", "res/dangling.png");
    linkAt("circle.png", "res/circle.png");
    linkAt(".", "res/folder.png");
    ASSERT_EQ(0, mkfifo(folders.path("pipe").c_str(), 0600));
    linkAt("../pipe", "res/pipe.png");  // would wait for its other end
    for (const char* path :
         {"/Res/dangling.png", "/Res/circle.png", "/Res/folder.png", "/Res/pipe.png"}) {
        EXPECT_FALSE(opens(path)) << path;
    }
    EXPECT_FALSE(opens("/Res/../secret.txt"));
}

TEST_F(OspIo, aCircleOfLinksFails) {
    link("b", "a");
    link("a", "b");
    EXPECT_FALSE(opens("/Home/a"));
    EXPECT_FALSE(opens("/Home/a", "wb+"));
}

TEST_F(OspIo, readOnlyRootsCannotBeChanged) {
    for (const char* path : {"/Res/logo.png", "/com/tallowin/orm/image/font/default.bmf"}) {
        EXPECT_FALSE(opens(path, "wb+")) << path;
        EXPECT_FALSE(opens(path, "rb+")) << path;
        EXPECT_NE(E_SUCCESS, File::Remove(path)) << path;
        EXPECT_NE(E_SUCCESS, File::Copy("/Res/logo.png", path, false)) << path;
    }
    EXPECT_FALSE(opens("/Res/new.png", "wb"));
    EXPECT_NE(E_SUCCESS, Directory::Create("/Res/new", false));
    EXPECT_EQ("picture", folders.read("res/logo.png"));
}

TEST_F(OspIo, foldersExistWithAndWithoutTheLastSlash) {
    writeHome("a.txt", "mine");
    EXPECT_TRUE(File::IsFileExist("/Home/Murmelo"));
    EXPECT_TRUE(File::IsFileExist("/Home/Murmelo/"));
    EXPECT_TRUE(File::IsFileExist("/Home/"));
    EXPECT_TRUE(File::IsFileExist("/Home"));
    EXPECT_TRUE(File::IsFileExist("/Home/a.txt"));
    EXPECT_FALSE(File::IsFileExist("/Home/a.txt/"));
    EXPECT_FALSE(File::IsFileExist("/Home/b.txt"));
}

TEST_F(OspIo, onlyOrdinaryFilesOpen) {
    ASSERT_EQ(0, mkfifo(folders.path("home/pipe").c_str(), 0600));
    EXPECT_FALSE(opens("/Home/pipe"));
    EXPECT_FALSE(opens("/Home/Murmelo"));
    EXPECT_FALSE(opens("/Home/missing"));
    EXPECT_FALSE(opens("/Home/missing/new.txt", "wb+"));
    EXPECT_FALSE(opens("/Home/new.txt/", "wb+"));
    EXPECT_FALSE(opens("/Home/new.txt", "quickly"));
    EXPECT_FALSE(homeHas("new.txt"));
}

TEST_F(OspIo, aFileThatDidNotOpenAnswersEverythingWithFailure) {
    File file;
    char byte = 'x';
    EXPECT_NE(E_SUCCESS, file.Construct("/Home/missing", "rb"));
    EXPECT_EQ(-1, file.Read(&byte, 1));
    EXPECT_EQ('x', byte);
    EXPECT_NE(E_SUCCESS, file.Write(&byte, 1));
    EXPECT_NE(E_SUCCESS, file.Seek(Osp::Io::FILESEEKPOSITION_BEGIN, 0));
    EXPECT_NE(E_SUCCESS, file.Flush());
    EXPECT_EQ(-1, file.Tell());
}

TEST_F(OspIo, readingGivesZeroAtTheEnd) {
    writeHome("a.txt", "abc");
    File file;
    ASSERT_EQ(E_SUCCESS, file.Construct("/Home/a.txt", "rb"));
    char bytes[8] = {};
    EXPECT_EQ(2, file.Read(bytes, 2));
    EXPECT_EQ(1, file.Read(bytes, 8));
    EXPECT_EQ('c', bytes[0]);
    EXPECT_EQ(0, file.Read(bytes, 8));
    EXPECT_EQ(0, file.Read(bytes, 0));
}

TEST_F(OspIo, writingTruncatesAndCanBeReadBack) {
    writeHome("a.txt", "something longer");
    File file;
    ASSERT_EQ(E_SUCCESS, file.Construct("/Home/a.txt", u"wb+", false));
    EXPECT_EQ(E_SUCCESS, file.Write("abcd", 4));
    EXPECT_EQ(4, file.Tell());
    EXPECT_EQ("abcd", home("a.txt"));  // a block is in the file at once
    EXPECT_EQ(E_SUCCESS, file.Seek(Osp::Io::FILESEEKPOSITION_BEGIN, 1));
    char byte = 0;
    EXPECT_EQ(1, file.Read(&byte, 1));
    EXPECT_EQ('b', byte);
    EXPECT_EQ(E_SUCCESS, file.Write("X", 1));
    EXPECT_EQ(E_SUCCESS, file.Flush());
    EXPECT_EQ("abXd", home("a.txt"));
}

TEST_F(OspIo, seekingGoesFromTheStartThePositionAndTheEnd) {
    writeHome("a.txt", "0123456789");
    File file;
    ASSERT_EQ(E_SUCCESS, file.Construct("/Home/a.txt", "rb"));
    EXPECT_EQ(E_SUCCESS, file.Seek(Osp::Io::FILESEEKPOSITION_END, -3));
    EXPECT_EQ(7, file.Tell());
    EXPECT_EQ(E_SUCCESS, file.Seek(Osp::Io::FILESEEKPOSITION_CURRENT, -2));
    EXPECT_EQ(5, file.Tell());
    EXPECT_NE(E_SUCCESS, file.Seek(Osp::Io::FILESEEKPOSITION_BEGIN, -1));
    EXPECT_EQ(5, file.Tell());
}

TEST_F(OspIo, anObjectOpensOneFile) {
    writeHome("a.txt", "a");
    File file;
    EXPECT_EQ(E_SUCCESS, file.Construct("/Home/a.txt", "rb"));
    EXPECT_NE(E_SUCCESS, file.Construct("/Home/a.txt", "rb"));
}

TEST_F(OspIo, filesCloseWhenAnotherProgramIsStarted) {
    writeHome("a.txt", "a");
    const int nextFree = open("/dev/null", O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(0, close(nextFree));
    File file;
    ASSERT_EQ(E_SUCCESS, file.Construct("/Home/a.txt", "rb"));
    const int flags = fcntl(nextFree, F_GETFD);
    ASSERT_NE(-1, flags);
    EXPECT_NE(0, flags & FD_CLOEXEC);
}

TEST_F(OspIo, removesFilesButNoFolders) {
    writeHome("a.txt", "a");
    EXPECT_EQ(E_SUCCESS, File::Remove("/Home/a.txt"));
    EXPECT_FALSE(homeHas("a.txt"));
    EXPECT_NE(E_SUCCESS, File::Remove("/Home/a.txt"));
    EXPECT_NE(E_SUCCESS, File::Remove("/Home/Murmelo"));
    EXPECT_NE(E_SUCCESS, File::Remove("/Home/Murmelo/"));
    EXPECT_TRUE(homeHas("Murmelo"));
}

TEST_F(OspIo, removingALinkWouldLoseWhatItLeadsTo) {
    writeHome("Murmelo/rec_00000.wav", "a saved sound");
    link("rec_00000.wav", "Murmelo/MrmLastRec.wav");
    EXPECT_NE(E_SUCCESS, File::Remove("/Home/Murmelo/MrmLastRec.wav"));
    EXPECT_FALSE(opens("/Home/Murmelo/MrmLastRec.wav", "wb+"));
    EXPECT_FALSE(opens("/Home/Murmelo/MrmLastRec.wav", "rb+"));
    EXPECT_EQ("a saved sound", home("Murmelo/rec_00000.wav"));
    EXPECT_EQ("a saved sound", contentOf("/Home/Murmelo/MrmLastRec.wav"));
}

TEST_F(OspIo, makingWayRemovesOrdinaryFilesOnly) {
    writeHome("a.txt", "a");
    EXPECT_EQ(E_SUCCESS, File::MakeWay("/Home/a.txt"));
    EXPECT_EQ(std::vector<std::string>{"Murmelo"}, namesIn("/Home"));
    EXPECT_EQ(E_FILE_NOT_FOUND, File::MakeWay("/Home/a.txt"));
    EXPECT_EQ(E_FILE_NOT_FOUND, File::MakeWay("/Home/missing/a.txt"));
    EXPECT_EQ(E_FAILURE, File::MakeWay("/Res/logo.png"));
    EXPECT_EQ(E_FAILURE, File::MakeWay("/Home/Murmelo/"));
    EXPECT_EQ(E_FAILURE, File::MakeWay("/secret.txt"));
    EXPECT_EQ("picture", folders.read("res/logo.png"));
}

TEST_F(OspIo, makingWayMovesEverythingElseAside) {
    writeHome("a.txt.aside-2", "of earlier days");
    writeHome("a.txt/inside.txt", "mine");
    EXPECT_EQ(E_SUCCESS, File::MakeWay("/Home/a.txt"));
    EXPECT_EQ("mine", home("a.txt.aside-1/inside.txt"));
    ASSERT_EQ(0, mkfifo(folders.path("home/a.txt").c_str(), 0600));
    EXPECT_EQ(E_SUCCESS, File::MakeWay("/Home/a.txt"));
    EXPECT_TRUE(homeHas("a.txt.aside-3"));
    EXPECT_EQ("of earlier days", home("a.txt.aside-2"));
    writeHome("b.txt", "what it leads to");
    for (const char* target : {"b.txt", "../secret.txt", "nowhere", "/nowhere", "a.txt"}) {
        link(target, "a.txt");
        EXPECT_EQ(E_SUCCESS, File::MakeWay("/Home/a.txt")) << target;
        EXPECT_EQ(E_FILE_NOT_FOUND, File::MakeWay("/Home/a.txt")) << target;
    }
    EXPECT_EQ("what it leads to", home("b.txt"));
    EXPECT_EQ("what it leads to", contentOf("/Home/a.txt.aside-4"));
    EXPECT_EQ("secret", folders.read("secret.txt"));
    EXPECT_EQ(10U, namesIn("/Home").size());  // eight moved aside, "Murmelo" and b.txt
}

TEST_F(OspIo, whatCannotBeMovedAsideStays) {
    writeHome("a.txt/inside.txt", "mine");
    host.failNth("File.MoveAside", 1);
    EXPECT_EQ(E_FAILURE, File::MakeWay("/Home/a.txt"));
    EXPECT_EQ("mine", home("a.txt/inside.txt"));
}

TEST_F(OspIo, theSoundFolderMayLieElsewhere) {
    folders.makeFolder("disk");
    host.mappedFolders.soundFolder = folders.path("disk");
    File file;
    ASSERT_EQ(E_SUCCESS, file.Construct("/Home/Murmelo/a.txt", "wb+"));
    EXPECT_EQ(E_SUCCESS, file.Write("mine", 4));
    EXPECT_EQ("mine", folders.read("disk/a.txt"));
    EXPECT_EQ(std::vector<std::string>{"a.txt"}, namesIn("/Home/Murmelo/"));
    EXPECT_TRUE(File::IsFileExist("/Home/Murmelo"));
    EXPECT_FALSE(opens("/Home/Murmelo/../secret.txt"));
    EXPECT_FALSE(opens("/Home/Murmelooo"));
    writeHome("b.txt", "below home");
    EXPECT_EQ("below home", contentOf("/Home/b.txt"));
    folders.remove("disk");
    EXPECT_FALSE(File::IsFileExist("/Home/Murmelo/"));
    EXPECT_EQ(E_SUCCESS, Directory::Create("/Home/Murmelo/", false));
    EXPECT_TRUE(folders.has("disk"));
}

TEST_F(OspIo, theHostSaysWhyAFolderCannotBeMade) {
    EXPECT_NE(E_SUCCESS, Directory::Create("/Home/missing/new", false));
    ASSERT_EQ(1U, host.sentences.size());
    EXPECT_EQ("the folder \"" + folders.path("home/missing/new") +
                  "\" cannot be made: No such file or directory",
              host.sentences[0]);
}

TEST_F(OspIo, copiesOverAnExistingFileOnlyWhenAllowed) {
    writeHome("from.txt", std::string(50000, 'n'));
    writeHome("to.txt", "old");
    EXPECT_EQ(E_FILE_ALREADY_EXIST, File::Copy("/Home/from.txt", "/Home/to.txt", true));
    EXPECT_EQ("old", home("to.txt"));
    EXPECT_EQ(E_SUCCESS, File::Copy("/Home/from.txt", "/Home/to.txt", false));
    EXPECT_EQ(std::string(50000, 'n'), home("to.txt"));
    EXPECT_EQ(E_SUCCESS, File::Copy("/Res/logo.png", "/Home/new.png", true));
    EXPECT_EQ("picture", home("new.png"));
    EXPECT_EQ((std::vector<std::string>{"Murmelo", "from.txt", "new.png", "to.txt"}),
              namesIn("/Home/"));
}

TEST_F(OspIo, aCopyToAFreeNameWorksWithoutTheOneStepForIt) {
    const std::vector<std::string> both = {"Murmelo", "from.txt", "to.txt"};
    writeHome("from.txt", "new");
    host.failNth("File.RenameToFree", 1);
    EXPECT_EQ(E_SUCCESS, File::Copy("/Home/from.txt", "/Home/to.txt", true));
    EXPECT_EQ("new", home("to.txt"));
    EXPECT_EQ(both, namesIn("/Home/"));
    writeHome("to.txt", "old");
    host.failNth("File.RenameToFree", 1);
    EXPECT_EQ(E_FILE_ALREADY_EXIST, File::Copy("/Home/from.txt", "/Home/to.txt", true));
    EXPECT_EQ("old", home("to.txt"));
    EXPECT_EQ(both, namesIn("/Home/"));
    removeHome("to.txt");
    host.failNth("File.RenameToFree", 1);
    host.failNth("File.Rename", 1);
    EXPECT_NE(E_SUCCESS, File::Copy("/Home/from.txt", "/Home/to.txt", true));
    EXPECT_EQ((std::vector<std::string>{"Murmelo", "from.txt"}), namesIn("/Home/"));
}

TEST_F(OspIo, aCopyToAFreeNameNeverHitsAFileThatAppearsMeanwhile) {
    writeHome("from.txt", "new");
    for (const char* moment : {"File.Copy", "File.RenameToFree"}) {
        for (const bool inOneStep : {true, false}) {
            host.onCall(moment, [this] { writeHome("to.txt", "foreign"); });
            if (!inOneStep) {
                host.failNth("File.RenameToFree", 1);
            }
            EXPECT_NE(E_SUCCESS, File::Copy("/Home/from.txt", "/Home/to.txt", true)) << moment;
            EXPECT_EQ("foreign", home("to.txt")) << moment;
            EXPECT_EQ((std::vector<std::string>{"Murmelo", "from.txt", "to.txt"}),
                      namesIn("/Home/"));
            host.onCall(moment, [] {});
            removeHome("to.txt");
        }
    }
}

TEST_F(OspIo, aCopyInTwoStepsHoldsItsNameFromTheFirstStepOn) {
    writeHome("from.txt", "new");
    writeHome("foreign.txt", "foreign");
    int32_t errorOfTheOther = 0;
    host.onCall("File.Rename", [&] {
        EXPECT_EQ(-1, ::link(folders.path("home/foreign.txt").c_str(),
                             folders.path("home/to.txt").c_str()));
        errorOfTheOther = errno;
    });
    host.failNth("File.RenameToFree", 1);
    EXPECT_EQ(E_SUCCESS, File::Copy("/Home/from.txt", "/Home/to.txt", true));
    EXPECT_EQ(EEXIST, errorOfTheOther);
    EXPECT_EQ("new", home("to.txt"));
}

TEST_F(OspIo, aCopyThatAKilledProgramLeftUnfinishedIsReplaced) {
    writeHome("from.txt", "new");
    writeHome("to.txt.part", "half a so");
    EXPECT_EQ(E_SUCCESS, File::Copy("/Home/from.txt", "/Home/to.txt", true));
    EXPECT_EQ("new", home("to.txt"));
    EXPECT_EQ((std::vector<std::string>{"Murmelo", "from.txt", "to.txt"}), namesIn("/Home/"));
}

TEST_F(OspIo, whatIsNoFileInThePlaceOfAnUnfinishedCopyIsMovedAside) {
    writeHome("from.txt", "new");
    writeHome("to.txt.part/inside.txt", "mine");
    EXPECT_EQ(E_SUCCESS, File::Copy("/Home/from.txt", "/Home/to.txt", true));
    EXPECT_EQ("mine", home("to.txt.part.aside-1/inside.txt"));
    ASSERT_EQ(0, mkfifo(folders.path("home/to.txt.part").c_str(), 0600));
    EXPECT_EQ(E_SUCCESS, File::Copy("/Home/from.txt", "/Home/to.txt", false));
    EXPECT_TRUE(homeHas("to.txt.part.aside-2"));
    link("../secret.txt", "to.txt.part");
    EXPECT_EQ(E_SUCCESS, File::Copy("/Home/from.txt", "/Home/to.txt", false));
    EXPECT_TRUE(homeHas("to.txt.part.aside-3"));
    EXPECT_EQ("secret", folders.read("secret.txt"));
    EXPECT_EQ("new", home("to.txt"));
}

TEST_F(OspIo, aLinkTakesANameAsAFileDoes) {
    writeHome("from.txt", "new");
    for (const char* target : {"from.txt", "nowhere", "../secret.txt"}) {
        link(target, "to.txt");
        EXPECT_EQ(E_FILE_ALREADY_EXIST, File::Copy("/Home/from.txt", "/Home/to.txt", true))
            << target;
        removeHome("to.txt");
    }
    EXPECT_EQ("secret", folders.read("secret.txt"));
}

TEST_F(OspIo, aCopyThatKeepsMovesTheOldFileAside) {
    writeHome("from.txt", "new");
    EXPECT_EQ(E_SUCCESS, File::CopyKeeping("/Home/from.txt", "/Home/to.txt"));
    EXPECT_EQ((std::vector<std::string>{"Murmelo", "from.txt", "to.txt"}), namesIn("/Home/"));
    writeHome("to.txt", "first");
    EXPECT_EQ(E_SUCCESS, File::CopyKeeping("/Home/from.txt", "/Home/to.txt"));
    writeHome("to.txt", "second");
    EXPECT_EQ(E_SUCCESS, File::CopyKeeping("/Home/from.txt", "/Home/to.txt"));
    EXPECT_EQ("new", home("to.txt"));
    EXPECT_EQ("first", home("to.txt.aside-1"));
    EXPECT_EQ("second", home("to.txt.aside-2"));
    EXPECT_EQ((std::vector<std::string>{"Murmelo", "from.txt", "to.txt", "to.txt.aside-1",
                                        "to.txt.aside-2"}),
              namesIn("/Home/"));
}

TEST_F(OspIo, aCopyThatKeepsAndFailsLeavesTheOldFileInItsPlace) {
    writeHome("from.txt", std::string(50000, 'n'));
    writeHome("to.txt", "old");
    const std::vector<std::string> both = {"Murmelo", "from.txt", "to.txt"};
    for (const char* operation : {"File.Copy", "File.MoveAside"}) {
        host.failNth(operation, 1);
        EXPECT_EQ(E_FAILURE, File::CopyKeeping("/Home/from.txt", "/Home/to.txt")) << operation;
        EXPECT_EQ("old", home("to.txt")) << operation;
        EXPECT_EQ(both, namesIn("/Home/")) << operation;
    }
    EXPECT_EQ(E_FAILURE, File::CopyKeeping("/Home/missing", "/Home/to.txt"));
    {
        const FullDisk disk(20000);
        EXPECT_EQ(E_FAILURE, File::CopyKeeping("/Home/from.txt", "/Home/to.txt"));
    }
    EXPECT_EQ("old", home("to.txt"));
    EXPECT_EQ(both, namesIn("/Home/"));
}

TEST_F(OspIo, aCopyThatKeepsGivesTheOldFileItsNameBackIfTheNewOneCannotHaveIt) {
    writeHome("from.txt", "new");
    writeHome("to.txt", "old");
    host.failNth("File.RenameToFree", 1);
    host.failNth("File.Rename", 1);
    EXPECT_EQ(E_FAILURE, File::CopyKeeping("/Home/from.txt", "/Home/to.txt"));
    EXPECT_EQ("old", home("to.txt"));
    EXPECT_EQ((std::vector<std::string>{"Murmelo", "from.txt", "to.txt"}), namesIn("/Home/"));
}

TEST_F(OspIo, aCopyThatKeepsLosesNeitherTheOldFileNorOneThatTakesItsName) {
    writeHome("from.txt", "new");
    writeHome("to.txt", "old");
    host.onCall("File.RenameToFree", [this] { writeHome("to.txt", "foreign"); });
    EXPECT_EQ(E_FILE_ALREADY_EXIST, File::CopyKeeping("/Home/from.txt", "/Home/to.txt"));
    EXPECT_EQ("foreign", home("to.txt"));
    EXPECT_EQ("old", home("to.txt.aside-1"));
}

TEST_F(OspIo, aCopyWhoseNameIsNotOnTheDiskFailsAndStays) {
    writeHome("from.txt", "new");
    host.failNth("File.SyncFolder", 1);
    EXPECT_EQ(E_FAILURE, File::Copy("/Home/from.txt", "/Home/to.txt", true));
    EXPECT_EQ("new", home("to.txt"));
    EXPECT_EQ((std::vector<std::string>{"Murmelo", "from.txt", "to.txt"}), namesIn("/Home/"));
}

TEST_F(OspIo, copyingAFileOntoItselfKeepsIt) {
    writeHome("a.txt", "mine");
    EXPECT_EQ(E_SUCCESS, File::Copy("/Home/a.txt", "/Home/a.txt", false));
    EXPECT_EQ("mine", home("a.txt"));
}

TEST_F(OspIo, aCopyThatCannotStartChangesNothing) {
    writeHome("a.txt", "mine");
    EXPECT_NE(E_SUCCESS, File::Copy("/Home/missing", "/Home/a.txt", false));
    EXPECT_NE(E_SUCCESS, File::Copy("/Home/a.txt", "/Home/missing/a.txt", false));
    EXPECT_NE(E_SUCCESS, File::Copy("/Home/Murmelo", "/Home/b.txt", false));
    EXPECT_NE(E_SUCCESS, File::Copy("/Home/a.txt", "/Home/Murmelo", false));
    EXPECT_EQ("mine", home("a.txt"));
    EXPECT_EQ((std::vector<std::string>{"Murmelo", "a.txt"}), namesIn("/Home"));
}

TEST_F(OspIo, aCopyThatFillsTheDiskLeavesNoHalfFile) {
    writeHome("from.txt", std::string(50000, 'n'));
    writeHome("to.txt", "old");
    {
        const FullDisk disk(20000);
        EXPECT_NE(E_SUCCESS, File::Copy("/Home/from.txt", "/Home/to.txt", false));
    }
    EXPECT_EQ("old", home("to.txt"));
    EXPECT_EQ((std::vector<std::string>{"Murmelo", "from.txt", "to.txt"}), namesIn("/Home"));
}

TEST_F(OspIo, everyWriteThatFailsTellsItsReason) {
    File::takeWriteError();
    File file;
    EXPECT_NE(E_SUCCESS, file.Write("a", 1));  // not open
    EXPECT_EQ(EBADF, File::takeWriteError().number);
    EXPECT_EQ(0, File::takeWriteError().number);
    ASSERT_EQ(E_SUCCESS, file.Construct("/Home/a.txt", "wb+"));
    EXPECT_NE(E_SUCCESS, file.Write("a", -1));
    EXPECT_EQ(EINVAL, File::takeWriteError().number);
    host.failNth("File.Write", 1);
    EXPECT_NE(E_SUCCESS, file.Write("a", 1));
    EXPECT_EQ(ENOSPC, File::takeWriteError().number);
    EXPECT_EQ(E_SUCCESS, file.Write("a", 1));
    EXPECT_EQ(0, File::takeWriteError().number);
}

TEST_F(OspIo, aFullDiskIsReportedByTheWriteThatMeetsIt) {
    const std::string block(600, 'b');
    File file;
    ASSERT_EQ(E_SUCCESS, file.Construct("/Home/a.txt", "wb+"));
    const FullDisk disk(1000);
    EXPECT_EQ(E_SUCCESS, file.Write(block.data(), 600));
    EXPECT_NE(E_SUCCESS, file.Write(block.data(), 600));
    EXPECT_NE(E_SUCCESS, file.Flush());
}

TEST_F(OspIo, aFullDiskIsReportedByTheFlushAfterSingleBytes) {
    File file;
    ASSERT_EQ(E_SUCCESS, file.Construct("/Home/a.txt", "wb+"));
    const FullDisk disk(1);
    EXPECT_EQ(E_SUCCESS, file.Write("a", 1));
    EXPECT_EQ(E_SUCCESS, file.Write("b", 1));
    EXPECT_NE(E_SUCCESS, file.Flush());
}

TEST_F(OspIo, foldersListTheirEntriesSortedByName) {
    writeHome("b.txt", "");
    writeHome(".hidden", "");
    EXPECT_EQ((std::vector<std::string>{".hidden", "Murmelo", "b.txt"}), namesIn("/Home/"));
    EXPECT_EQ(std::vector<std::string>{}, namesIn("/Home/Murmelo"));
}

TEST_F(OspIo, onlyFoldersOpenAsFolders) {
    writeHome("a.txt", "");
    Directory folder;
    EXPECT_NE(E_SUCCESS, folder.Construct("/Home/a.txt"));
    EXPECT_NE(E_SUCCESS, folder.Construct("/Home/missing/"));
    EXPECT_EQ(nullptr, folder.ReadN());
}

TEST_F(OspIo, makesAFolderAndItsParentsOnlyWhenAsked) {
    EXPECT_EQ(E_SUCCESS, Directory::Create("/Home/new/", false));
    EXPECT_TRUE(File::IsFileExist("/Home/new"));
    EXPECT_NE(E_SUCCESS, Directory::Create("/Home/new", false));
    EXPECT_NE(E_SUCCESS, Directory::Create("/Home/x/y", false));
    EXPECT_FALSE(homeHas("x"));
    EXPECT_EQ(E_SUCCESS, Directory::Create("/Home/x/y", true));
    EXPECT_TRUE(homeHas("x/y"));
}

TEST_F(OspIo, everyOperationFailsWhenTheHostSaysSo) {
    writeHome("a.txt", "abc");
    for (const char* name :
         {"File.Construct", "File.Read", "File.Write", "File.Seek", "File.Flush", "File.Remove",
          "File.Copy", "Directory.Construct", "Directory.Read", "Directory.Create"}) {
        host.failNth(name, 1);
    }
    File file;
    char byte = 0;
    EXPECT_NE(E_SUCCESS, file.Construct("/Home/a.txt", "rb+"));
    ASSERT_EQ(E_SUCCESS, file.Construct("/Home/a.txt", "rb+"));
    EXPECT_EQ(-1, file.Read(&byte, 1));
    EXPECT_NE(E_SUCCESS, file.Write("x", 1));
    EXPECT_NE(E_SUCCESS, file.Seek(Osp::Io::FILESEEKPOSITION_BEGIN, 0));
    EXPECT_NE(E_SUCCESS, file.Flush());
    EXPECT_NE(E_SUCCESS, File::Copy("/Home/a.txt", "/Home/b.txt", false));
    EXPECT_NE(E_SUCCESS, File::Remove("/Home/a.txt"));
    Directory folder;
    EXPECT_NE(E_SUCCESS, folder.Construct("/Home/"));
    ASSERT_EQ(E_SUCCESS, folder.Construct("/Home/"));
    EXPECT_EQ(nullptr, folder.ReadN());
    EXPECT_NE(E_SUCCESS, Directory::Create("/Home/new", false));
    EXPECT_EQ((std::vector<std::string>{"Murmelo", "a.txt"}), namesIn("/Home"));
    EXPECT_EQ("abc", home("a.txt"));
}

TEST_F(OspIo, theHostHearsOfACopyThatIsOnTheDisk) {
    writeHome("from.txt", "sound");
    EXPECT_EQ(E_SUCCESS, File::Copy("/Home/from.txt", "/Home/to.txt", true));
    EXPECT_EQ(std::vector<std::string>{folders.path("home/to.txt")}, host.keptPaths);
}

TEST_F(OspIo, theHostHearsNothingOfACopyThatFailed) {
    writeHome("from.txt", "sound");
    for (const char* operation : {"File.Copy", "File.Rename", "File.SyncFolder"}) {
        host.failNth(operation, 1);
        EXPECT_NE(E_SUCCESS, File::Copy("/Home/from.txt", "/Home/to.txt", false)) << operation;
    }
    EXPECT_TRUE(host.keptPaths.empty());
}
