// SPDX-License-Identifier: MIT
// The interface to sound: records the microphone directly into a WAV file, or plays a WAV file. It
// does only one of the two at a time.
#pragma once

#include "Array.h"

#include <cstdint>
#include <memory>

class GnoObject;

namespace Osp::Base {
class ByteBuffer;
class String;
}  // namespace Osp::Base

namespace Osp::Io {
class File;
}

namespace Osp::Media {
class AudioIn;
class Player;
}  // namespace Osp::Media

class AudioDev {
public:
    using String = Osp::Base::String;
    using ByteBuffer = Osp::Base::ByteBuffer;

    class AudioInListener;
    class PlayerListener;

    static constexpr int32_t kReady = 1;
    static constexpr int32_t kRecordingPrepared = 2;
    static constexpr int32_t kRecording = 3;
    static constexpr int32_t kPlaying = 4;

    /// Prepares a recording into the file at path, which is emptied. Only when nothing is recorded
    /// or played. This and the following operations return true on success; on false the state is
    /// unchanged.
    static bool initRec(String* path);

    /// Starts to record. Only after initRec.
    static bool startRec();

    /// Stops recording and finishes the file.
    static bool stopRec();

    /// Plays a WAV file.
    /// @param endEvent  name of the event to schedule at the end of the file; not owned
    static bool startPlay(String* path, String* endEvent);
    static bool stopPlay();

    /// Changes the volume by one step: down if direction is negative, else up.
    static void changeVolume(int32_t direction);

    /// Appends a filled buffer to the file. A buffer that comes after the stop corrects the header
    /// too. If a buffer could not be written whole, later ones are only counted.
    static void ConsumeBuffer(ByteBuffer* buffer);

    static void static_ctor();
    static void static_dtor();

    static int32_t state;
    static Osp::Media::Player* pPlayer;  // of the current playback, or of the last one
    static std::unique_ptr<PlayerListener> pPlayerListener;
    static Osp::Media::AudioIn* pRecorder;
    static std::unique_ptr<AudioInListener> pRecorderListener;
    static int32_t volumeLevel;  // 0 to 90

    // Three buffers circulate; the fourth holds what is being written, so that its buffer could be
    // filled again meanwhile. NOLINTBEGIN(bugprone-reserved-identifier): names as on the phone
    static ByteBuffer* __pByteBuffer1;
    static ByteBuffer* __pByteBuffer2;
    static ByteBuffer* __pByteBuffer3;
    static std::unique_ptr<ByteBuffer> __pTempBuffer;
    // NOLINTEND(bugprone-reserved-identifier)

    static Osp::Io::File* record;                // the take, while it is written
    static Array<signed char> recordFileHeader;  // of 44
    static int32_t recordLength;                 // bytes of samples received
    static String* endOfMediaEventType;          // not owned
    static bool isSilent;                        // play without a sound
    static std::unique_ptr<String> msg;          // last error
    static GnoObject* baos;                      // always null
    static GnoObject* recUri;                    // always null

private:
    static bool prepareRecorder();
    static bool queueBuffers();
    static bool openRecord(String* path);
    static bool openPlayer(String* path);
    static bool hasRecorderStopped();
    static void writeHeader();
    static void deleteRecord();
    static void deleteBuffers();
    static void deleteRecorder();
    static void deletePlayer();

    static bool isCutShort;  // a buffer of the take could not be written whole
};
