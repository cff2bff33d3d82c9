// SPDX-License-Identifier: MIT
// Settings are stored and read again; damaged or unreachable files are not overwritten.
#include "OspApp.h"
#include "TestFolders.h"
#include "TestHost.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

using Osp::App::AppRegistry;

namespace {

class AppRegistryTest : public testing::Test {
protected:
    void open() { registry.Open(folders.path("config")); }

    /// Opens the registry on a file with this text.
    void openOn(const std::string& text) {
        folders.write("config/settings", text);
        open();
    }

    void link(const std::string& target, const std::string& name) {
        ASSERT_EQ(0, symlink(target.c_str(), folders.path(name).c_str()));
    }

    std::vector<std::string> namesIn(const std::string& folder) const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folders.path(folder))) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    /// Checks that the host has told why, that there are no settings, and that a change works but
    /// is not written.
    void expectOutOfReach(const std::string& why) {
        ASSERT_EQ(1U, host.sentences.size());
        EXPECT_NE(std::string::npos, host.sentences[0].find("config/settings\" cannot be read"))
            << host.sentences[0];
        EXPECT_NE(std::string::npos, host.sentences[0].find(why)) << host.sentences[0];
        host.sentences.clear();
        int lang = -1;
        EXPECT_EQ(E_KEY_NOT_FOUND, registry.Get("lang", lang));
        host.failNth("AppRegistry.Write", 1);
        EXPECT_EQ(E_SUCCESS, registry.Add("lang", "3"));
        EXPECT_TRUE(host.fails("AppRegistry.Write")) << "something was written";
        registry.Get("lang", lang);
        EXPECT_EQ(3, lang);
    }

    TestFolders folders;
    TestHost host;
    AppRegistry registry;
};

}  // namespace

TEST_F(AppRegistryTest, aMissingKeyIsNotFoundUntilItIsAdded) {
    open();
    int lang = -1;
    EXPECT_EQ(0xA0000835U, registry.Get("lang", lang));
    EXPECT_EQ(0xA0000835U, registry.Set("lang", "3"));
    EXPECT_EQ(E_SUCCESS, registry.Add("lang", "3"));
    EXPECT_EQ(E_KEY_ALREADY_EXIST, registry.Add("lang", "4"));
    EXPECT_EQ(E_SUCCESS, registry.Get("lang", lang));
    EXPECT_EQ(3, lang);
    EXPECT_EQ(E_SUCCESS, registry.Set("lang", "4"));
    EXPECT_EQ("lang=4\n", folders.read("config/settings"));
}

TEST_F(AppRegistryTest, valuesOutliveTheRun) {
    open();
    registry.Add("lang", "2");
    AppRegistry later;
    later.Open(folders.path("config"));
    int lang = -1;
    EXPECT_EQ(E_SUCCESS, later.Get("lang", lang));
    EXPECT_EQ(2, lang);
}

TEST_F(AppRegistryTest, otherKeysAndCommentsAreKeptOrPassedOver) {
    openOn("# hand-made\n\nlang=1\nwindow.x=-30\n");
    registry.Set("lang", "0");
    EXPECT_EQ("lang=0\nwindow.x=-30\n", folders.read("config/settings"));
    int x = 0;
    EXPECT_EQ(E_SUCCESS, registry.Get("window.x", x));
    EXPECT_EQ(-30, x);
}

TEST_F(AppRegistryTest, linesMayEndAsOnOtherSystems) {
    openOn("lang=2\r\n\r\n# comment\r\n");
    int lang = -1;
    EXPECT_EQ(E_SUCCESS, registry.Get("lang", lang));
    EXPECT_EQ(2, lang);
}

TEST_F(AppRegistryTest, aValueThatIsNoIntegerFailsAndLeavesTheVariable) {
    openOn("lang=two\nbig=99999999999\n");
    int lang = -1;
    EXPECT_EQ(E_FAILURE, registry.Get("lang", lang));
    EXPECT_EQ(E_FAILURE, registry.Get("big", lang));
    EXPECT_EQ(-1, lang);
}

TEST_F(AppRegistryTest, aDamagedFileIsSetAsideAndTheRunIsAFirstOne) {
    for (const std::string& text : {std::string("lang=1\nnonsense\n"), std::string("lang=1\0\n", 8),
                                    std::string("=1\n"), std::string(70000, '#')}) {
        folders.remove("config/settings.damaged");
        openOn(text);
        int lang = -1;
        EXPECT_EQ(E_KEY_NOT_FOUND, registry.Get("lang", lang));
        EXPECT_EQ(text, folders.read("config/settings.damaged"));
        EXPECT_FALSE(folders.has("config/settings"));
    }
}

