// SPDX-License-Identifier: MIT
// A second start hands its file over to the first program of the same home and user.
#include "StartSocket.h"
#include "TestFolders.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <mutex>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

class StartSocketTest : public testing::Test {
protected:
    StartSocketTest() {
        const char* given = std::getenv("XDG_RUNTIME_DIR");
        before = given != nullptr ? given : "";
        setenv("XDG_RUNTIME_DIR", folders.path("").c_str(), 1);
    }

    ~StartSocketTest() override {
        if (before.empty()) {
            unsetenv("XDG_RUNTIME_DIR");
        } else {
            setenv("XDG_RUNTIME_DIR", before.c_str(), 1);
        }
    }

    /// The starts that the first program was told of so far. The other side gets its reply only
    /// after that.
    std::vector<std::string> told() {
        const std::lock_guard<std::mutex> lock(mutex);
        return files;
    }

    TestFolders folders;
    std::string before;
    std::mutex mutex;
    std::vector<std::string> files;
    std::atomic<bool> isEnding{false};
    StartSocket first{[this](const std::string& file) {
        const std::lock_guard<std::mutex> lock(mutex);
        files.push_back(file);
        return !isEnding;
    }};
};

using Files = std::vector<std::string>;

}  // namespace

TEST_F(StartSocketTest, aSecondStartHandsItsFileOver) {
    first.open("/home/ann/Music");
    EXPECT_TRUE(StartSocket::handOver("/home/ann/Music", "/tmp/voice.wav"));
    EXPECT_TRUE(StartSocket::handOver("/home/ann/Music", ""));
    EXPECT_EQ((Files{"/tmp/voice.wav", ""}), told());
}

TEST_F(StartSocketTest, aWordAsksForTheLastTake) {
    first.open("/home");
    EXPECT_TRUE(StartSocket::handOver("/home", StartSocket::kLastTake));
    EXPECT_EQ(Files{StartSocket::kLastTake}, told());
}

TEST_F(StartSocketTest, aPathIsThatOfTheSecondStartsFolder) {
    first.open("/home");
    EXPECT_TRUE(StartSocket::handOver("/home", "voice.wav"));
    EXPECT_EQ(Files{std::filesystem::current_path() / "voice.wav"}, told());
}

TEST_F(StartSocketTest, eachHomeHasItsOwn) {
    first.open("/home/ann/Music");
    EXPECT_FALSE(StartSocket::handOver("/home/ben/Music", ""));
    EXPECT_EQ(Files{}, told());
}

TEST_F(StartSocketTest, aProgramThatIsEndingTakesNothing) {
    first.open("/home");
    isEnding = true;
    EXPECT_FALSE(StartSocket::handOver("/home", "/tmp/voice.wav"));
    first.close();
    EXPECT_FALSE(StartSocket::handOver("/home", "/tmp/voice.wav"));
    EXPECT_FALSE(std::filesystem::exists(StartSocket::pathFor("/home")));
    EXPECT_EQ(Files{"/tmp/voice.wav"}, told());
}

TEST_F(StartSocketTest, onlyThisUserCanReachIt) {
    first.open("/home");

    struct stat facts {};

    ASSERT_EQ(0, stat(StartSocket::pathFor("/home").c_str(), &facts));
    EXPECT_TRUE(S_ISSOCK(facts.st_mode));
    EXPECT_EQ(0600U, facts.st_mode & 0777U);
    EXPECT_EQ(getuid(), facts.st_uid);
}

TEST_F(StartSocketTest, anotherUserIsNotHeard) {
    if (getuid() != 0) {
        GTEST_SKIP() << "only root can become another user";
    }
    first.open("/home");
    chmod(folders.path("").c_str(), 0755);
    chmod(StartSocket::pathFor("/home").c_str(), 0666);
    const pid_t other = fork();
    if (other == 0) {
        _exit(setuid(65534) == 0 && !StartSocket::handOver("/home", "/tmp/voice.wav") ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(other, waitpid(other, &status, 0));
    EXPECT_EQ(0, status);
    EXPECT_EQ(Files{}, told());
}

TEST_F(StartSocketTest, withoutARuntimeFolderThereIsNone) {
    for (const char* folder : {"", "relative", "/nowhere/at/all"}) {
        setenv("XDG_RUNTIME_DIR", folder, 1);
        EXPECT_EQ("", StartSocket::pathFor("/home"));
        first.open("/home");
        EXPECT_FALSE(StartSocket::handOver("/home", ""));
    }
}

TEST_F(StartSocketTest, aFolderWhoseNameIsTooLongForASocketIsNone) {
    const std::string folder = folders.path(std::string(120, 'x'));
    std::filesystem::create_directory(folder);
    setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
    EXPECT_EQ("", StartSocket::pathFor("/home"));
}

TEST_F(StartSocketTest, aSocketThatWasLeftOverIsReplacedAndTakenAwayAtTheEnd) {
    const std::string path = StartSocket::pathFor("/home");
    {
        const int left = socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        ASSERT_EQ(0, bind(left, reinterpret_cast<const sockaddr*>(&address), sizeof address));
        close(left);
    }
    EXPECT_FALSE(StartSocket::handOver("/home", ""));  // no program listens
    {
        StartSocket second([](const std::string&) { return true; });
        second.open("/home");
        EXPECT_TRUE(StartSocket::handOver("/home", ""));
    }
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(StartSocketTest, whatIsNoPathIsNotTaken) {
    first.open("/home");
    const std::string path = StartSocket::pathFor("/home");
    for (const std::string& words :
         {std::string("voice.wav"), std::string(5000, '/'), std::string("/tmp/voice.wav\0x", 16)}) {
        const int client = socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        ASSERT_EQ(0, connect(client, reinterpret_cast<const sockaddr*>(&address), sizeof address));
        send(client, words.data(), words.size(), MSG_NOSIGNAL);
        shutdown(client, SHUT_WR);
        char reply = 0;
        EXPECT_GE(0, recv(client, &reply, 1, 0));
        close(client);
    }
    EXPECT_EQ(Files{}, told());
}
