// SPDX-License-Identifier: MIT
#include "SoundReader.h"

#include "FloatSample.h"
#include "InputFile.h"
#include "InputStream.h"
#include "ProgressLine.h"
#include "QuietLibrary.h"
#include "RateConverter.h"
#include "SoundLibraries.h"
#include "WavFile.h"
#include "WavProps.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <unistd.h>

namespace {

// The places where a header holds lengths, which differ from file to file.
constexpr int32_t kRiffSizeOff = 4;
constexpr int32_t kDataSizeOff = 40;
constexpr int32_t kSizeBytes = 4;
constexpr int32_t kSampleBytes = 2;
constexpr int32_t kLoadBytes = 20480;     // read at once by the loader
constexpr size_t kBlockFloats = 1 << 15;  // read at once from the library

using Bytes = Array<signed char>;

/// A file of the system as a stream for the loader.
class OpenFileStream : public InputStream {
public:
    explicit OpenFileStream(const InputFile& file)
        : file(file) {}

    using InputStream::read;

    int32_t available() override {
        const int64_t left = file.size() - position;
        return static_cast<int32_t>(
            std::clamp<int64_t>(left, 0, std::numeric_limits<int32_t>::max()));
    }

    int32_t read() override {
        signed char byte = 0;
        if (file.readAt(&byte, 1, position) != 1) {
            return -1;
        }
        position++;
        return static_cast<unsigned char>(byte);
    }

    int32_t read(signed char* bytes, int32_t off, int32_t len) override {
        const int32_t wanted = elementsInRange(bytes, off, len);
        const int64_t got = file.readAt(bytes + off, wanted, position);
        failed = failed || got < 0;
        position += std::max<int64_t>(got, 0);
        return got > 0 || wanted == 0 ? static_cast<int32_t>(got) : -1;
    }

    bool hasFailed() override { return failed; }

private:
    const InputFile& file;
    int64_t position = 0;
    bool failed = false;  // the disk has failed; the sound may be good
};

/// The library's error message without its full stop.
std::string libraryError(SNDFILE* file) {
    std::string words = SndfileLibrary::get()->strError(file);
    while (!words.empty() && (words.back() == '.' || words.back() == '\n')) {
        words.pop_back();
    }
    return words;
}

struct FileCloser {
    void operator()(SNDFILE* file) const {
        const QuietLibrary quiet;
        SndfileLibrary::get()->close(file);
    }
};

using LibraryFile = std::unique_ptr<SNDFILE, FileCloser>;

/// Drops what the library prints while it opens a file; the progress between two blocks is still
/// shown.
SNDFILE* openQuietly(const InputFile& file, const std::string& path) {
    const QuietLibrary quiet;
    const SndfileLibrary& library = *SndfileLibrary::get();
    SF_INFO facts = {};
    // Opened by its path if it has one, because kinds without a header are recognised by their
    // extension.
    return file.isPiped() ? library.openFd(file.descriptor(), SFM_READ, &facts, SF_FALSE)
                          : library.open(path.c_str(), SFM_READ, &facts);
}

/// Returns the number of frames read; less than blockFrames only at the end.
size_t readQuietly(SNDFILE* file, std::vector<float>& frames, size_t blockFrames) {
    const QuietLibrary quiet;
    const auto wanted = static_cast<sf_count_t>(blockFrames);
    return static_cast<size_t>(
        std::max<sf_count_t>(SndfileLibrary::get()->readFrames(file, frames.data(), wanted), 0));
}

void blank(signed char* header, int32_t off) {
    std::fill_n(header + off, kSizeBytes, static_cast<signed char>(0));
}

/// The mean of each frame's channels.
void mixDown(const std::vector<float>& frames,
             size_t count,
             size_t channels,
             std::vector<float>& mono) {
    mono.resize(count);
    for (size_t i = 0; i < count; i++) {
        double sum = 0.0;
        for (size_t channel = 0; channel < channels; channel++) {
            sum += static_cast<double>(FloatSample::tamed(frames[i * channels + channel]));
        }
        mono[i] = static_cast<float>(sum / static_cast<double>(channels));
    }
}

}  // namespace

SoundReader::SoundReader(int32_t maxSamples, ProgressLine& progress)
    : maxSamples(std::min(maxSamples, kMaxArrayLength))
    , progress(progress) {}

Sound SoundReader::read(const std::string& path) {
    tooLong = false;
    errorText.clear();
    InputFile file;
    if (!file.open(path)) {
        return refuse(file.error());
    }
    const int32_t count = canonicalSamples(file);
    Sound sound = count >= 0 ? readCanonical(file, count) : readAnyKind(file, path);
    if (sound != nullptr && length(sound.get()) == 0) {
        return refuse("is empty: it has less than one sample at 8 kHz");
    }
    return sound;
}

