// SPDX-License-Identifier: MIT
#include "MicrophoneWatch.h"

#include <algorithm>

void MicrophoneWatch::isThere(const std::string& newName) {
    if (newName.empty()) {
        return;
    }
    if (gone && newName == name) {
        tell({"microphoneBack", {name}});
    }
    name = newName;
    gone = false;
    wasMissing = false;
}

void MicrophoneWatch::isGone(const std::string& newName) {
    if (!newName.empty()) {
        name = newName;
        gone = true;
        wasMissing = false;
    }
}

void MicrophoneWatch::listed(const std::vector<std::string>& names) {
    if (!name.empty() && !gone && !isAmong(names)) {
        gone = true;
        tell({"microphoneLeft", {name}});
    }
    listedWhileRecording(names);
}

void MicrophoneWatch::listedWhileRecording(const std::vector<std::string>& names) {
    if (!isAmong(names)) {
        wasMissing = gone;
    } else if (wasMissing) {
        isThere(name);
    }
}

bool MicrophoneWatch::isAmong(const std::vector<std::string>& names) const {
    return std::find(names.begin(), names.end(), name) != names.end();
}
