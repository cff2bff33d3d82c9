// SPDX-License-Identifier: MIT
// The listeners to the microphone and to the player. Both work on the state of AudioDev and have
// none of their own.
#pragma once

#include "AudioDev.h"
#include "OspMedia.h"

class AudioDev::AudioInListener : public Osp::Media::IAudioInEventListener {
public:
    /// Writes the buffer to the take and queues it again; does nothing while the application is
    /// paused.
    void OnAudioInBufferIsFilled(ByteBuffer* buffer) override;

    void OnAudioInErrorOccurred(Osp::Media::AudioInErrorReason /*reason*/) override {}

    void OnAudioInInterrupted() override {}

    void OnAudioInReleased() override {}
};

class AudioDev::PlayerListener : public Osp::Media::IPlayerEventListener {
public:
    void OnPlayerOpened(result r) override;

    /// Deliberate: the device counts as playing until the screen receives the event and stops it.
    void OnPlayerEndOfClip() override;
    void OnPlayerErrorOccurred(Osp::Media::PlayerErrorReason reason) override;

    void OnPlayerBuffering(int32_t /*percent*/) override {}

    void OnPlayerInterrupted() override {}

    void OnPlayerReleased() override {}

    void OnPlayerSeekCompleted(result /*r*/) override {}
};
