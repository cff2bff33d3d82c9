// SPDX-License-Identifier: MIT
// Tells the user when the microphone that recordings use is removed and when it is back, also
// between recordings.
#pragma once

#include "HostMessage.h"

#include <functional>
#include <string>
#include <vector>

class MicrophoneWatch {
public:
    using Tell = std::function<void(const HostMessage& message)>;

    explicit MicrophoneWatch(Tell tell)
        : tell(std::move(tell)) {}

    /// This microphone is there; watches it from now on. If it was gone, tells the user that it is
    /// back.
    /// @param newName  empty: not known; then nothing changes
    void isThere(const std::string& newName);

    /// This microphone is gone, and the user knows it; watches it from now on.
    /// @param newName  empty: not known; then nothing changes
    void isGone(const std::string& newName);

    /// Ends the watching.
    void forget() { name.clear(); }

    /// Call it when the devices have changed. @param names of all microphones
    void listed(const std::vector<std::string>& names);

    /// As above, for calls during a recording; does not report a loss, because the recording does.
    void listedWhileRecording(const std::vector<std::string>& names);

private:
    bool isAmong(const std::vector<std::string>& names) const;

    Tell tell;
    std::string name;   // of the watched microphone; empty: none
    bool gone = false;  // true: it is gone, and the user knows it

    // True if a list since then was without it. Only after that does a list that has it mean that
    // it is back: after the end of a sound server, the old list is still returned for a while.
    bool wasMissing = false;
};
