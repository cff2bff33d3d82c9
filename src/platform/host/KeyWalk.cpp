// SPDX-License-Identifier: MIT
#include "KeyWalk.h"

#include "ScreenNames.h"

#include <algorithm>

using Means = ScreenTexts::Means;

namespace {

constexpr int32_t kNone = -1;

int32_t focusedEntry(const ScreenTexts& texts) {
    const auto focused = std::find_if(texts.entries.begin(), texts.entries.end(),
                                      [](const auto& entry) { return entry.isFocused; });
    return focused != texts.entries.end() ? static_cast<int32_t>(focused - texts.entries.begin())
                                          : kNone;
}

int32_t recordingEntry(const ScreenTexts& texts) {
    const auto found =
        std::find_if(texts.entries.begin(), texts.entries.end(),
                     [](const auto& entry) { return entry.means == Means::kRecord; });
    return found != texts.entries.end() ? static_cast<int32_t>(found - texts.entries.begin())
                                        : kNone;
}

/// A text that changes when a key has had its effect.
std::string fingerprint(const ScreenTexts& texts) {
    std::string print = texts.screen + "\n" + std::to_string(focusedEntry(texts)) + "\n" +
                        std::to_string(texts.entries.size()) + "\n" + texts.message;
    for (const auto& key : texts.softKeys) {
        print += "\n" + key.text;
    }
    return print;
}

}  // namespace

void KeyWalk::begin(Goal newGoal, int32_t entry) {
    goal = newGoal;
    wantedEntry = entry;
    answered.clear();
}

bool KeyWalk::step(HostDoors& doors) {
    if (goal == Goal::kNone) {
        return false;
    }
    const ScreenTexts texts = doors.texts();
    const std::string now = fingerprint(texts);
    if (now == answered) {
        return false;
    }
    const std::optional<HostKey> key =
        goal == Goal::kRecording ? towardsRecording(texts) : towardsLanguage(texts);
    if (!key) {
        return false;
    }
    answered = now;
    return doors.navigate(*key);
}

std::optional<HostKey> KeyWalk::towardsRecording(const ScreenTexts& texts) {
    const Means middle = texts.softKeys[1].means;
    if (texts.isQuestion || texts.screen == ScreenNames::kFirstLanguage ||
        texts.screen == ScreenNames::kLastMessage || texts.screen == ScreenNames::kRecording) {
        giveUp();
        return {};
    }
    if (middle == Means::kRecord) {
        giveUp();  // the last key of the walk
        return HostKey::kMiddle;
    }
    if (texts.screen == ScreenNames::kSplash || middle == Means::kOk || middle == Means::kStop) {
        return HostKey::kMiddle;
    }
    if (middle == Means::kPlay) {
        return HostKey::kLeftSoft;  // to the menu
    }
    const int32_t wanted = recordingEntry(texts);
    const int32_t focused = focusedEntry(texts);
    if (wanted == kNone) {
        const bool inList = focused != kNone && texts.softKeys[2].means == Means::kBack;
        return inList ? std::optional(HostKey::kRightSoft) : std::nullopt;
    }
    if (focused == wanted) {
        return HostKey::kMiddle;
    }
    return focused > wanted ? HostKey::kUp : HostKey::kDown;
}

std::optional<HostKey> KeyWalk::towardsLanguage(const ScreenTexts& texts) {
    if (texts.screen.empty()) {
        return {};  // the first screen has not come yet
    }
    const int32_t focused = focusedEntry(texts);
    if (texts.screen != ScreenNames::kFirstLanguage || focused >= wantedEntry) {
        giveUp();
        return {};
    }
    return HostKey::kDown;
}
