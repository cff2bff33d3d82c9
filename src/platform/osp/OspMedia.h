// SPDX-License-Identifier: MIT
// The phone's microphone and its player of sound files. Callbacks come on the event thread, between
// two user events. An object that was closed or deleted makes none, except for the end of the clip
// after an error.
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

    /// A buffer was filled: its position is 0, its limit the number of bytes. It is no longer
    /// queued, and the listener may use it again.
    virtual void OnAudioInBufferIsFilled(Osp::Base::ByteBuffer* buffer) = 0;

    /// The microphone was lost. The samples from before were delivered already, in a last, partly
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

    /// Stops the microphone without delivering a buffer.
    ~AudioIn() override;

    /// @param listener  not owned
    result Construct(IAudioInEventListener& listener);

    /// Accepts only the phone's own format: its microphone, 16 bits, mono, 16000 Hz.
    result Prepare(AudioInputDevice device,
                   AudioSampleType sampleType,
                   AudioChannelType channelType,
                   int32_t rateHz);

    /// Queues an empty buffer (not owned) with room for at least one sample. Sound that comes while
    /// no buffer is queued waits for the next one.
    result AddBuffer(Osp::Base::ByteBuffer* buffer);
    result Start();

    /// First delivers the samples so far (the last buffer may be partly filled), so that the last
    /// word is in the take; then stops.
    result Stop();

    /// Stops, forgets the queued buffers, and delivers nothing.
    result Reset();
    result Unprepare();

    AudioInState GetState() const { return state; }

private:
    int32_t samplesWanted() override;
    void onSamples() override;
    void onDeviceLost() override;

    /// Fills the first queued buffer and removes it from the queue; null if there are no samples.
    Osp::Base::ByteBuffer* fillNext();

    /// Calls the listener, which may delete this object. If the listener could not write the buffer
    /// to the disk, tells the user, once for each recording.
    void handOver(Osp::Base::ByteBuffer* filled);
    bool deliverRest();

    static void sayCutShort();

    /// If the take was cut short, tells the user how much of it is kept.
    void sayHowMuchIsKept() const;

    /// Tells the user of the loss of the microphone, if it was lost. Called only once it is known
    /// whether the take is kept: a pause would delete it.
    void sayLoss(bool isTakeKept);
    void silence();
    void release();

    // For the current recording.
    static int32_t cutBy;      // errno of the error that has cut it short; 0: none
    static int64_t keptBytes;  // length of its file, if it was cut short

    IAudioInEventListener* listener = nullptr;
    std::deque<Osp::Base::ByteBuffer*> queue;
    AudioInState state = AUDIOIN_STATE_INITIALIZED;
    bool isMicrophoneHeld = false;  // prepared, and not released yet
    bool isLossUnreported = false;  // the microphone was lost, and the user was not told yet
    int64_t heardSamples = 0;       // samples in the current recording's filled buffers
    bool* deletedMark = nullptr;    // the destructor sets it: a listener may delete this object
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

    /// The speaker was lost. OnPlayerEndOfClip follows, even if this callback closes the player,
    /// but not if it deletes the player or plays again.
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
    /// @param videoBuffer  null: the player has no picture
    result Construct(IPlayerEventListener& listener, const void* videoBuffer);

    /// Reads a WAV file of the plain form (44 bytes of header, 16 bits, mono, any usual rate) and
    /// refuses every other. The result tells if it worked; OnPlayerOpened is not called.
    /// @param isAsync  must be false
    result OpenFile(const Osp::Base::String& path, bool isAsync);

    /// 0 to kMaxVolume.
    result SetVolume(int32_t level);

    /// Plays from the beginning, or from where it was paused.
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
    bool* deletedMark = nullptr;  // the destructor sets it: a listener may delete this object
};

}  // namespace Osp::Media
