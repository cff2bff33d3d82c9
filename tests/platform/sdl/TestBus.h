// SPDX-License-Identifier: MIT
// A session bus of the test's own, and simulated services on it.
#pragma once

#include "Program.h"
#include "TestFolders.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

/// Skips the test if this machine has no bus, or Python cannot speak to it. Fails where everything
/// is installed: ./test says so.
#define NEEDS_TEST_BUS()                                                                           \
    if (!TestBus::isInstalled()) {                                                                 \
        ASSERT_EQ(nullptr, std::getenv("MURMELO_ALL_INSTALLED"));                                  \
        GTEST_SKIP() << "there is no dbus-daemon, python3-dbus or python3-gi";                     \
    }                                                                                              \
    static_assert(true)

class TestBus {
public:
    /// @param folders  where the bus and the services write; not owned
    explicit TestBus(TestFolders& folders)
        : folders(folders) {}

    TestBus(const TestBus&) = delete;
    TestBus& operator=(const TestBus&) = delete;

    ~TestBus() { unsetenv("DBUS_SESSION_BUS_ADDRESS"); }

    /// False if this machine has no bus, or Python cannot speak to it.
    static bool isInstalled() {
        return std::system("command -v dbus-daemon >/dev/null && /usr/bin/python3 -c 'import dbus,"
                           " gi' 2>/dev/null") == 0;
    }

    /// Starts the bus; programs that begin after this use it.
    bool start() {
        const std::string address = "unix:path=" + folders.path("bus");
        bus = std::make_unique<Program>(
            std::vector<std::string>{"dbus-daemon", "--session", "--nofork", "--nopidfile",
                                     "--address=" + address, "--syslog-only"});
        setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), 1);
        return until([this] { return folders.has("bus"); });
    }

    void kill() { bus->send(SIGKILL); }

    /// Starts a script of this folder. It writes the calls that it gets into the file "calls".
    bool serve(const std::string& script, const std::vector<std::string>& words) {
        std::vector<std::string> command{"/usr/bin/python3",
                                         MURMELO_SOURCE_DIR "/tests/platform/sdl/" + script,
                                         folders.path("calls")};
        command.insert(command.end(), words.begin(), words.end());
        service = std::make_unique<Program>(command);
        return until([this] { return folders.has("calls.ready"); });
    }

    static bool until(const std::function<bool()>& happened) {
        for (int64_t ms = 0; ms < Program::kMaxWaitMs && !happened(); ms += 10) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return happened();
    }

private:
    TestFolders& folders;
    std::unique_ptr<Program> bus;
    std::unique_ptr<Program> service;
};
