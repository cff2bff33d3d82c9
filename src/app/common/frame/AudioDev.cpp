// SPDX-License-Identifier: MIT
#include "AudioDev.h"

#include "AudioDevListeners.h"
#include "GnoObject.h"
#include "Orm.h"
#include "OspIo.h"
#include "WavFile.h"
#include "WavProps.h"

using Osp::Base::ByteBuffer;
using Osp::Base::String;
using Osp::Io::File;
using Osp::Media::AudioIn;
using Osp::Media::Player;

namespace {

// 0.75 s of sound. The "Stop" key appears with the first filled buffer: with larger buffers it
// would appear later.
constexpr int32_t kBufferBytes = 24000;

constexpr int32_t kFirstVolume = 50;
constexpr int32_t kVolumeStep = 10;
constexpr int32_t kHighestRaisedVolume = 89;

}  // namespace

int32_t AudioDev::state;
Player* AudioDev::pPlayer;
std::unique_ptr<AudioDev::PlayerListener> AudioDev::pPlayerListener;
AudioIn* AudioDev::pRecorder;
std::unique_ptr<AudioDev::AudioInListener> AudioDev::pRecorderListener;
int32_t AudioDev::volumeLevel;
ByteBuffer* AudioDev::__pByteBuffer1;
ByteBuffer* AudioDev::__pByteBuffer2;
ByteBuffer* AudioDev::__pByteBuffer3;
std::unique_ptr<ByteBuffer> AudioDev::__pTempBuffer;
File* AudioDev::record;
Array<signed char> AudioDev::recordFileHeader;
int32_t AudioDev::recordLength;
bool AudioDev::isCutShort;
String* AudioDev::endOfMediaEventType;
bool AudioDev::isSilent;
std::unique_ptr<String> AudioDev::msg;
GnoObject* AudioDev::baos;
GnoObject* AudioDev::recUri;

void AudioDev::static_ctor() {
    state = kReady;
    pPlayer = nullptr;
    pPlayerListener = std::make_unique<PlayerListener>();
    pRecorder = nullptr;
    pRecorderListener = std::make_unique<AudioInListener>();
    volumeLevel = kFirstVolume;
    __pByteBuffer1 = nullptr;
    __pByteBuffer2 = nullptr;
    __pByteBuffer3 = nullptr;
    __pTempBuffer.reset();
    record = nullptr;
    recordFileHeader.reset();
    recordLength = 0;
    isCutShort = false;
    endOfMediaEventType = nullptr;
    isSilent = false;
    msg = std::make_unique<String>("");
    baos = nullptr;
    recUri = nullptr;
}

void AudioDev::static_dtor() {
    deletePlayer();
    deleteRecorder();
    pPlayerListener.reset();
    pRecorderListener.reset();
    deleteBuffers();
    __pTempBuffer.reset();
    deleteRecord();
    recordFileHeader.reset();
    delete baos;
    baos = nullptr;
    delete recUri;
    recUri = nullptr;
    msg.reset();
    endOfMediaEventType = nullptr;
}

bool AudioDev::initRec(String* path) {
    if (state != kReady || !prepareRecorder() || !queueBuffers() || !openRecord(path)) {
        return false;
    }
    state = kRecordingPrepared;
    return true;
}

bool AudioDev::prepareRecorder() {
    deleteRecorder();
    pRecorder = new AudioIn();
    return pRecorder->Construct(*pRecorderListener) == E_SUCCESS &&
           pRecorder->Prepare(Osp::Media::AUDIO_INPUT_DEVICE_MIC, Osp::Media::AUDIO_TYPE_PCM_S16_LE,
                              Osp::Media::AUDIO_CHANNEL_TYPE_MONO,
                              WavFile::kRecordedRateHz) == E_SUCCESS;
}

bool AudioDev::queueBuffers() {
    deleteBuffers();
    result last = E_SUCCESS;
    for (ByteBuffer** buffer : {&__pByteBuffer1, &__pByteBuffer2, &__pByteBuffer3}) {
        *buffer = new ByteBuffer();
        (*buffer)->Construct(kBufferBytes);
        // Deliberate: only the third result is checked. With one or two buffers the recording still
        // runs, but has less time to write each.
        last = pRecorder->AddBuffer(*buffer);
    }
    return last == E_SUCCESS;
}

bool AudioDev::openRecord(String* path) {
    deleteRecord();
    record = new File();
    if (record->Construct(*path, u"wb+", false) != E_SUCCESS) {
        deleteRecord();
        return false;
    }
    recordFileHeader.reset(newArray<signed char>(WavProps::kHeaderBytes));
    recordLength = 0;
    isCutShort = false;
    if (record->Write(recordFileHeader, WavProps::kHeaderBytes) != E_SUCCESS) {
        deleteRecord();
        return false;
    }
    return true;
}

bool AudioDev::startRec() {
    if (state != kRecordingPrepared) {
        return false;
    }
    if (pRecorder != nullptr && pRecorder->Start() != E_SUCCESS) {
        return false;
    }
    state = kRecording;
    return true;
}

