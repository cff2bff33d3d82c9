// SPDX-License-Identifier: MIT
// What a host does for a recording whose microphone died: it presses "Stop", so that the take is
// kept.
#pragma once

class HostDoors;

class LostMicrophone {
public:
    /// Called in each pump. Presses "Stop" once for each loss, as soon as it is offered.
    /// @param lost   true while the microphone is lost
    /// @param doors  null: there are none
    /// @returns true if it pressed, which counts as a callback
    bool deliver(bool lost, HostDoors* doors);

private:
    bool pressed = false;
};
