#include "OspApp.h"
#include "TestFolders.h"
#include "TestHost.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

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

TEST_F(AppRegistryTest, aPipeInThePlaceOfAFileKeepsNobodyWaiting) {
    folders.makeFolder("config");
    for (const char* name : {"config/settings", "config/settings.new"}) {
        ASSERT_EQ(0, mkfifo(folders.path(name).c_str(), 0600));
    }
    open();
    int lang = -1;
    EXPECT_EQ(0xA0000835U, registry.Get("lang", lang));
    EXPECT_EQ(E_SUCCESS, registry.Add("lang", "3"));
    EXPECT_EQ("lang=3\n", folders.read("config/settings"));
    EXPECT_TRUE(folders.has("config/settings.damaged"));
    EXPECT_FALSE(folders.has("config/settings.new"));
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
