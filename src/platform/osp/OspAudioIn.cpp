// SPDX-License-Identifier: MIT
#include "Host.h"
#include "OspIo.h"
#include "OspMedia.h"
#include "WavHeader.h"

#include <algorithm>
#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

using Osp::Base::ByteBuffer;

namespace Osp::Media {

namespace {

constexpr int32_t kSampleBytes = 2;
constexpr int64_t kLongestTakeBytes =
    WavHeader::kBytes + int64_t{kSampleBytes} * HostMicrophone::kLongestTakeSamples;
constexpr int64_t kKilobyte = 1000;

constexpr int64_t kTenthSamples = HostMicrophone::kRateHz / 10;

/// EFBIG counts too: a limit on the size of files has the same effect.
bool isDiskFull(int32_t error) {
    return error == ENOSPC || error == EDQUOT || error == EFBIG;
}

std::string reasonOf(int32_t error) {
    return std::error_code(error, std::generic_category()).message();
}

HostMicrophone* microphone() {
    return Host::current().microphone();
}

/// Warns if a take of full length does not fit. The recording goes on: a few words may fit.
void sayIfRoomIsShort() {
    const int64_t freeBytes = Host::current().freePhoneBytes();
    if (freeBytes >= 0 && freeBytes < kLongestTakeBytes) {
        // One number is rounded down and the other up, so that too little room never looks like
        // enough.
        const int64_t neededKb = (kLongestTakeBytes + kKilobyte - 1) / kKilobyte;
        Host::current().tell({"littleRoom", {}}, "only " + std::to_string(freeBytes / kKilobyte) +
                                                     " KB are free; a take of 20 seconds needs " +
                                                     std::to_string(neededKb) + " KB");
    }
}

}  // namespace

int32_t AudioIn::cutBy = 0;
int64_t AudioIn::keptBytes = 0;

AudioIn::~AudioIn() {
    sayLoss(false);
    silence();
    release();
    if (deletedMark != nullptr) {
        *deletedMark = true;
    }
}

result AudioIn::Construct(IAudioInEventListener& newListener) {
    if (hostFails("AudioIn.Construct") || listener != nullptr) {
        return E_FAILURE;
    }
    listener = &newListener;
    return E_SUCCESS;
}

result AudioIn::Prepare(AudioInputDevice device,
                        AudioSampleType sampleType,
                        AudioChannelType channelType,
                        int32_t rateHz) {
    const bool known = device == AUDIO_INPUT_DEVICE_MIC && sampleType == AUDIO_TYPE_PCM_S16_LE &&
                       channelType == AUDIO_CHANNEL_TYPE_MONO && rateHz == HostMicrophone::kRateHz;
    const bool idle = state == AUDIOIN_STATE_INITIALIZED || state == AUDIOIN_STATE_UNPREPARED;
    if (hostFails("AudioIn.Prepare") || !known || !idle || listener == nullptr ||
        microphone() == nullptr || !microphone()->isThere()) {
        return E_FAILURE;
    }
    state = AUDIOIN_STATE_PREPARED;
    microphone()->prepare();
    isMicrophoneHeld = true;
    sayIfRoomIsShort();
    return E_SUCCESS;
}

result AudioIn::AddBuffer(ByteBuffer* buffer) {
    const bool prepared = state == AUDIOIN_STATE_PREPARED || state == AUDIOIN_STATE_RECORDING ||
                          state == AUDIOIN_STATE_STOPPED;
    if (hostFails("AudioIn.AddBuffer") || !prepared || buffer == nullptr ||
        buffer->GetCapacity() < kSampleBytes ||
        std::find(queue.begin(), queue.end(), buffer) != queue.end()) {
        return E_FAILURE;
    }
    queue.push_back(buffer);
    return E_SUCCESS;
}

result AudioIn::Start() {
    const bool ready = state == AUDIOIN_STATE_PREPARED || state == AUDIOIN_STATE_STOPPED;
    if (hostFails("AudioIn.Start") || !ready || microphone() == nullptr ||
        !microphone()->start(*this)) {
        return E_FAILURE;
    }
    state = AUDIOIN_STATE_RECORDING;
    cutBy = 0;
    isLossUnreported = false;
    heardSamples = 0;
    return E_SUCCESS;
}

result AudioIn::Stop() {
    if (hostFails("AudioIn.Stop") || state != AUDIOIN_STATE_RECORDING) {
        return E_FAILURE;
    }
    silence();
    if (deliverRest()) {
        state = AUDIOIN_STATE_STOPPED;
        sayLoss(heardSamples > 0 && cutBy == 0);
        sayHowMuchIsKept();
    }
    return E_SUCCESS;
}

result AudioIn::Reset() {
    const bool prepared = state == AUDIOIN_STATE_PREPARED || state == AUDIOIN_STATE_RECORDING ||
                          state == AUDIOIN_STATE_STOPPED;
    if (hostFails("AudioIn.Reset") || !prepared) {
        return E_FAILURE;
    }
    sayLoss(false);
    silence();
    queue.clear();
    state = AUDIOIN_STATE_STOPPED;
    return E_SUCCESS;
}

result AudioIn::Unprepare() {
    const bool resting = state == AUDIOIN_STATE_PREPARED || state == AUDIOIN_STATE_STOPPED;
    if (hostFails("AudioIn.Unprepare") || !resting) {
        return E_FAILURE;
    }
    queue.clear();
    state = AUDIOIN_STATE_UNPREPARED;
    release();
    return E_SUCCESS;
}

int32_t AudioIn::samplesWanted() {
    return queue.empty() ? 0 : queue.front()->GetCapacity() / kSampleBytes;
}

void AudioIn::onSamples() {
    ByteBuffer* filled = queue.empty() ? nullptr : fillNext();
    if (filled != nullptr) {
        handOver(filled);  // may delete this object
    }
}

void AudioIn::onDeviceLost() {
    isLossUnreported = true;
    if (deliverRest()) {
        if (heardSamples == 0) {
            sayLoss(false);  // told now: no "Stop" will follow
        }
        listener->OnAudioInErrorOccurred(AUDIOIN_ERROR_DEVICE_FAILED);  // may delete this object
    }
}

ByteBuffer* AudioIn::fillNext() {
    ByteBuffer* buffer = queue.front();
    buffer->Clear();
    // The file needs little-endian samples; all machines that this runs on are little-endian.
    auto* samples = reinterpret_cast<int16_t*>(buffer->GetPointer());
    const int32_t count = microphone()->take(samples, buffer->GetCapacity() / kSampleBytes);
    if (count == 0) {
        return nullptr;
    }
    queue.pop_front();
    buffer->SetLimit(count * kSampleBytes);
    heardSamples += count;
    return buffer;
}

/// If the listener cannot write the buffer to its file, the take will be cut short: the user is
/// told.
void AudioIn::handOver(ByteBuffer* filled) {
    Osp::Io::File::takeWriteError();
    listener->OnAudioInBufferIsFilled(filled);  // may delete this object
    const Osp::Io::File::WriteError error = Osp::Io::File::takeWriteError();
    if (error.number != 0 && cutBy == 0) {
        cutBy = error.number;
        keptBytes = error.fileBytes;
        sayCutShort();
    }
}

void AudioIn::sayCutShort() {
    const std::string reason = reasonOf(cutBy);
    Host::current().tell(isDiskFull(cutBy) ? HostMessage{"cutShort", {}}
                                           : HostMessage{"cutFor", {reason}},
                         "the take is cut short: " + reason);
}

void AudioIn::sayHowMuchIsKept() const {
    if (cutBy == 0) {
        return;
    }
    const int64_t keptSamples = (keptBytes - WavHeader::kBytes) / kSampleBytes;
    HostMessage message{isDiskFull(cutBy) ? "diskFull" : "secondsKept", {reasonOf(cutBy)}};
    message.tenths = {std::max<int64_t>(keptSamples, 0) / kTenthSamples,
                      (heardSamples + kTenthSamples / 2) / kTenthSamples};
    Host::current().tell(message, HostMessage::number(message.tenths[0], "en") + " of " +
                                      HostMessage::number(message.tenths[1], "en") +
                                      " seconds of the take are kept");
}

/// False if the listener has deleted this object in a callback, or has stopped it.
bool AudioIn::deliverRest() {
    bool deleted = false;
    bool* const outerMark = std::exchange(deletedMark, &deleted);
    while (state == AUDIOIN_STATE_RECORDING && !queue.empty()) {
        ByteBuffer* filled = fillNext();
        if (filled == nullptr) {
            break;
        }
        handOver(filled);
        if (deleted) {
            if (outerMark != nullptr) {
                *outerMark = true;
            }
            return false;
        }
    }
    deletedMark = outerMark;
    return state == AUDIOIN_STATE_RECORDING;
}

void AudioIn::sayLoss(bool isTakeKept) {
    if (isLossUnreported) {
        isLossUnreported = false;
        if (isTakeKept) {
            Host::current().tell({"microphoneGone", {}},
                                 "the microphone is gone; what it heard until now is kept");
        } else {
            Host::current().tell({"microphoneGoneEmpty", {}}, "the microphone is gone");
        }
    }
}

void AudioIn::release() {
    if (isMicrophoneHeld) {
        isMicrophoneHeld = false;
        microphone()->release();
    }
}

void AudioIn::silence() {
    if (state == AUDIOIN_STATE_RECORDING) {
        microphone()->stop();
    }
}

}  // namespace Osp::Media
