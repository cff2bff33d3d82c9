// SPDX-License-Identifier: MIT
#include "Host.h"
#include "OspIo.h"
#include "OspMedia.h"
#include "WavHeader.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

using Osp::Base::String;
using Osp::Io::File;

namespace Osp::Media {

namespace {

constexpr int32_t kSampleBytes = 2;
constexpr int32_t kLeastRateHz = 1000;
constexpr int32_t kMaxRateHz = 192000;
constexpr int32_t kMaxDataBytes = 1 << 26;  // half an hour at the microphone's rate

using Header = std::array<unsigned char, WavHeader::kBytes>;

HostSpeaker* speaker() {
    return Host::current().speaker();
}

bool hasText(const Header& header, size_t off, const char* text) {
    return std::memcmp(header.data() + off, text, 4) == 0;
}

int32_t word(const Header& header, size_t off, int32_t bytes) {
    uint32_t value = 0;
    for (int32_t i = bytes - 1; i >= 0; i--) {
        value = (value << 8) | header[off + static_cast<size_t>(i)];
    }
    return static_cast<int32_t>(value);
}

/// Does not check the size in the RIFF header: the data size is enough.
bool isPlainSound(const Header& header, int32_t rateHz, int32_t dataBytes) {
    return hasText(header, 0, "RIFF") && hasText(header, 8, "WAVE") &&
           hasText(header, 12, "fmt ") && word(header, 16, 4) == 16 && word(header, 20, 2) == 1 &&
           word(header, 22, 2) == 1 && rateHz >= kLeastRateHz && rateHz <= kMaxRateHz &&
           word(header, 28, 4) == kSampleBytes * rateHz && word(header, 32, 2) == kSampleBytes &&
           word(header, 34, 2) == 8 * kSampleBytes && hasText(header, 36, "data") &&
           dataBytes >= 0 && dataBytes <= kMaxDataBytes && dataBytes % kSampleBytes == 0;
}

/// -1 if it cannot be found out.
int32_t bytesAfterHeader(File& file) {
    const bool measured = file.Seek(Osp::Io::FILESEEKPOSITION_END, 0) == E_SUCCESS;
    const int32_t end = measured ? file.Tell() : -1;
    return end >= WavHeader::kBytes &&
                   file.Seek(Osp::Io::FILESEEKPOSITION_BEGIN, WavHeader::kBytes) == E_SUCCESS
               ? end - WavHeader::kBytes
               : -1;
}

/// Null if it is not a plain WAV file. Of a file that is cut short, what is there is played.
std::shared_ptr<const HostClip> readClip(const String& path) {
    File file;
    Header header{};
    if (file.Construct(path, "rb") != E_SUCCESS ||
        file.Read(header.data(), WavHeader::kBytes) != WavHeader::kBytes) {
        return nullptr;
    }
    const int32_t dataBytes = word(header, 40, 4);
    auto clip = std::make_shared<HostClip>();
    clip->rateHz = word(header, 24, 4);
    if (!isPlainSound(header, clip->rateHz, dataBytes)) {
        return nullptr;
    }
    const int32_t there = std::min(dataBytes, bytesAfterHeader(file));
    if (there < 0) {
        return nullptr;
    }
    clip->samples.resize(static_cast<size_t>(there / kSampleBytes));
    const int32_t wanted = there / kSampleBytes * kSampleBytes;
    if (file.Read(clip->samples.data(), wanted) != wanted) {
        return nullptr;
    }
    return clip;
}

}  // namespace

Player::~Player() {
    silence();
    if (deletedMark != nullptr) {
        *deletedMark = true;
    }
}

result Player::Construct(IPlayerEventListener& newListener, const void* videoBuffer) {
    if (hostFails("Player.Construct") || listener != nullptr || videoBuffer != nullptr) {
        return E_FAILURE;
    }
    listener = &newListener;
    return E_SUCCESS;
}

result Player::OpenFile(const String& path, bool isAsync) {
    const bool empty = state == PLAYER_STATE_INITIALIZED || state == PLAYER_STATE_CLOSED;
    if (hostFails("Player.OpenFile") || listener == nullptr || !empty || isAsync) {
        return E_FAILURE;
    }
    clip = readClip(path);
    if (clip == nullptr) {
        return E_FAILURE;
    }
    state = PLAYER_STATE_OPENED;
    return E_SUCCESS;
}

result Player::SetVolume(int32_t level) {
    if (hostFails("Player.SetVolume") || level < 0 || level > kMaxVolume) {
        return E_FAILURE;
    }
    volume = level;
    if (state == PLAYER_STATE_PLAYING || state == PLAYER_STATE_PAUSED) {
        speaker()->setVolume(volume);
    }
    return E_SUCCESS;
}

result Player::Play() {
    if (hostFails("Player.Play") || clip == nullptr || state == PLAYER_STATE_PLAYING ||
        speaker() == nullptr) {
        return E_FAILURE;
    }
    speaker()->setVolume(volume);
    if (state == PLAYER_STATE_PAUSED) {
        speaker()->resume();
    } else if (!speaker()->play(clip, *this)) {
        return E_FAILURE;
    }
    state = PLAYER_STATE_PLAYING;
    return E_SUCCESS;
}

result Player::Pause() {
    if (hostFails("Player.Pause") || state != PLAYER_STATE_PLAYING) {
        return E_FAILURE;
    }
    speaker()->pause();
    state = PLAYER_STATE_PAUSED;
    return E_SUCCESS;
}

result Player::Stop() {
    if (hostFails("Player.Stop") ||
        (state != PLAYER_STATE_PLAYING && state != PLAYER_STATE_PAUSED)) {
        return E_FAILURE;
    }
    silence();
    state = PLAYER_STATE_STOPPED;
    return E_SUCCESS;
}

result Player::Close() {
    if (hostFails("Player.Close") || clip == nullptr) {
        return E_FAILURE;
    }
    silence();
    clip.reset();
    state = PLAYER_STATE_CLOSED;
    return E_SUCCESS;
}

void Player::onClipEnd() {
    state = PLAYER_STATE_ENDOFCLIP;
    listener->OnPlayerEndOfClip();  // may delete this object
}

void Player::onDeviceLost() {
    state = PLAYER_STATE_ENDOFCLIP;
    Host::current().tell({"cannotPlay", {}}, "the speaker is gone");
    bool deleted = false;
    bool* const outerMark = std::exchange(deletedMark, &deleted);
    listener->OnPlayerErrorOccurred(PLAYER_ERROR_DEVICE_FAILED);
    if (deleted) {
        if (outerMark != nullptr) {
            *outerMark = true;
        }
        return;
    }
    deletedMark = outerMark;
    if (state != PLAYER_STATE_PLAYING) {
        listener->OnPlayerEndOfClip();  // may delete this object
    }
}

void Player::silence() {
    if (state == PLAYER_STATE_PLAYING || state == PLAYER_STATE_PAUSED) {
        speaker()->stop();
    }
}

}  // namespace Osp::Media
