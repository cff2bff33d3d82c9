// SPDX-License-Identifier: MIT
// Presses keys of the phone one after the other, each once the program has reacted to the one
// before. It leads from any screen to a recording, and in the first list to the user's language.
#pragma once

#include "Host.h"

#include <cstdint>
#include <optional>
#include <string>

class KeyWalk {
public:
    /// Begins the walk to a running recording.
    void toRecording() { begin(Goal::kRecording, 0); }

    /// Begins the walk to an entry of the list that the first start shows. It moves the focus and
    /// chooses nothing.
    void toFirstLanguage(int32_t index) { begin(Goal::kLanguage, index); }

    /// Ends the walk, because the user does something else.
    void giveUp() { goal = Goal::kNone; }

    /// Presses the next key if the program has reacted to the last one. Call it in each pump().
    /// @returns true if a key was pressed, which counts as a callback
    bool step(HostDoors& doors);

private:
    enum class Goal { kNone, kRecording, kLanguage };

    void begin(Goal newGoal, int32_t entry);
    std::optional<HostKey> towardsRecording(const ScreenTexts& texts);
    std::optional<HostKey> towardsLanguage(const ScreenTexts& texts);

    Goal goal = Goal::kNone;
    int32_t wantedEntry = 0;
    std::string answered;  // fingerprint of the screen on which the last key was pressed
};
