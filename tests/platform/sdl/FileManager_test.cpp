// SPDX-License-Identifier: MIT
// The desktop's file manager is started for a folder, and its failure is reported.
#include "FileManager.h"
#include "OwnEnvironment.h"
#include "TestBus.h"
#include "TestFolders.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr int32_t kMaxWaitMs = 30000;  // on a machine that has much to do

class FileManagerTest : public ::testing::Test {
protected:
    FileManagerTest() {
        folders.makeFolder("bin");
        setenv("PATH", (folders.path("bin") + ":" + oldPath).c_str(), 1);
    }

    ~FileManagerTest() override { setenv("PATH", oldPath.c_str(), 1); }

    /// Installs a file manager that writes down which folder it shows, and if it has a session of
    /// its own.
    void install() {
        const std::string script = "#!/bin/sh\n{ echo \"$1\"; ps -o sid= -p $$; } >\"" +
                                   folders.path("part") + "\"\nmv \"" + folders.path("part") +
                                   "\" \"" + folders.path("shown") + "\"\n";
        folders.write("bin/xdg-open", script);
        ::chmod(folders.path("bin/xdg-open").c_str(), 0755);
    }

    /// Waits until it has written, and returns that.
    std::string shown() {
        for (int32_t waited = 0; waited < kMaxWaitMs && !folders.has("shown"); waited += 10) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return folders.read("shown");
    }

    TestFolders folders;
    std::string oldPath = std::getenv("PATH");
};

/// On a bus of the test's own, with a desktop beside the file manager that xdg-open starts.
class DesktopFileManagerTest : public FileManagerTest {
protected:
    void SetUp() override {
        NEEDS_TEST_BUS();
        install();
        ASSERT_TRUE(bus.start());
    }

    void serve(const std::vector<std::string>& words) {
        ASSERT_TRUE(bus.serve("fake_desktop.py", words));
    }

    TestBus bus{folders};
};

}  // namespace

TEST_F(FileManagerTest, theFolderIsShownAsItIsCalled) {
    install();
    EXPECT_TRUE(FileManager::show("/home/a \"b\" $HOME `c`/Murmelo"));
    EXPECT_EQ(0U, shown().find("/home/a \"b\" $HOME `c`/Murmelo\n"));
}

TEST_F(FileManagerTest, itLivesInASessionOfItsOwn) {
    install();
    EXPECT_TRUE(FileManager::show("/tmp"));
    const std::string session = shown().substr(5);
    EXPECT_NE(getsid(0), std::strtol(session.c_str(), nullptr, 10));
}

TEST_F(FileManagerTest, oneThatFailsIsTold) {
    folders.write("bin/xdg-open", "#!/bin/sh\nexit 3\n");
    ::chmod(folders.path("bin/xdg-open").c_str(), 0755);
    EXPECT_FALSE(FileManager::show("/tmp"));
}

TEST_F(FileManagerTest, itSeesTheEnvironmentThatTheUserStartedTheProgramWith) {
    setenv("MURMELO_TEST_CHANGED", "the user's", 1);
    unsetenv("MURMELO_TEST_NEW");
    OwnEnvironment::set("MURMELO_TEST_CHANGED", "the program's");
    OwnEnvironment::set("MURMELO_TEST_CHANGED", "again the program's");
    OwnEnvironment::set("MURMELO_TEST_NEW", "the program's");
    EXPECT_STREQ("again the program's", std::getenv("MURMELO_TEST_CHANGED"));
    const std::string script = "#!/bin/sh\n{ echo \"$MURMELO_TEST_CHANGED\"; echo "
                               "\"${MURMELO_TEST_NEW-not there}\"; } >\"" +
                               folders.path("shown") + "\"\n";
    folders.write("bin/xdg-open", script);
    ::chmod(folders.path("bin/xdg-open").c_str(), 0755);
    EXPECT_TRUE(FileManager::show("/tmp"));
    EXPECT_EQ("the user's\nnot there\n", folders.read("shown"));
}

TEST_F(FileManagerTest, withoutOneNothingIsShown) {
    setenv("PATH", folders.path("bin").c_str(), 1);
    EXPECT_FALSE(FileManager::show("/tmp"));
}

TEST_F(DesktopFileManagerTest, aFileIsMarkedWhereTheDesktopCanDoThat) {
    serve({});
    folders.write("my sounds/rec_00003.wav", "");
    EXPECT_TRUE(FileManager::showFile(folders.path("my sounds/rec_00003.wav")));
    EXPECT_EQ("[\"ShowItems\", [\"file://" + folders.path("my%20sounds/rec_00003.wav") +
                  "\"], \"\"]\n",
              folders.read("calls"));
    EXPECT_FALSE(folders.has("shown"));
}

TEST_F(DesktopFileManagerTest, elseItsFolderIsShown) {
    serve({"failing"});
    folders.write("my sounds/rec_00003.wav", "");
    EXPECT_TRUE(FileManager::showFile(folders.path("my sounds/rec_00003.wav")));
    EXPECT_EQ(0U, shown().find(folders.path("my sounds") + "\n")) << shown();
}

TEST_F(DesktopFileManagerTest, oneThatDoesNotReplyIsNotWaitedFor) {
    serve({"slow"});
    folders.write("rec_00003.wav", "");
    EXPECT_TRUE(FileManager::showFile(folders.path("rec_00003.wav")));
    EXPECT_TRUE(folders.has("shown"));
    EXPECT_EQ(std::string::npos, folders.read("calls").find("has replied"));
}

TEST_F(DesktopFileManagerTest, aFileThatIsGoneIsNotAskedFor) {
    serve({});
    EXPECT_TRUE(FileManager::showFile(folders.path("rec_00003.wav")));
    EXPECT_TRUE(folders.has("shown"));
    EXPECT_FALSE(folders.has("calls"));
}
