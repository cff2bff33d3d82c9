// SPDX-License-Identifier: MIT
// Chooses the words that tell why there is no microphone.
#pragma once

#include <cstdint>
#include <string>

class MicrophoneReasons {
public:
    /// @param error  the name of the exception that the browser threw; empty: the microphone was
    /// granted
    /// @param rateHz  of the microphone's samples
    /// @returns a name of HostWords; null if nothing is wrong
    static const char* wordOf(const std::string& error, int32_t rateHz);
};
