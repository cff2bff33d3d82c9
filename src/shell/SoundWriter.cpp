// SPDX-License-Identifier: MIT
#include "SoundWriter.h"

#include "Array.h"
#include "OutputFile.h"
#include "OutputStream.h"
#include "QuietLibrary.h"
#include "SoundLibraries.h"
#include "WavFile.h"
#include "WavProps.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

namespace {

constexpr int32_t kSaveBytes = 20480;  // written at once
constexpr int32_t kBlockSamples = 4096;

/// True if one of the library's lists has this format.
/// @param count, entry  the library's commands for the list's length and for one of its entries
bool isListed(const SndfileLibrary& library, int count, int entry, int format) {
    int entries = 0;
    library.command(nullptr, count, &entries, sizeof entries);
    for (int i = 0; i < entries; i++) {
        SF_FORMAT_INFO info = {};
        info.format = i;
        if (library.command(nullptr, entry, &info, sizeof info) == 0 && info.format == format) {
            return true;
        }
    }
    return false;
}

SF_INFO factsOf(int format) {
    SF_INFO facts = {};
    facts.samplerate = WavFile::kRateHz;
    facts.channels = 1;
    facts.format = format;
    return facts;
}

/// A file of the system as a stream for the application's writer.
class OpenFileStream : public OutputStream {
public:
    explicit OpenFileStream(OutputFile& file)
        : file(file) {}

    using OutputStream::write;

    void write(signed char byte) override { failed = !file.write(&byte, 1) || failed; }

    void write(signed char* bytes, int32_t off, int32_t len) override {
        const auto count = static_cast<size_t>(elementsInRange(bytes, off, len));
        failed = !file.write(bytes + off, count) || failed;
    }

    bool hasFailed() override { return failed; }

private:
    OutputFile& file;
    bool failed = false;
};

/// The library writes into this memory, because it does not report every byte that a disk refuses.
struct Memory {
    std::vector<char> bytes;
    sf_count_t position = 0;

    sf_count_t size() const { return static_cast<sf_count_t>(bytes.size()); }

    sf_count_t seek(sf_count_t offset, int whence) {
        const sf_count_t base = whence == SEEK_SET ? 0 : (whence == SEEK_CUR ? position : size());
        position = std::max<sf_count_t>(base + offset, 0);
        return position;
    }

    sf_count_t write(const void* source, sf_count_t count) {
        const auto end = static_cast<size_t>(position + count);
        bytes.resize(std::max(bytes.size(), end));
        std::copy_n(static_cast<const char*>(source), count, bytes.begin() + position);
        position += count;
        return count;
    }

    sf_count_t read(void* target, sf_count_t count) {
        const sf_count_t there = std::clamp<sf_count_t>(size() - position, 0, count);
        std::copy_n(bytes.begin() + position, there, static_cast<char*>(target));
        position += there;
        return there;
    }
};

Memory* memoryOf(void* context) {
    return static_cast<Memory*>(context);
}

SF_VIRTUAL_IO memoryCalls() {
    SF_VIRTUAL_IO calls = {};
    calls.get_filelen = [](void* context) { return memoryOf(context)->size(); };
    calls.seek = [](sf_count_t offset, int whence, void* context) {
        return memoryOf(context)->seek(offset, whence);
    };
    calls.read = [](void* target, sf_count_t count, void* context) {
        return memoryOf(context)->read(target, count);
    };
    calls.write = [](const void* source, sf_count_t count, void* context) {
        return memoryOf(context)->write(source, count);
    };
    calls.tell = [](void* context) { return memoryOf(context)->position; };
    return calls;
}

/// @returns the library's error message, if it has failed
Problem encode(int format, const int32_t* samples, Memory& memory) {
    const SndfileLibrary* const library = SndfileLibrary::get();
    if (library == nullptr) {
        return "libsndfile is missing";
    }
    const QuietLibrary quiet;
    SF_INFO facts = factsOf(format);
    SF_VIRTUAL_IO calls = memoryCalls();
    SNDFILE* file = library->openVirtual(&calls, SFM_WRITE, &facts, &memory);
    if (file == nullptr) {
        return library->strError(nullptr);
    }
    Problem problem;
    std::array<int16_t, kBlockSamples> block{};
    for (int32_t done = 0; done < length(samples) && !problem;) {
        const int32_t count = std::min(kBlockSamples, length(samples) - done);
        // Takes the low 16 bits, as the writer of WAV files does.
        std::transform(samples + done, samples + done + count, block.begin(),
                       [](int32_t sample) { return static_cast<int16_t>(sample); });
        if (library->writeShorts(file, block.data(), count) != count) {
            problem = library->strError(file);
        }
        done += count;
    }
    const int closed = library->close(file);
    return !problem && closed != 0 ? library->errorNumber(closed) : problem;
}

}  // namespace

bool SoundWriter::isLibraryThere() {
    return SndfileLibrary::get() != nullptr;
}

bool SoundWriter::isPossible(Kind kind) {
    if (kind == Kind::kWav) {
        return true;
    }
    const SndfileLibrary* const library = SndfileLibrary::get();
    if (library == nullptr) {
        return false;
    }
    const int format = SoundFormats::ofLibrary(kind);
    const SF_INFO facts = factsOf(format);
    return isListed(*library, SFC_GET_FORMAT_MAJOR_COUNT, SFC_GET_FORMAT_MAJOR,
                    format & SF_FORMAT_TYPEMASK) &&
           isListed(*library, SFC_GET_FORMAT_SUBTYPE_COUNT, SFC_GET_FORMAT_SUBTYPE,
                    format & SF_FORMAT_SUBMASK) &&
           library->formatCheck(&facts) != 0;
}

Problem SoundWriter::write(OutputFile& file, Kind kind, const int32_t* samples) {
    if (kind == Kind::kWav) {
        const Array<signed char> header(newArray<signed char>(WavProps::kHeaderBytes));
        const Array<signed char> block(newArray<signed char>(kSaveBytes));
        OpenFileStream stream(file);
        const bool isSaved = WavFile::save8Khz(&stream, samples, header.get(), block.get());
        return isSaved ? Problem::none() : Problem(file.error());
    }
    Memory memory;
    if (const Problem problem = encode(SoundFormats::ofLibrary(kind), samples, memory)) {
        return "cannot be encoded (" + problem.sentence() + ")";
    }
    const bool isWritten = file.write(memory.bytes.data(), memory.bytes.size());
    return isWritten ? Problem::none() : Problem(file.error());
}
