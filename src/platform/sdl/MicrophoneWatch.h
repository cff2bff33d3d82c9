// SPDX-License-Identifier: MIT
// Tells the user when the microphone of the recordings goes away and when it is back, also between
// recordings.
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

    /// This one is there, and is watched from now on. If it was gone, that it is back is told.
    /// @param newName  empty: it is not known, and nothing changes
    void isThere(const std::string& newName);

    /// This one is gone, and the user was told so. It is watched from now on.
    /// @param newName  empty: it is not known, and nothing changes
    void isGone(const std::string& newName);

    /// None is watched any more.
    void forget() { name.clear(); }

    /// The devices have changed; these are the names of all microphones.
    void listed(const std::vector<std::string>& names);

    /// The same while a recording goes on, which tells by itself what it loses.
    void listedWhileRecording(const std::vector<std::string>& names);

private:
    bool isAmong(const std::vector<std::string>& names) const;

    Tell tell;
    std::string name;   // of the one that is watched; empty: none
    bool gone = false;  // and the user knows

    // No list had it since it is gone. The list of a server that has ended is that of before.
    bool wasMissing = false;
};
