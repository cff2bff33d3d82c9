// SPDX-License-Identifier: MIT
// The whole program in a page that a test plays.
#pragma once

#include "FakePage.h"
#include "HostWords.h"
#include "OspProgram.h"
#include "TestFolders.h"
#include "TestSounds.h"
#include "WebHost.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

using Notes = std::vector<std::string>;
using Samples = TestSounds::Samples;

class WebHostTest : public testing::Test {
protected:
    WebHostTest() {
        folders.write("config/settings", "lang=0\n");
        HostFolders mapped;
        mapped.res = MURMELO_SOURCE_DIR "/res/Res";
        mapped.framework = MURMELO_SOURCE_DIR "/res/framework";
        mapped.home = folders.path("home");
        folders.makeFolder("home");
        mapped.config = folders.path("config");
        host = std::make_unique<WebHost>(page, mapped);
        EXPECT_TRUE(host->begin(std::make_unique<OspProgram>()));
        settle();
    }

    std::string screen() const {
        return host->doorsInUse() != nullptr ? host->doorsInUse()->screenName() : "";
    }

    /// Turns until the program sleeps. @returns for how long
    double settle() {
        double ms = 0;
        do {
            ms = host->turn();
        } while (ms == 0);
        return ms;
    }

    /// Time passes, and the program gets its turns when it wants them.
    void pass(double ms) {
        const double endMs = page.clockMs + ms;
        for (double wait = settle(); wait >= 0 && page.clockMs + wait <= endMs; wait = settle()) {
            page.clockMs += wait;
        }
        page.clockMs = std::max(page.clockMs, endMs);
        settle();
    }

    /// The strip's line.
    std::string line() {
        std::string all;
        for (const std::string& row : host->strip().strip().model().lines()) {
            all += (all.empty() ? "" : " ") + row;
        }
        return all;
    }

    static std::string word(const char* name) { return HostWords::text(name, "en"); }

    void key(HostKey key) {
        host->key(key);
        settle();
    }

    void toMenu() {
        pass(4000);
        ASSERT_EQ("Options", screen());
    }

    void hear(const Samples& samples) {
        std::vector<float> floats(samples.size());
        for (size_t i = 0; i < samples.size(); i++) {
            floats[i] = static_cast<float>(samples[i]) / 32768.0F;
        }
        host->heard(floats.data(), static_cast<int32_t>(floats.size()), 16000);
        settle();
    }

    /// In pixels of the program, on the strip or on its sheet.
    void tapStrip(int32_t x, int32_t y) {
        page.clockMs += 1000;
        for (const auto touch : {HostListener::Touch::kPress, HostListener::Touch::kRelease}) {
            host->touch(touch, true, 5, 2 * x, 2 * y, static_cast<uint32_t>(page.clockMs));
        }
        settle();
    }

    /// From the menu to the screen that offers "Record".
    void ask() {
        key(HostKey::kMiddle);
        ASSERT_EQ("Record", screen());
    }

    void allow() {
        host->microphoneAnswered(page.askedTicket, "", 16000);
        settle();
    }

    void refuse() { host->microphoneAnswered(page.askedTicket, "NotAllowedError", 0); }

    /// From the choice of the effect to the question about the microphone, and its refusal.
    void refuseAnother() {
        key(HostKey::kLeftSoft);
        ask();
        refuse();
    }

    /// From the menu into a recording that offers "Stop".
    void beginRecording() {
        ask();
        allow();
        key(HostKey::kMiddle);
        ASSERT_EQ("Recording", screen());
        hear(voice);
        pass(100);
    }

    void record() {
        beginRecording();
        key(HostKey::kMiddle);
        pass(100);
        ASSERT_EQ("Play", screen());
    }

    TestFolders folders;
    FakePage page;
    std::unique_ptr<WebHost> host;
    Samples voice = TestSounds::noise(16000);
};
