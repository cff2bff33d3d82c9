// SPDX-License-Identifier: MIT
#include "WebSpeaker.h"

#include "PlainWav.h"

#include <utility>
#include <vector>

bool WebSpeaker::play(std::shared_ptr<const HostClip> clip, HostSpeakerListener& newListener) {
    if (listener != nullptr) {
        return false;
    }
    listener = &newListener;
    std::vector<int16_t> samples = clip->samples;
    if (isScaling) {
        for (int16_t& sample : samples) {
            sample = static_cast<int16_t>(sample * volume / kFullVolume);
        }
    }
    page.playClip(++ticket, PlainWav::toFile(samples.data(), static_cast<int32_t>(samples.size()),
                                             clip->rateHz));
    return true;
}

void WebSpeaker::stop() {
    listener = nullptr;
    page.stopClip();
}

bool WebSpeaker::ended(int32_t ofTicket) {
    HostSpeakerListener* const done = finish(ofTicket);
    if (done != nullptr) {
        done->onClipEnd();
    }
    return done != nullptr;
}

bool WebSpeaker::failed(int32_t ofTicket) {
    HostSpeakerListener* const done = finish(ofTicket);
    if (done != nullptr) {
        done->onDeviceLost();
    }
    return done != nullptr;
}

/// Ends the clip with that ticket and returns its listener; null if another clip, or none, plays.
HostSpeakerListener* WebSpeaker::finish(int32_t ofTicket) {
    return ofTicket == ticket ? std::exchange(listener, nullptr) : nullptr;
}
