// The job of applying the current effect to the take, for whichever screen wants its result.
#pragma once

class State;

class EffectJob {
public:
    /// Loads the take and enters the processing screen. Without a take the fatal message stands
    /// afterwards.
    /// @param next  entered when the result is on file
    /// @param back  entered when the work is interrupted
    static void enter(State* next, State* back);
};
