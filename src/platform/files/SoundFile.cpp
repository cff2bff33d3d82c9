// SPDX-License-Identifier: MIT
#include "SoundFile.h"

#include "FloatSample.h"
#include "QuietLibrary.h"
#include "Resampler.h"
#include "SafeFile.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <memory>
#include <sndfile.h>

namespace {

constexpr int32_t kMaxChannels = 8;
constexpr int32_t kMaxRateHz = 384000;
constexpr sf_count_t kBlockFrames = 4096;  // read at a time
constexpr float kFullScale = 32768.0F;

constexpr const char* kBeforeReason = "\" cannot be read: ";
constexpr const char* kBeforeMissing = " Hz: ";
constexpr const char* kBeforeDetails = " (";

using OpenFile = std::unique_ptr<SNDFILE, int (*)(SNDFILE*)>;

/// The mean of the channels of an open file, full scale 1, block by block.
class MonoReader {
public:
    MonoReader(SNDFILE* file, int32_t channels)
        : file(file)
        , channels(static_cast<size_t>(channels))
        , frames(static_cast<size_t>(kBlockFrames) * this->channels) {}

    /// The next frames, at most maxFrames and kBlockFrames; fewer only at the end of the file.
    const std::vector<float>& next(int64_t maxFrames) {
        const auto wanted = std::min<sf_count_t>(kBlockFrames, maxFrames);
        const auto got = static_cast<size_t>(
            std::max<sf_count_t>(sf_readf_float(file, frames.data(), wanted), 0));
        atEnd = got < static_cast<size_t>(wanted);
        done += static_cast<int64_t>(got);
        mono.resize(got);
        for (size_t frame = 0; frame < got; frame++) {
            mono[frame] = mean(&frames[frame * channels]);
        }
        return mono;
    }

    bool isAtEnd() const { return atEnd; }

    int64_t framesRead() const { return done; }

private:
    float mean(const float* frame) const {
        float sum = 0;
        for (size_t channel = 0; channel < channels; channel++) {
            sum += FloatSample::tamed(frame[channel]);
        }
        return sum / static_cast<float>(channels);
    }

    SNDFILE* file;
    size_t channels;
    std::vector<float> frames;
    std::vector<float> mono;
    int64_t done = 0;
    bool atEnd = false;
};

/// Reads frames without changing their rate, at most maxSamples.
std::vector<float> readAll(MonoReader& reader, int64_t maxSamples) {
    std::vector<float> samples;
    while (!reader.isAtEnd() && reader.framesRead() < maxSamples) {
        const std::vector<float>& block = reader.next(maxSamples - reader.framesRead());
        samples.insert(samples.end(), block.begin(), block.end());
    }
    return samples;
}

/// The length of a sound at another rate, rounded to whole samples.
int64_t samplesAt(int64_t samples, int32_t fromHz, int32_t toHz) {
    return (2 * samples * toHz + fromHz) / (2 * int64_t{fromHz});
}

/// Reads frames and converts them to another rate until out has maxSamples; reads no more than that
/// takes. False if the resampler failed.
bool convertAll(
    MonoReader& reader, int32_t fromHz, int32_t toHz, int64_t maxSamples, std::vector<float>& out) {
    Resampler resampler(fromHz, toHz);
    const auto maxCount = static_cast<size_t>(maxSamples);
    while (!reader.isAtEnd() && out.size() < maxCount) {
        const std::vector<float>& block = reader.next(kBlockFrames);
        if (!resampler.convert(block.data(), block.size(), reader.isAtEnd(), maxCount, out)) {
            return false;
        }
    }
    // Missing samples at the end are silence.
    const int64_t whole = samplesAt(reader.framesRead(), fromHz, toHz);
    out.resize(static_cast<size_t>(std::min(whole, maxSamples)));
    return resampler.isReady();
}

std::vector<float> atRate(const std::vector<float>& samples, int32_t fromHz, int32_t toHz) {
    const auto count =
        static_cast<size_t>(samplesAt(static_cast<int64_t>(samples.size()), fromHz, toHz));
    std::vector<float> converted;
    converted.reserve(count);
    Resampler(fromHz, toHz).convert(samples.data(), samples.size(), true, count, converted);
    converted.resize(count);  // missing samples at the end are silence
    return converted;
}

std::vector<int16_t> toInt16(const std::vector<float>& samples) {
    std::vector<int16_t> converted(samples.size());
    std::transform(samples.begin(), samples.end(), converted.begin(),
                   [](float sample) { return FloatSample::toInt16(sample * kFullScale); });
    return converted;
}

/// Why the library has not opened a file. The library's own sentences are for programmers.
std::string whyNotOpened() {
    switch (sf_error(nullptr)) {
    case SF_ERR_SYSTEM:
        return errno != 0 ? SafeFile::lastError() : sf_strerror(nullptr);
    case SF_ERR_UNRECOGNISED_FORMAT:
        return "its format is unknown";
    case SF_ERR_MALFORMED_FILE:
        return "it is damaged";
    case SF_ERR_UNSUPPORTED_ENCODING:
        return "its encoding is unknown";
    default:
        return sf_strerror(nullptr);
    }
}

}  // namespace

