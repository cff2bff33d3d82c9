// SPDX-License-Identifier: MIT
// Fuzzes scripts: every accepted command has the arguments that it needs.
#include "HeadlessHost.h"
#include "QuietListener.h"
#include "Script.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <string>
#include <utility>

namespace {

constexpr size_t kMaxInputBytes = 1 << 16;

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// Checks that the command has the words and numbers that its row demands.
void checkArguments(const ScriptCommand& command) {
    size_t numbers = 0;
    size_t numbersAtLeast = 0;
    for (const ScriptArgument& argument : command.verb->arguments) {
        numbers += argument.isNumber() ? 1 : 0;
        numbersAtLeast += argument.isNumber() && !argument.isOptional ? 1 : 0;
    }
    require(command.numbers.size() >= numbersAtLeast && command.numbers.size() <= numbers);
    const auto isWord = [](const ScriptArgument& argument) {
        return argument.kind != ScriptArgument::Kind::kNone && !argument.isNumber();
    };
    require(command.text.empty() != isWord(command.verb->arguments[0]));
    require(command.second.empty() != isWord(command.verb->arguments[1]));
    for (const int64_t number : command.numbers) {
        require(number >= std::numeric_limits<int32_t>::min() &&
                number <= std::numeric_limits<int32_t>::max());
    }
}

/// True if the command names a file, which running it would read or write.
bool namesFile(const ScriptCommand& command) {
    const auto& arguments = command.verb->arguments;
    return std::any_of(arguments.begin(), arguments.end(), [](const ScriptArgument& argument) {
        return argument.kind == ScriptArgument::Kind::kWord;
    });
}

/// A program that ignores its host.
class Deaf : public QuietListener {
public:
    void onTerminate() override { ended = true; }

    bool ended = false;
};

void carryOut(std::vector<ScriptCommand> commands) {
    HeadlessHost host({}, std::move(commands), 0);
    Deaf program;
    while (!program.ended) {
        host.pump(program, -1);
    }
    const int32_t status = host.finish();
    require(host.error().empty() == (status == RunVerdict::kOk));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size > kMaxInputBytes) {
        return 0;
    }
    std::vector<ScriptCommand> commands;
    const Problem mistake =
        Script::parse(std::string(data, data + size), {"Options", "Play", "Process"}, commands);
    int32_t line = 0;
    for (const ScriptCommand& command : commands) {
        require(command.line > line);
        line = command.line;
        checkArguments(command);
    }
    require(!mistake || mistake.sentence().compare(0, 5, "line ") == 0);
    commands.erase(std::remove_if(commands.begin(), commands.end(), namesFile), commands.end());
    carryOut(std::move(commands));
    return 0;
}
