// SPDX-License-Identifier: MIT
// Starts the tool as a shell does, and makes and reads the files that it works on.
#include "ToolRunner.h"

#include <gtest/gtest.h>

#include <cmath>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <grp.h>
#include <sndfile.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace shell {

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr uid_t kNobody = 65534;

std::string readAll(std::FILE* file) {
    std::string text;
    std::rewind(file);
    char block[4096];
    for (size_t got = 0; (got = std::fread(block, 1, sizeof block, file)) > 0;) {
        text.append(block, got);
    }
    std::fclose(file);
    return text;
}

void feed(int pipe, const std::string& bytes) {
    size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t written = write(pipe, bytes.data() + done, bytes.size() - done);
        if (written <= 0) {
            break;  // the tool has seen enough
        }
        done += static_cast<size_t>(written);
    }
    close(pipe);
}

std::string little(uint32_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; i++) {
        text.push_back(static_cast<char>(value >> (8 * i) & 0xFF));
    }
    return text;
}

SNDFILE* openToWrite(const std::string& path, int format, int rateHz, int channels) {
    SF_INFO facts = {};
    facts.samplerate = rateHz;
    facts.channels = channels;
    facts.format = format;
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &facts);
    EXPECT_NE(nullptr, file) << path << ": " << sf_strerror(nullptr);
    return file;
}

}  // namespace

ToolRunner& ToolRunner::input(const std::string& bytes) {
    inputBytes = bytes;
    return *this;
}

ToolRunner& ToolRunner::outputTo(const std::string& path) {
    outputPath = path;
    return *this;
}

ToolRunner& ToolRunner::before(std::function<void()> childsWork) {
    work = std::move(childsWork);
    return *this;
}

ToolRunner& ToolRunner::program(const std::string& path) {
    programPath = path;
    return *this;
}

Result ToolRunner::run(const std::vector<std::string>& arguments) {
    std::vector<char*> argv = {programPath.data()};
    std::vector<std::string> copies = arguments;
    for (std::string& argument : copies) {
        argv.push_back(argument.data());
    }
    argv.push_back(nullptr);
    std::signal(SIGPIPE, SIG_IGN);
    std::FILE* out = std::tmpfile();
    std::FILE* err = std::tmpfile();
    int pipeEnds[2] = {-1, -1};
    EXPECT_EQ(0, pipe2(pipeEnds, O_CLOEXEC));
    const pid_t child = fork();
    if (child == 0) {
        std::signal(SIGPIPE, SIG_DFL);
        dup2(pipeEnds[0], STDIN_FILENO);
        dup2(outputPath.empty() ? fileno(out) : open(outputPath.c_str(), O_WRONLY | O_CREAT, 0644),
             STDOUT_FILENO);
        dup2(fileno(err), STDERR_FILENO);
        if (work) {
            work();
        }
        execv(argv[0], argv.data());
        _exit(126);
    }
    close(pipeEnds[0]);
    std::thread feeder(feed, pipeEnds[1], inputBytes);
    int status = 0;
    EXPECT_EQ(child, waitpid(child, &status, 0));
    feeder.join();
    Result result;
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    result.out = readAll(out);
    result.err = readAll(err);
    return result;
}

Result run(const std::vector<std::string>& arguments) {
    return ToolRunner().run(arguments);
}

void becomeNobody() {
    if (getuid() == 0 &&
        (setgroups(0, nullptr) != 0 || setgid(kNobody) != 0 || setuid(kNobody) != 0)) {
        _exit(125);
    }
}

std::string wavBytes(int32_t rateHz, const audio::Samples& samples) {
    const auto bytes = static_cast<uint32_t>(samples.size() * 2);
    const auto rate = static_cast<uint32_t>(rateHz);
    std::string text = "RIFF" + little(36 + bytes, 4) + "WAVEfmt " + little(16, 4) + little(1, 2) +
                       little(1, 2) + little(rate, 4) + little(2 * rate, 4) + little(2, 2) +
                       little(16, 2) + "data" + little(bytes, 4);
    for (const int32_t sample : samples) {
        text += little(static_cast<uint32_t>(sample), 2);
    }
    return text;
}

audio::Samples samplesOf(const std::string& bytes) {
    audio::Samples samples;
    for (size_t at = kHeaderBytes; at + 1 < bytes.size(); at += 2) {
        const auto low = static_cast<unsigned char>(bytes[at]);
        const auto high = static_cast<unsigned char>(bytes[at + 1]);
        samples.push_back(static_cast<int16_t>(low | high << 8));
    }
    EXPECT_EQ(wavBytes(8000, {}).substr(8, 32),
              bytes.substr(std::min<size_t>(8, bytes.size()), 32));
    EXPECT_EQ(wavBytes(8000, samples).size(), bytes.size());
    return samples;
}

void writeSound(
    const std::string& path, int format, int rateHz, int channels, const audio::Samples& frames) {
    SNDFILE* file = openToWrite(path, format, rateHz, channels);
    ASSERT_NE(nullptr, file);
    const std::vector<int16_t> words(frames.begin(), frames.end());
    const auto count = static_cast<sf_count_t>(words.size());
    EXPECT_EQ(count, sf_write_short(file, words.data(), count));
    EXPECT_EQ(0, sf_close(file));
}

void writeFloats(const std::string& path, const std::vector<float>& samples, int rateHz) {
    SNDFILE* file = openToWrite(path, SF_FORMAT_WAV | SF_FORMAT_FLOAT, rateHz, 1);
    ASSERT_NE(nullptr, file);
    const auto count = static_cast<sf_count_t>(samples.size());
    EXPECT_EQ(count, sf_write_float(file, samples.data(), count));
    EXPECT_EQ(0, sf_close(file));
}

ReadSound readSound(const std::string& path) {
    SF_INFO facts = {};
    ReadSound sound;
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &facts);
    if (file == nullptr) {
        ADD_FAILURE() << path << ": " << sf_strerror(nullptr);
        return sound;
    }
    sound.rateHz = facts.samplerate;
    sound.channels = facts.channels;
    sound.format = facts.format;
    std::vector<int16_t> block(4096);
    for (sf_count_t got = 0; (got = sf_read_short(file, block.data(), 4096)) > 0;) {
        sound.samples.insert(sound.samples.end(), block.begin(), block.begin() + got);
    }
    sf_close(file);
    return sound;
}

audio::Samples sine(int rateHz, double hz, double amplitude, int32_t count) {
    audio::Samples samples;
    for (int32_t i = 0; i < count; i++) {
        const double value = std::sin(2.0 * kPi * hz * i / rateHz);
        samples.push_back(static_cast<int32_t>(std::lrint(amplitude * 32767.0 * value)));
    }
    return samples;
}

}  // namespace shell
