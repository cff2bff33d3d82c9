// SPDX-License-Identifier: MIT
// Stalls, continues and ends the private sound server of the tests.
#pragma once

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>

class SoundServer {
public:
    static void send(int signal) {
        const char* text = std::getenv("MURMELO_TEST_SOUND_SERVER");
        const auto server =
            text != nullptr ? static_cast<pid_t>(std::strtol(text, nullptr, 10)) : 0;
        ASSERT_LT(1, server)
            << "the caller of the tests must name their server; 0 would end the tests themselves";
        kill(server, signal);
    }
};