TEST_F(AppRegistryTest, aFileThatCannotBeWrittenLeavesTheOldOne) {
    openOn("lang=1\n");
    host.failNth("AppRegistry.Write", 1);
    EXPECT_EQ(E_FAILURE, registry.Set("lang", "2"));
    EXPECT_EQ("lang=1\n", folders.read("config/settings"));
    int lang = -1;
    registry.Get("lang", lang);
    EXPECT_EQ(2, lang);  // it holds for this run
}

TEST_F(AppRegistryTest, whatIsNoOrdinaryFileStaysAndTheRunHasItsOwnSettings) {
    folders.makeFolder("config");
    ASSERT_EQ(0, mkfifo(folders.path("config/settings").c_str(), 0600));
    open();
    expectOutOfReach("it is a pipe");
    EXPECT_EQ(std::vector<std::string>{"settings"}, namesIn("config"));
    folders.remove("config");
    folders.makeFolder("config/settings/mine");
    open();
    expectOutOfReach("it is a folder");
    EXPECT_TRUE(folders.has("config/settings/mine"));
    folders.remove("config/settings");
    link("/dev/null", "config/settings");
    open();
    expectOutOfReach("it is a device");
}

TEST_F(AppRegistryTest, aFileThatCannotBeOpenedIsNotDamaged) {
    folders.makeFolder("config");
    link(std::string(300, 'n'), "config/settings");  // no name can be that long
    open();
    expectOutOfReach("File name too long");
    EXPECT_EQ(std::vector<std::string>{"settings"}, namesIn("config"));
    folders.remove("config/settings");
    folders.write("config/settings", "lang=1\n");
    registry = AppRegistry();
    open();
    int lang = -1;
    EXPECT_EQ(E_SUCCESS, registry.Get("lang", lang));
    EXPECT_EQ(1, lang);
    EXPECT_EQ(E_SUCCESS, registry.Set("lang", "2"));
    EXPECT_EQ("lang=2\n", folders.read("config/settings"));
}

TEST_F(AppRegistryTest, aFileThatCannotBeReadIsNotDamaged) {
    folders.makeFolder("config");
    link("/proc/self/mem", "config/settings");  // opens, and its first byte cannot be read
    open();
    expectOutOfReach("Input/output error");
}

TEST_F(AppRegistryTest, aCircleOfLinksIsNotDamaged) {
    folders.makeFolder("config");
    link("settings", "config/settings");
    open();
    expectOutOfReach("symbolic links");
    EXPECT_EQ(std::vector<std::string>{"settings"}, namesIn("config"));
}

TEST_F(AppRegistryTest, aDamagedFileThatCannotBeSetAsideStays) {
    const std::string longest(255, 'n');  // no longer name is possible
    folders.write("config/" + longest, "nonsense\n");
    link(longest, "config/settings");
    open();
    expectOutOfReach("too long");
    EXPECT_EQ("nonsense\n", folders.read("config/" + longest));
    EXPECT_EQ((std::vector<std::string>{longest, "settings"}), namesIn("config"));
}

TEST_F(AppRegistryTest, everyDamagedFileIsKept) {
    for (const char* text : {"first\n", "second\n", "third\n"}) {
        openOn(text);
    }
    EXPECT_EQ("first\n", folders.read("config/settings.damaged"));
    EXPECT_EQ("second\n", folders.read("config/settings.aside-1"));
    EXPECT_EQ("third\n", folders.read("config/settings.aside-2"));
    EXPECT_TRUE(host.sentences.empty());
}

TEST_F(AppRegistryTest, aLinkIsWrittenThrough) {
    for (const std::string& target :
         {std::string("../elsewhere/mine"), folders.path("elsewhere/mine")}) {
        folders.remove("config");
        folders.makeFolder("config");
        folders.write("elsewhere/mine", "lang=1\n");
        link("between", "config/settings");
        link(target, "config/between");
        open();
        EXPECT_EQ(E_SUCCESS, registry.Set("lang", "2"));
        EXPECT_EQ("lang=2\n", folders.read("elsewhere/mine"));
        EXPECT_EQ((std::vector<std::string>{"between", "settings"}), namesIn("config"));
        EXPECT_EQ(std::vector<std::string>{"mine"}, namesIn("elsewhere"));
        EXPECT_TRUE(std::filesystem::is_symlink(folders.path("config/settings")));
        EXPECT_TRUE(std::filesystem::is_symlink(folders.path("config/between")));
    }
    EXPECT_TRUE(host.sentences.empty());
}

