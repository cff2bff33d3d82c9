// SPDX-License-Identifier: MIT
// Asks for the names of all microphones without waiting; if the devices change meanwhile, asks
// again.
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

    /// Returns the names once, when they have come; before that, and after it, no value.
    std::optional<std::vector<std::string>> take();

private:
    SdlAudio& audio;
    Wake wake;
    std::shared_ptr<SdlAudio::Listing> listing;  // the current question; null: none
    bool isOutdated = false;                     // ask() was called again meanwhile
};
