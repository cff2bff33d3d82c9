// SPDX-License-Identifier: MIT
// Fuzzes the tool's command lines, one argument a line: an accepted one is complete, any other is
// refused with a sentence. No file is opened or made.
#include "FxCatalogue.h"
#include "FxOptions.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

namespace {

constexpr size_t kMaxInputBytes = 1 << 12;

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

std::vector<std::string> argumentsOf(const uint8_t* data, size_t size) {
    std::vector<std::string> arguments = {"murmelo-fx"};
    std::string argument;
    for (size_t i = 0; i < size; i++) {
        if (data[i] == '\n' || data[i] == 0) {  // no argument holds a zero
            arguments.push_back(argument);
            argument.clear();
        } else {
            argument += static_cast<char>(data[i]);
        }
    }
    if (!argument.empty()) {
        arguments.push_back(argument);
    }
    return arguments;
}

void checkJobs(const FxOptions& options) {
    require(!options.jobs.empty());
    for (const FxOptions::Job& job : options.jobs) {
        require(options.task == FxOptions::Task::kMeasure || !job.output.empty());
        require(SoundWriter::isPossible(job.kind));
    }
    if (options.task == FxOptions::Task::kApply) {
        require(FxCatalogue::toolName(options.effect) != nullptr);
        require(options.jobs.size() == 1 || !options.outFolder.empty());
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size > kMaxInputBytes) {
        return 0;
    }
    std::vector<std::string> arguments = argumentsOf(data, size);
    std::vector<char*> pointers(arguments.size());
    std::transform(arguments.begin(), arguments.end(), pointers.begin(),
                   [](std::string& argument) { return argument.data(); });
    FxOptions options;
    std::streambuf* const printed = std::cout.rdbuf(nullptr);  // help and version
    const Problem mistake = options.parse(static_cast<int>(pointers.size()), pointers.data());
    std::cout.rdbuf(printed);
    std::cout.clear();
    if (!mistake &&
        (options.task == FxOptions::Task::kApply || options.task == FxOptions::Task::kMeasure)) {
        checkJobs(options);
    }
    return 0;
}
