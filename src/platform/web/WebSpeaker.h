// SPDX-License-Identifier: MIT
// The page's one audio element as the phone's speaker.
#pragma once

#include "HostSound.h"
#include "WebPage.h"

#include <cstdint>

class WebSpeaker : public HostSpeaker {
public:
    /// @param page  not owned
    explicit WebSpeaker(WebPage& page)
        : page(page) {}

    /// The element has played the clip with that ticket to its end (ended), or cannot play it
    /// (failed). @returns true if the listener was called, false for an earlier clip
    bool ended(int32_t ofTicket);
    bool failed(int32_t ofTicket);

    /// True: the page cannot set the volume, as on phones where only their keys do. Then the
    /// samples of later clips are scaled instead.
    void volumeStays(bool stays) { isScaling = stays; }

    bool play(std::shared_ptr<const HostClip> clip, HostSpeakerListener& newListener) override;

    void setVolume(int32_t newVolume) override {
        volume = newVolume;
        page.setVolume(newVolume);
    }

    void pause() override { page.pauseClip(); }

    void resume() override { page.resumeClip(); }

    void stop() override;

private:
    HostSpeakerListener* finish(int32_t ofTicket);

    WebPage& page;
    HostSpeakerListener* listener = nullptr;
    int32_t ticket = 0;
    int32_t volume = kFullVolume;
    bool isScaling = false;
};
