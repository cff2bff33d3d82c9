// SPDX-License-Identifier: MIT
#include "WebSounds.h"

#include "HostSound.h"
#include "HostWords.h"
#include "WavHeader.h"

#include <cmath>

namespace {

constexpr int32_t kSoundBytesPerSecond = 16000;  // of a saved sound
constexpr int32_t kTakeBytesPerSecond = 2 * HostMicrophone::kRateHz;

constexpr double kMaxBytes = 64 << 20;
constexpr double kMaxSeconds = 300;                   // 115 MB of stereo, decoded at 48 kHz
constexpr double kMaxBytesOfUnknownLength = 1 << 20;  // a few minutes of speech at a low bit rate

}  // namespace

std::string WebSounds::fileName(const std::string& path, const char* effectWord) {
    const std::string word = effectWord != nullptr ? std::string("-") + effectWord : "";
    const size_t number = path.rfind('_');
    const std::string end = number != std::string::npos ? "-" + path.substr(number + 1) : ".wav";
    return "murmelo" + word + end;
}

std::string WebSounds::line(const std::string& path,
                            const std::string& name,
                            const std::string& effectName,
                            int32_t fileBytes,
                            const std::string& language) {
    const bool isTake = path == kTakePath;
    const int32_t perSecond = isTake ? kTakeBytesPerSecond : kSoundBytesPerSecond;
    const int32_t tenths = ((fileBytes - WavHeader::kBytes) * 10 + perSecond / 2) / perSecond;
    const std::string point = HostWords::text("decimalPoint", language);
    const std::string title = isTake ? HostWords::text("lastTake", language) : name;
    const std::string effect = isTake || effectName.empty() ? "" : effectName + ", ";
    return title + " (" + effect + std::to_string(tenths / 10) + point +
           std::to_string(tenths % 10) + " " + HostWords::text("seconds", language) + ")";
}

const char* WebSounds::refusal(double fileBytes, double seconds) {
    if (fileBytes > kMaxBytes) {
        return "fileTooLarge";
    }
    const bool isTooLong =
        std::isfinite(seconds) ? seconds > kMaxSeconds : fileBytes > kMaxBytesOfUnknownLength;
    return isTooLong ? "fileTooLong" : "";
}
