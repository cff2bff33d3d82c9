// SPDX-License-Identifier: MIT
// The phone's microphone and its player of sound files. Every callback comes on the event thread,
// between two user events; none comes from an object that was closed or deleted, but for the end of
// the clip after an error.
#pragma once

#include "HostSound.h"
#include "OspBase.h"
#include "OspBuffer.h"

#include <cstdint>
#include <deque>
#include <memory>

namespace Osp::Media {

enum AudioInputDevice : int32_t { AUDIO_INPUT_DEVICE_MIC = 0 };

enum AudioSampleType : int32_t { AUDIO_TYPE_PCM_S16_LE = 5 };

enum AudioChannelType : int32_t { AUDIO_CHANNEL_TYPE_MONO = 1 };

enum AudioInState {
    AUDIOIN_STATE_INITIALIZED = 0,
    AUDIOIN_STATE_PREPARED = 1,
    AUDIOIN_STATE_RECORDING = 2,
    AUDIOIN_STATE_STOPPED = 3,
    AUDIOIN_STATE_UNPREPARED = 4,
};

enum AudioInErrorReason { AUDIOIN_ERROR_DEVICE_FAILED = 1 };

class IAudioInEventListener {
public:
    virtual ~IAudioInEventListener() = default;

    /// Position 0; the limit is the number of bytes filled. The buffer is the listener's
    /// again.
    virtual void OnAudioInBufferIsFilled(Osp::Base::ByteBuffer* buffer) = 0;

    /// The microphone was lost. What it had heard was delivered before this, in a last, partly
    /// filled buffer. The recorder counts as recording until it is stopped.
    virtual void OnAudioInErrorOccurred(AudioInErrorReason reason) = 0;
    virtual void OnAudioInInterrupted() = 0;
    virtual void OnAudioInReleased() = 0;
};

/// Fills buffers from the microphone, in the order in which they were added.
class AudioIn : public Osp::Base::Object, private HostMicrophoneListener {
public:
    AudioIn() = default;
    AudioIn(const AudioIn&) = delete;
    AudioIn& operator=(const AudioIn&) = delete;

    /// Silences the microphone; no buffer is delivered any more.
    ~AudioIn() override;

    /// @param listener  not owned
    result Construct(IAudioInEventListener& listener);

    /// The phone's own format only: its microphone, 16 bits, mono, 16000 Hz.
    result Prepare(AudioInputDevice device,
                   AudioSampleType sampleType,
                   AudioChannelType channelType,
                   int32_t rateHz);

    /// Queues an empty buffer (not owned) with room for one sample at least. Sound that comes while
    /// none is queued waits for the next.
    result AddBuffer(Osp::Base::ByteBuffer* buffer);
    result Start();

    /// Delivers what was heard until now, the last buffer filled in part, and only then counts as
    /// stopped: the last word is in the take.
    result Stop();

    /// Stops, forgets the queued buffers, and delivers nothing.
    result Reset();
    result Unprepare();

    AudioInState GetState() const { return state; }

private:
    int32_t samplesWanted() override;
    void onSamples() override;
    void onDeviceLost() override;

    /// Fills the first queued buffer and takes it out of the queue; null if nothing was heard.
    Osp::Base::ByteBuffer* fillNext();

    /// Calls the listener, which may delete this object. The host says if the listener could not
    /// write a buffer to the disk, once for each recording.
    void handOver(Osp::Base::ByteBuffer* filled);
    bool deliverRest();

    static void sayCutShort();

    /// Reports how much of a take is kept that was cut short, if it was.
    void sayHowMuchIsKept() const;

    /// Reports the loss of the microphone, if it was lost. Called only when it is known what
    /// happens to the take, because a pause still deletes it.
    void sayLoss(bool isTakeKept);
    void silence();
    void release();

    // Of the current recording.
    static int32_t cutBy;      // the system's number of the error that cut it short; 0: none
    static int64_t keptBytes;  // of its file, if it was cut short

    IAudioInEventListener* listener = nullptr;
    std::deque<Osp::Base::ByteBuffer*> queue;
    AudioInState state = AUDIOIN_STATE_INITIALIZED;
    bool isMicrophoneHeld = false;  // prepared, and not released yet
    bool isLossUnsaid = false;      // the microphone died in the current recording
    int64_t heardSamples = 0;       // in the buffers that were filled in the current recording
    bool* deletedMark = nullptr;    // of the current delivery: a listener may delete this object
};

enum PlayerState {
    PLAYER_STATE_INITIALIZED = 0,
    PLAYER_STATE_OPENED = 2,
    PLAYER_STATE_ENDOFCLIP = 3,
    PLAYER_STATE_STOPPED = 4,
    PLAYER_STATE_PAUSED = 5,
    PLAYER_STATE_PLAYING = 6,
    PLAYER_STATE_CLOSED = 7,
};

enum PlayerErrorReason { PLAYER_ERROR_DEVICE_FAILED = 1 };

class IPlayerEventListener {
public:
    virtual ~IPlayerEventListener() = default;

    virtual void OnPlayerOpened(result r) = 0;

    /// The last sample was heard.
    virtual void OnPlayerEndOfClip() = 0;
    virtual void OnPlayerBuffering(int32_t percent) = 0;

    /// The speaker was lost. OnPlayerEndOfClip follows even if the player is closed in here, but
    /// not if it is deleted or plays again.
    virtual void OnPlayerErrorOccurred(PlayerErrorReason reason) = 0;
    virtual void OnPlayerInterrupted() = 0;
    virtual void OnPlayerReleased() = 0;
    virtual void OnPlayerSeekCompleted(result r) = 0;
};

/// Plays one sound file.
class Player : public Osp::Base::Object, private HostSpeakerListener {
public:
    static constexpr int32_t kMaxVolume = HostSpeaker::kFullVolume;

    Player() = default;
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    /// Silent at once; the listener is not called any more.
    ~Player() override;

    /// @param listener     not owned
    /// @param videoBuffer  null: there is nothing to see
    result Construct(IPlayerEventListener& listener, const void* videoBuffer);

    /// Reads a sound of the plain form (44 bytes of header, 16 bits, mono, any usual rate) and
    /// refuses every other. The result reports everything: OnPlayerOpened is not called.
    /// @param isAsync  must be false: nothing is opened in the background
    result OpenFile(const Osp::Base::String& path, bool isAsync);

    /// 0 to kMaxVolume.
    result SetVolume(int32_t level);

    /// From the beginning, or where it was paused.
    result Play();
    result Pause();
    result Stop();
    result Close();

    PlayerState GetState() const { return state; }

private:
    void onClipEnd() override;
    void onDeviceLost() override;
    void silence();

    IPlayerEventListener* listener = nullptr;
    std::shared_ptr<const HostClip> clip;
    int32_t volume = kMaxVolume;
    PlayerState state = PLAYER_STATE_INITIALIZED;
    bool* deletedMark = nullptr;  // of the error being told: a listener may delete this object
};

}  // namespace Osp::Media