/// Samples of 8 kHz in a file with the header that the application writes; -1 for any other file.
/// A file whose header gives a negative length, or none although samples follow (it was written
/// into a pipe, or never finished), is left to the library, which reads it to its end.
int32_t SoundReader::canonicalSamples(const InputFile& file) {
    const Bytes header(newArray<signed char>(WavProps::kHeaderBytes));
    if (file.readAt(header.get(), WavProps::kHeaderBytes, 0) != WavProps::kHeaderBytes) {
        return -1;
    }
    const WavProps props(header.get());
    const int32_t rateHz = props.getSampleRate();
    if ((rateHz != WavFile::kRateHz && rateHz != WavFile::kRecordedRateHz) ||
        props.getSampleCount() < 0 ||
        (props.getSampleCount() == 0 && file.size() > WavProps::kHeaderBytes)) {
        return -1;
    }
    const Bytes own(WavProps(props.getSampleCount(), rateHz).toByteArray());
    for (signed char* bytes : {header.get(), own.get()}) {
        blank(bytes, kRiffSizeOff);
        blank(bytes, kDataSizeOff);
    }
    if (std::memcmp(header.get(), own.get(), WavProps::kHeaderBytes) != 0) {
        return -1;
    }
    const int64_t there = (file.size() - WavProps::kHeaderBytes) / kSampleBytes;
    const int64_t count = std::min<int64_t>(there, props.getSampleCount());
    return static_cast<int32_t>(count / (rateHz / WavFile::kRateHz));
}

Sound SoundReader::readCanonical(const InputFile& file, int32_t count) {
    if (count > maxSamples) {
        return refuseLength();
    }
    const Bytes header(newArray<signed char>(WavProps::kHeaderBytes));
    const Bytes block(newArray<signed char>(kLoadBytes));
    OpenFileStream stream(file);
    Sound sound(WavFile::loadTo8Khz(&stream, header.get(), block.get()));
    if (sound == nullptr || stream.hasFailed()) {
        return refuse("cannot be read to its end");
    }
    return sound;
}

Sound SoundReader::readAnyKind(const InputFile& file, const std::string& path) {
    if (SndfileLibrary::get() == nullptr) {
        return refuse("needs libsndfile, which is missing: without it only WAV files with a header "
                      "of 44 bytes, 8 or 16 kHz, one channel and 16 bits can be read");
    }
    const LibraryFile opened(openQuietly(file, path));
    if (opened == nullptr) {
        return refuse("is not a sound file that can be read (" + libraryError(nullptr) + ")");
    }
    std::vector<int32_t> samples;
    if (!convertAll(opened.get(), samples)) {
        return Sound();
    }
    Sound sound(newArray<int32_t>(static_cast<int32_t>(samples.size())));
    std::copy(samples.begin(), samples.end(), sound.get());
    return sound;
}

// Reads block by block, because the length in the header may be false.
bool SoundReader::convertAll(SNDFILE* file, std::vector<int32_t>& samples) {
    const SndfileLibrary& library = *SndfileLibrary::get();
    SF_INFO facts = {};
    library.command(file, SFC_GET_CURRENT_SF_INFO, &facts, sizeof facts);
    RateConverter converter(facts.samplerate);
    if (!converter.isPossible() && !Resampler::isThere()) {
        refuse("has another rate than 8 or 16 kHz (" + std::to_string(facts.samplerate) +
               " Hz), and libsoxr, which converts it, is missing");
        return false;
    }
    if (!converter.isPossible() || facts.channels < 1) {
        refuse("has a sample rate that cannot be converted (" + std::to_string(facts.samplerate) +
               " Hz)");
        return false;
    }
    const auto channels = static_cast<size_t>(facts.channels);
    const size_t blockFrames = std::max<size_t>(kBlockFloats / channels, 1);
    std::vector<float> frames(blockFrames * channels);
    std::vector<float> mono;
    int64_t done = 0;
    for (bool last = false; !last;) {
        const size_t got = readQuietly(file, frames, blockFrames);
        last = got < blockFrames;
        mixDown(frames, got, channels, mono);
        if (!converter.convert(mono.data(), got, last, samples)) {
            refuse("cannot be converted to 8 kHz");
            return false;
        }
        if (samples.size() > static_cast<size_t>(maxSamples)) {
            refuseLength();
            return false;
        }
        done += static_cast<int64_t>(got);
        progress.show("reading", done, facts.frames);
    }
    if (library.error(file) != SF_ERR_NO_ERROR) {
        refuse("is damaged (" + libraryError(file) + ")");
        return false;
    }
    return true;
}

Sound SoundReader::refuse(const std::string& why) {
    errorText = why;
    return Sound();
}

Sound SoundReader::refuseLength() {
    tooLong = true;
    return refuse("the sound is too long");
}
