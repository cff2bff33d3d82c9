// SPDX-License-Identifier: MIT
#include "MicrophoneList.h"

void MicrophoneList::ask() {
    isOutdated = listing != nullptr;
    if (!isOutdated) {
        listing = audio.namesLater(SdlAudio::Kind::kMicrophone, wake);
    }
}

std::optional<std::vector<std::string>> MicrophoneList::take() {
    if (listing == nullptr || !listing->isDone()) {
        return std::nullopt;
    }
    std::vector<std::string> names = listing->names();
    listing.reset();
    if (isOutdated) {
        ask();
        return std::nullopt;
    }
    return names;
}
