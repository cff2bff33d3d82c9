// SPDX-License-Identifier: MIT
// The doors of a program whose screen the test sets; notes the keys that it gets.
#pragma once

#include "QuietDoors.h"

#include <string>
#include <vector>

class FakeDoors : public QuietDoors {
public:
    using Means = ScreenTexts::Means;

    std::string screenName() override { return shown.screen; }

    bool navigate(HostKey key) override {
        keys.push_back(key);
        return true;
    }

    ScreenTexts texts() override { return shown; }

    /// Shows a screen with these soft keys. Their texts are in no language: only their meaning
    /// counts.
    void show(const std::string& screen, Means left, Means middle, Means right) {
        shown = {};
        shown.screen = screen;
        shown.softKeys = {key(left), key(middle), key(right)};
    }

    /// No soft key, for show().
    static constexpr auto kNoKey = static_cast<Means>(-1);

    ScreenTexts shown;
    std::vector<HostKey> keys;

private:
    static ScreenTexts::Entry key(Means means) {
        ScreenTexts::Entry entry;
        if (means != kNoKey) {
            entry.text = "word " + std::to_string(static_cast<int32_t>(means));
            entry.means = means;
        }
        return entry;
    }
};
