// SPDX-License-Identifier: MIT
// Reads the command line: the task, the effect, the files and the options.
#pragma once

#include "Problem.h"
#include "SoundWriter.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

struct FxOptions {
    enum class Task { kApply, kMeasure, kList, kDone };

    /// A file to read and the one to write; the output is empty when nothing is written.
    struct Job {
        std::string input;
        std::string output;
        SoundWriter::Kind kind = SoundWriter::Kind::kWav;
    };

    Task task = Task::kDone;  // kDone: the parser has printed the answer (--help, --version)
    int32_t effect = -1;      // index in the catalogue
    std::vector<Job> jobs;
    std::string outFolder;  // with --out-dir; made if it is missing
    bool clean = true;
    bool longSounds = false;
    std::optional<int32_t> seed;

    /// @returns the mistake in the command line, if there is one
    Problem parse(int argc, char** argv);

private:
    Problem setTask(bool list, bool measure, const std::string& kindName);
    Problem addSingleJob();
    Problem addFolderJobs();

    std::vector<std::string> arguments;
    std::optional<SoundWriter::Kind> kind;  // with --format
};
