// SPDX-License-Identifier: MIT
// Keys of the phone pressed one after the other, each when the screen is there that wants it: the
// way from any screen to a recording, and to the user's language in the first list.
#pragma once

#include "Host.h"

#include <cstdint>
#include <optional>
#include <string>

class KeyWalk {
public:
    /// To a running recording.
    void toRecording() { begin(Goal::kRecording, 0); }

    /// In the list that the first start shows, to the entry of that index. Chooses nothing.
    void toFirstLanguage(int32_t index) { begin(Goal::kLanguage, index); }

    /// The user does something else.
    void giveUp() { goal = Goal::kNone; }

    /// Presses the next key if its time has come; from pump(), whenever something has happened.
    /// @returns whether a callback was delivered
    bool step(HostDoors& doors);

private:
    enum class Goal { kNone, kRecording, kLanguage };

    void begin(Goal newGoal, int32_t entry);
    std::optional<HostKey> towardsRecording(const ScreenTexts& texts);
    std::optional<HostKey> towardsLanguage(const ScreenTexts& texts);

    Goal goal = Goal::kNone;
    int32_t wantedEntry = 0;
    std::string answered;  // what the screen said when the last key was pressed
};