Problem SoundFile::read(const std::string& path,
                        int32_t rateHz,
                        int64_t maxSamples,
                        std::vector<int16_t>& samples,
                        int64_t* framesRead) {
    if (const Problem kind = SafeFile::whyNotOrdinary(path)) {
        return "the sound \"" + path + kBeforeReason + "it " + kind.sentence();
    }
    const QuietLibrary quiet;
    SF_INFO info{};
    errno = 0;
    const OpenFile file(sf_open(path.c_str(), SFM_READ, &info), &sf_close);
    if (file == nullptr) {
        return "the sound \"" + path + kBeforeReason + whyNotOpened();
    }
    const int32_t leastRateHz = (rateHz + Resampler::kMaxTimes - 1) / Resampler::kMaxTimes;
    if (info.channels < 1 || info.channels > kMaxChannels || info.samplerate < leastRateHz ||
        info.samplerate > kMaxRateHz) {
        return "the sound \"" + path + kBeforeReason +
               "it has too many channels or an unusual rate" + kBeforeDetails +
               std::to_string(info.channels) +
               (info.channels == 1 ? " channel at " : " channels at ") +
               std::to_string(info.samplerate) + " Hz; at most " + std::to_string(kMaxChannels) +
               " channels at " + std::to_string(leastRateHz) + " to " + std::to_string(kMaxRateHz) +
               " Hz can be used)";
    }
    MonoReader reader(file.get(), info.channels);
    std::vector<float> sound;
    if (info.samplerate == rateHz) {
        sound = readAll(reader, maxSamples);
    } else if (!convertAll(reader, info.samplerate, rateHz, maxSamples, sound)) {
        return "the sound \"" + path + "\" cannot be brought to " + std::to_string(rateHz) + " Hz" +
               (Resampler::isThere() ? "" : ": libsoxr, which converts it, is missing");
    }
    if (framesRead != nullptr) {
        *framesRead = reader.framesRead();
    }
    samples = toInt16(sound);
    return Problem::none();
}

std::string SoundFile::reasonOf(const Problem& problem) {
    const std::string& sentence = problem.sentence();
    for (const std::string start : {kBeforeReason, kBeforeMissing}) {
        const size_t at = sentence.find(start);
        if (at != std::string::npos) {
            const size_t from = at + start.size();
            const size_t details = sentence.find(kBeforeDetails, from);
            return sentence.substr(from, details == std::string::npos ? details : details - from);
        }
    }
    return sentence;
}

Problem
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
    if (sf_close(file.release()) != 0 || !written) {
        return "the sound \"" + path + "\" could not be written whole";
    }
    return Problem::none();
}

Problem SoundFile::write(int file,
                         const std::string& name,
                         int32_t rateHz,
                         const int16_t* samples,
                         size_t count,
                         Format format) {
    const QuietLibrary quiet;
    SF_INFO info{};
    info.samplerate = rateHz;
    info.channels = 1;
    info.format = SoundFormats::ofLibrary(format);
    OpenFile sound(sf_open_fd(file, SFM_WRITE, &info, SF_FALSE), &sf_close);
    if (sound == nullptr) {
        return "the sound \"" + name + "\" cannot be written: " + sf_strerror(nullptr);
    }
    const auto wanted = static_cast<sf_count_t>(count);
    const bool written = sf_write_short(sound.get(), samples, wanted) == wanted;
    if (sf_close(sound.release()) != 0 || !written) {
        return "the sound \"" + name + "\" could not be written whole";
    }
    return Problem::none();
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
