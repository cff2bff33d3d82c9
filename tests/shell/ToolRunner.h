// SPDX-License-Identifier: MIT
// Runs the built command line tool as a shell does, and makes and reads the files that it works on.
#pragma once

#include "AudioSupport.h"
#include "WavHeader.h"

#include <functional>
#include <string>
#include <vector>

namespace shell {

struct Result {
    int status = -1;  // 128 + signal if one ended it
    std::string out;
    std::string err;
};

class ToolRunner {
public:
    /// Sets the bytes that come to standard input through a pipe; without this it is empty.
    ToolRunner& input(const std::string& bytes);

    /// Standard output goes to this file, not to the result.
    ToolRunner& outputTo(const std::string& path);

    /// Sets what the child process does before it becomes the tool.
    ToolRunner& before(std::function<void()> work);

    /// Runs another program in place of the tool, with the arguments of run().
    ToolRunner& program(const std::string& path);

    Result run(const std::vector<std::string>& arguments);

private:
    std::string inputBytes;
    std::string outputPath;
    std::string programPath = MURMELO_FX;
    std::function<void()> work;
};

/// Runs the tool with these arguments.
Result run(const std::vector<std::string>& arguments);

/// If this process runs as root, changes to a user without rights.
void becomeNobody();

/// Bytes of a WAV file before its samples.
constexpr size_t kHeaderBytes = WavHeader::kBytes;

/// A WAV file of one channel and 16 bits, written byte by byte.
std::string wavBytes(int32_t rateHz, const audio::Samples& samples);

/// The samples after a 44-byte header; the test fails if the header is not as the application
/// writes it.
audio::Samples samplesOf(const std::string& wavBytes);

/// Writes frames of interleaved samples of 16 bits through libsndfile; format as SF_INFO has it.
void writeSound(
    const std::string& path, int format, int rateHz, int channels, const audio::Samples& frames);

/// Writes one channel of floats, as they are.
void writeFloats(const std::string& path, const std::vector<float>& samples, int rateHz = 8000);

struct ReadSound {
    int rateHz = 0;
    int channels = 0;
    int format = 0;
    audio::Samples samples;
};

/// Reads a file through libsndfile.
ReadSound readSound(const std::string& path);

/// A sine of one channel; amplitude 1.0 is full scale.
audio::Samples sine(int rateHz, double hz, double amplitude, int32_t count);

}  // namespace shell