TEST_F(AppRegistryTest, aLinkToNothingIsWrittenThroughToo) {
    folders.makeFolder("config");
    link("../elsewhere/mine", "config/settings");
    open();
    EXPECT_EQ(E_SUCCESS, registry.Add("lang", "2"));
    EXPECT_EQ("lang=2\n", folders.read("elsewhere/mine"));
    EXPECT_TRUE(std::filesystem::is_symlink(folders.path("config/settings")));
}

TEST_F(AppRegistryTest, damagedSettingsThatALinkLeadsToAreSetAsideWhereTheyLie) {
    folders.makeFolder("config");
    folders.write("elsewhere/mine", "nonsense\n");
    link("../elsewhere/mine", "config/settings");
    open();
    EXPECT_EQ("nonsense\n", folders.read("elsewhere/mine.damaged"));
    EXPECT_EQ(E_SUCCESS, registry.Add("lang", "2"));
    EXPECT_EQ("lang=2\n", folders.read("elsewhere/mine"));
}

TEST_F(AppRegistryTest, whoMayReadTheFileStaysTheSame) {
    folders.write("config/settings", "lang=1\n");
    ASSERT_EQ(0, chmod(folders.path("config/settings").c_str(), 0640));
    open();
    registry.Set("lang", "2");
    struct stat facts = {};
    ASSERT_EQ(0, stat(folders.path("config/settings").c_str(), &facts));
    EXPECT_EQ(0640U, facts.st_mode & 0777U);
}

TEST_F(AppRegistryTest, whatIsInTheWayOfTheNewFileIsMovedAside) {
    openOn("lang=1\n");
    folders.makeFolder("config/settings.new/mine");
    EXPECT_EQ(E_SUCCESS, registry.Set("lang", "2"));
    EXPECT_EQ("lang=2\n", folders.read("config/settings"));
    EXPECT_TRUE(folders.has("config/settings.new.aside-1/mine"));
    EXPECT_EQ((std::vector<std::string>{"settings", "settings.new.aside-1"}), namesIn("config"));
}

TEST_F(AppRegistryTest, theFolderIsMadeWhenSomethingIsFirstWritten) {
    registry.Open(folders.path("config/new/deep"));
    EXPECT_EQ(E_SUCCESS, registry.Add("lang", "0"));
    EXPECT_EQ("lang=0\n", folders.read("config/new/deep/settings"));
}

TEST_F(AppRegistryTest, valuesMayHaveBlanksAndEverySignThatIsNoControlCode) {
    openOn("note= a b ~\nempty=\nlang=1\n");
    EXPECT_EQ(E_SUCCESS, registry.Set("lang", "2"));
    EXPECT_EQ("empty=\nlang=2\nnote= a b ~\n", folders.read("config/settings"));
    EXPECT_EQ(E_SUCCESS, registry.Set("note", "c d"));
    EXPECT_EQ("empty=\nlang=2\nnote=c d\n", folders.read("config/settings"));
    for (const char* control : {"a\x1F", "a\x7F", "\t"}) {
        EXPECT_EQ(E_FAILURE, registry.Set("note", control));
    }
    EXPECT_EQ("empty=\nlang=2\nnote=c d\n", folders.read("config/settings"));
}

TEST_F(AppRegistryTest, keysAndValuesThatWouldBreakALineAreRefused) {
    open();
    EXPECT_EQ(E_FAILURE, registry.Add("a b", "1"));
    EXPECT_EQ(E_FAILURE, registry.Add("lang", "1\nother=2"));
}

TEST_F(AppRegistryTest, theHostHearsOfEachChangeThatIsOnTheDisk) {
    open();
    EXPECT_EQ(E_SUCCESS, registry.Add("lang", "3"));
    host.failNth("AppRegistry.Write", 1);
    EXPECT_NE(E_SUCCESS, registry.Set("lang", "1"));
    EXPECT_EQ(std::vector<std::string>{folders.path("config/settings")}, host.keptPaths);
}