bool AudioDev::stopRec() {
    if (state != kRecordingPrepared && state != kRecording) {
        return false;
    }
    state = kReady;
    if (pRecorder == nullptr) {
        return true;
    }
    if (pRecorder->GetState() == Osp::Media::AUDIOIN_STATE_RECORDING) {
        if (Orm::isPaused()) {
            pRecorder->Reset();
        } else {
            pRecorder->Stop();  // delivers the last, partly filled buffer
        }
    }
    pRecorder->Unprepare();
    if (Orm::isPaused()) {
        // Deliberate: the header stays zero. A take that a pause has interrupted is deleted.
        deleteRecord();
    } else if (hasRecorderStopped() && record != nullptr) {
        writeHeader();
        record->Flush();
        deleteRecord();
    }
    deleteRecorder();
    return true;
}

bool AudioDev::hasRecorderStopped() {
    if (pRecorder == nullptr) {
        return false;
    }
    const Osp::Media::AudioInState recorderState = pRecorder->GetState();
    return recorderState == Osp::Media::AUDIOIN_STATE_STOPPED ||
           recorderState == Osp::Media::AUDIOIN_STATE_UNPREPARED;
}

void AudioDev::writeHeader() {
    WavProps props(recordLength >> 1);
    props.toByteArray(recordFileHeader, 0);
    // If the file cannot be positioned at its start, no header is written: elsewhere it would be
    // heard as noise. Without a header, loading the take fails with a message.
    if (record->Seek(Osp::Io::FILESEEKPOSITION_BEGIN, 0) == E_SUCCESS) {
        record->Write(recordFileHeader, WavProps::kHeaderBytes);
    }
}

void AudioDev::ConsumeBuffer(ByteBuffer* buffer) {
    recordLength += buffer->GetLimit();
    if (record == nullptr) {
        return;
    }
    // Samples after a lost buffer would be heard with a gap before them.
    isCutShort = isCutShort || record->Write(*buffer) != E_SUCCESS;
    if (hasRecorderStopped()) {
        writeHeader();
        // Back to the end, because another late buffer must not overwrite the start of the take.
        record->Seek(Osp::Io::FILESEEKPOSITION_END, 0);
    }
}

bool AudioDev::startPlay(String* path, String* endEvent) {
    if (state != kReady) {
        msg = std::make_unique<String>("NOT_STATE_READY");
        return false;
    }
    if (!openPlayer(path)) {
        return false;
    }
    endOfMediaEventType = endEvent;
    state = kPlaying;
    return true;
}

bool AudioDev::openPlayer(String* path) {
    deletePlayer();
    pPlayer = new Player();
    return pPlayer->Construct(*pPlayerListener, nullptr) == E_SUCCESS &&
           pPlayer->OpenFile(*path, false) == E_SUCCESS &&
           pPlayer->SetVolume(isSilent ? 0 : volumeLevel) == E_SUCCESS &&
           pPlayer->Play() == E_SUCCESS;
}

bool AudioDev::stopPlay() {
    if (state != kPlaying) {
        return false;
    }
    const Osp::Media::PlayerState playerState = pPlayer->GetState();
    const bool active = playerState == Osp::Media::PLAYER_STATE_PLAYING ||
                        playerState == Osp::Media::PLAYER_STATE_PAUSED;
    if (active && pPlayer->Stop() == E_SUCCESS) {
        pPlayer->Close();
        deletePlayer();
    }
    state = kReady;
    return true;
}

void AudioDev::changeVolume(int32_t direction) {
    if (direction < 0) {
        volumeLevel -= volumeLevel >= kVolumeStep ? kVolumeStep : 0;
    } else {
        // Deliberate: 90 is the largest volume; the last tenth of the phone's range is not used.
        volumeLevel += volumeLevel <= kHighestRaisedVolume ? kVolumeStep : 0;
    }
    if (pPlayer != nullptr && !isSilent) {
        pPlayer->SetVolume(volumeLevel);
    }
}

void AudioDev::deleteRecord() {
    delete record;
    record = nullptr;
}

void AudioDev::deleteBuffers() {
    for (ByteBuffer** buffer : {&__pByteBuffer1, &__pByteBuffer2, &__pByteBuffer3}) {
        delete *buffer;
        *buffer = nullptr;
    }
}

void AudioDev::deleteRecorder() {
    delete pRecorder;
    pRecorder = nullptr;
}

void AudioDev::deletePlayer() {
    delete pPlayer;
    pPlayer = nullptr;
}

void AudioDev::AudioInListener::OnAudioInBufferIsFilled(ByteBuffer* buffer) {
    if (Orm::isPaused() || pRecorder == nullptr) {
        return;
    }
    buffer->SetPosition(0);
    __pTempBuffer = std::make_unique<ByteBuffer>();
    __pTempBuffer->Construct(buffer->GetLimit());
    __pTempBuffer->CopyFrom(*buffer);
    ConsumeBuffer(__pTempBuffer.get());
    buffer->Clear();
    __pTempBuffer.reset();
    if (pRecorder != nullptr) {
        pRecorder->AddBuffer(buffer);
    }
}

void AudioDev::PlayerListener::OnPlayerOpened(result r) {
    if (r != E_SUCCESS && pPlayer != nullptr) {
        pPlayer->Close();
    }
}

void AudioDev::PlayerListener::OnPlayerEndOfClip() {
    if (pPlayer != nullptr) {
        pPlayer->Close();
    }
    Orm::schedEvent(endOfMediaEventType, nullptr, nullptr, 0);
}

void AudioDev::PlayerListener::OnPlayerErrorOccurred(Osp::Media::PlayerErrorReason /*reason*/) {
    if (pPlayer != nullptr) {
        pPlayer->Close();
    }
}
