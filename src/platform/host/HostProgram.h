// SPDX-License-Identifier: MIT
// The program as seen by a host that cannot run a loop of its own, as in a browser: the host begins
// it, calls step() again and again, and ends it.
#pragma once

class HostProgram {
public:
    virtual ~HostProgram() = default;

    /// Initialises the program and brings it to the foreground.
    /// @returns false if it cannot be initialised: then neither step() nor end() is called
    virtual bool begin() = 0;

    /// One turn of the loop; calls the host's pump() once.
    /// @returns false once the program has ended
    virtual bool step() = 0;

    /// Lets the program clean up.
    virtual void end() = 0;
};
