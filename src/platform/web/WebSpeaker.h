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

    /// The element has played the clip of that ticket to its end, or cannot play it. Of an earlier
    /// clip it is dropped. @returns whether the listener was called
    bool ended(int32_t ofTicket);
    bool failed(int32_t ofTicket);

    /// The page cannot set the volume, as on phones that leave it to their keys: the samples of
    /// later clips are made softer instead.
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
