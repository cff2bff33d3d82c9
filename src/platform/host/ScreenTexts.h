// SPDX-License-Identifier: MIT
// The texts of the current picture, for people who do not see it, for window titles and for tests.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

/// A part of the 240 x 320 canvas, in its pixels.
struct ScreenPlace {
    int32_t x = 0;
    int32_t y = 0;
    int32_t w = 0;
    int32_t h = 0;

    bool operator==(const ScreenPlace&) const = default;
};

/// Only what is visible now. Texts are UTF-8 in the program's language; an empty one is not on the
/// screen.
struct ScreenTexts {
    /// What an entry or a soft key does, the same in every language.
    enum class Means { kOther, kBack, kOk, kPlay, kQuit, kRecord, kStop };

    struct Entry {
        std::string text;
        ScreenPlace place;  // a touch on its middle chooses it
        bool isFocused = false;
        Means means = Means::kOther;

        bool operator==(const Entry&) const = default;
    };

    /// Left, middle and right.
    static constexpr int32_t kSoftKeys = 3;

    static constexpr int32_t kNoProgress = -1;

    std::string language;       // Language::code
    std::string screen;         // the screen's own name, the same in every language
    std::string title;          // the effect's name
    std::vector<Entry> arrows;  // to the previous and the next effect; without texts
    std::string heading;        // of the message
    std::string message;
    bool isQuestion = false;  // the message is the question about silence
    std::vector<Entry> entries;
    std::string caption;                // of the work that goes on
    int32_t progressQ10 = kNoProgress;  // 0 to 1024 while work goes on
    std::array<Entry, kSoftKeys> softKeys;

    bool operator==(const ScreenTexts&) const = default;
};
