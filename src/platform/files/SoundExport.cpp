// SPDX-License-Identifier: MIT
#include "SoundExport.h"

#include "SafeFile.h"
#include "SoundFile.h"
#include "SoundFormats.h"

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <unistd.h>

namespace {

constexpr int32_t kSavedRateHz = 8000;  // of every sound that the program saves
constexpr int64_t kMaxSamples = int64_t{60} * 60 * kSavedRateHz;

}  // namespace

std::string SoundExport::nameOf(const std::string& savedName, const std::string& effectWord) {
    const std::string stem = std::filesystem::path(savedName).stem().string();
    const size_t underscore = stem.rfind('_');
    const std::string number = underscore == std::string::npos ? stem : stem.substr(underscore + 1);
    return "murmelo-" + (effectWord.empty() ? "" : effectWord + "-") + number + ".wav";
}

Problem SoundExport::read(const std::string& saved, std::vector<int16_t>& samples) {
    const Problem problem = SoundFile::read(saved, kSavedRateHz, kMaxSamples, samples);
    return problem ? Problem(SoundFile::reasonOf(problem)) : problem;
}

Problem SoundExport::write(const std::vector<int16_t>& samples, const std::string& path) {
    const std::optional<SoundFormats::Format> format = SoundFormats::ofPath(path);
    if (!format) {
        return "its name must end in " + SoundFormats::inWords(".", "or");
    }
    const std::string target = SafeFile::realTarget(path);
    if (const Problem kind = SafeFile::whyNotOrdinary(target)) {
        return "it " + kind.sentence();
    }
    std::string fresh;  // a free name: no file in the user's folder may be deleted
    const int file = SafeFile::createBeside(target, fresh);
    if (file < 0) {
        return SafeFile::lastError();
    }
    errno = 0;
    Problem problem =
        SoundFile::write(file, fresh, kSavedRateHz, samples.data(), samples.size(), *format);
    if (problem) {  // without the unfinished file's name
        problem = SafeFile::isOfDisk(errno) ? SafeFile::lastError() : SoundFile::kNotWhole;
    }
    const bool isOnDisk = SafeFile::finish(file);
    if (!problem && (!isOnDisk || !SafeFile::replace(fresh, target))) {
        problem = SafeFile::lastError();
    }
    if (problem) {
        ::unlink(fresh.c_str());
    }
    return problem;
}
