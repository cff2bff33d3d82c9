// SPDX-License-Identifier: MIT
// Which words tell why there is no microphone.
#pragma once

#include <cstdint>
#include <string>

class MicrophoneReasons {
public:
    /// @param error  the name of the exception that the browser threw; empty: it gives the
    /// microphone
    /// @param rateHz  of the samples that would come
    /// @returns a name of HostWords; null if nothing is wrong
    static const char* wordOf(const std::string& error, int32_t rateHz);
};
