// SPDX-License-Identifier: MIT
// Presses "Stop" when a recording has lost its microphone, so that the take is kept.
#pragma once

class HostDoors;

class LostMicrophone {
public:
    /// Called in each pump. Presses "Stop" once for each loss, as soon as it is offered.
    /// @param lost   true while the microphone is lost
    /// @param doors  null: the program has ended
    /// @returns true if it pressed "Stop", which counts as a callback
    bool deliver(bool lost, HostDoors* doors);

private:
    bool pressed = false;
};
