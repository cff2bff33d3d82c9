// SPDX-License-Identifier: MIT
// Applies the current effect to the take, for the screens that need its result.
#pragma once

class State;

class EffectJob {
public:
    /// Loads the take and enters the processing screen. Without a take it shows the fatal message.
    /// @param next  entered when the result is on file
    /// @param back  entered when the work is interrupted
    static void enter(State* next, State* back);
};
