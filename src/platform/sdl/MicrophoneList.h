// SPDX-License-Identifier: MIT
// Asks for the names of all microphones without holding anything up, again if the devices change
// meanwhile.
#pragma once

#include "SdlAudio.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class MicrophoneList {
public:
    using Wake = std::function<void()>;

    /// @param audio  not owned
    /// @param wake   called on another thread when take() has something
    MicrophoneList(SdlAudio& audio, Wake wake)
        : audio(audio)
        , wake(std::move(wake)) {}

    void ask();

    /// The names that were asked for, once; nothing before they have come.
    std::optional<std::vector<std::string>> take();

private:
    SdlAudio& audio;
    Wake wake;
    std::shared_ptr<SdlAudio::Listing> listing;  // null: none is asked for
    bool isOutdated = false;                     // it was asked for again
};
