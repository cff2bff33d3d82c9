#include "SoundFile.h"

#include "SafeFile.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <samplerate.h>
#include <sndfile.h>

namespace {

constexpr int32_t kMostChannels = 8;
constexpr int32_t kMostRateHz = 384000;
constexpr int32_t kMostTimesSlower = 256;  // than the wanted rate: the converter takes no more
constexpr int64_t kMostSeconds = 600;      // of a voice file; what comes later is not read
constexpr float kFullScale = 32768.0F;

using OpenFile = std::unique_ptr<SNDFILE, int (*)(SNDFILE*)>;

int16_t toInt16(float value) {
    return static_cast<int16_t>(
        std::clamp<int32_t>(static_cast<int32_t>(std::lrint(value)), INT16_MIN, INT16_MAX));
}

/// The mean of the channels, full scale 1.
std::vector<float> readMono(SNDFILE* file, const SF_INFO& info) {
    const int64_t frames = std::min<int64_t>(info.frames, kMostSeconds * info.samplerate);
    std::vector<float> mono;
    mono.reserve(static_cast<size_t>(std::max<int64_t>(frames, 0)));
    constexpr sf_count_t kBlockFrames = 4096;
    std::vector<float> block(static_cast<size_t>(kBlockFrames * info.channels));
    while (static_cast<int64_t>(mono.size()) < frames) {
        const sf_count_t wanted =
            std::min<sf_count_t>(kBlockFrames, frames - static_cast<int64_t>(mono.size()));
        const sf_count_t got = sf_readf_float(file, block.data(), wanted);
        if (got <= 0) {
            break;
        }
        for (sf_count_t frame = 0; frame < got; frame++) {
            float sum = 0;
            for (int32_t channel = 0; channel < info.channels; channel++) {
                sum += block[static_cast<size_t>(frame * info.channels + channel)];
            }
            mono.push_back(sum / static_cast<float>(info.channels));
        }
    }
    return mono;
}

std::vector<float> atRate(const std::vector<float>& samples, int32_t fromHz, int32_t toHz) {
    if (fromHz == toHz || samples.empty()) {
        return samples;
    }
    const double ratio = static_cast<double>(toHz) / fromHz;
    std::vector<float> converted(
        static_cast<size_t>(std::lround(static_cast<double>(samples.size()) * ratio)));
    SRC_DATA data{};
    data.data_in = samples.data();
    data.input_frames = static_cast<decltype(data.input_frames)>(samples.size());
    data.data_out = converted.data();
    data.output_frames = static_cast<decltype(data.output_frames)>(converted.size());
    data.src_ratio = ratio;
    src_simple(&data, SRC_SINC_MEDIUM_QUALITY, 1);
    return converted;  // what the library did not fill is the silence behind the end
}

std::vector<int16_t> toInt16(const std::vector<float>& samples) {
    std::vector<int16_t> converted(samples.size());
    std::transform(samples.begin(), samples.end(), converted.begin(),
                   [](float sample) { return toInt16(sample * kFullScale); });
    return converted;
}

}  // namespace

std::string
SoundFile::read(const std::string& path, int32_t rateHz, std::vector<int16_t>& samples) {
    const std::string kind = SafeFile::whyNotOrdinary(path);
    if (!kind.empty()) {
        return "the sound \"" + path + "\" cannot be read: it " + kind;
    }
    SF_INFO info{};
    const OpenFile file(sf_open(path.c_str(), SFM_READ, &info), &sf_close);
    if (file == nullptr) {
        return "the sound \"" + path + "\" cannot be read: " + sf_strerror(nullptr);
    }
    const int32_t leastRateHz = (rateHz + kMostTimesSlower - 1) / kMostTimesSlower;
    if (info.channels < 1 || info.channels > kMostChannels || info.samplerate < leastRateHz ||
        info.samplerate > kMostRateHz) {
        return "the sound \"" + path + "\" has " + std::to_string(info.channels) +
               (info.channels == 1 ? " channel at " : " channels at ") +
               std::to_string(info.samplerate) + " Hz; at most " + std::to_string(kMostChannels) +
               " channels at " + std::to_string(leastRateHz) + " to " +
               std::to_string(kMostRateHz) + " Hz can be used";
    }
    samples = toInt16(atRate(readMono(file.get(), info), info.samplerate, rateHz));
    return "";
}

std::string
SoundFile::write(const std::string& path, int32_t rateHz, const std::vector<int16_t>& samples) {
    SF_INFO info{};
    info.samplerate = rateHz;
    info.channels = 1;
    info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    OpenFile file(sf_open(path.c_str(), SFM_WRITE, &info), &sf_close);
    if (file == nullptr) {
        return "the sound \"" + path + "\" cannot be written: " + sf_strerror(nullptr);
    }
    const auto count = static_cast<sf_count_t>(samples.size());
    const bool written = sf_write_short(file.get(), samples.data(), count) == count;
    return sf_close(file.release()) == 0 && written
               ? ""
               : "the sound \"" + path + "\" could not be written whole";
}

std::vector<int16_t>
SoundFile::resample(const std::vector<int16_t>& samples, int32_t fromHz, int32_t toHz) {
    if (fromHz == toHz) {
        return samples;
    }
    std::vector<float> scaled(samples.size());
    std::transform(samples.begin(), samples.end(), scaled.begin(),
                   [](int16_t sample) { return static_cast<float>(sample) / kFullScale; });
    return toInt16(atRate(scaled, fromHz, toHz));
}
