// SPDX-License-Identifier: MIT
// The commands of a script, one row for each; the reader of scripts, the run and --list use this
// table.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

class ScriptRun;
struct ScriptCommand;

/// One word that follows the name of a command.
struct ScriptArgument {
    enum class Kind {
        kNone,
        kWord,       // any word
        kChoice,     // one of the words in text
        kScreen,     // name of a screen
        kOperation,  // name of an operation of the platform (HostOperation)
        kNumber,     // any number of 32 bits
        kCount,      // a number from 1 on
        kTimeMs,     // a number from 0 on
    };

    bool isNumber() const { return kind >= Kind::kNumber; }

    Kind kind = Kind::kNone;
    const char* text = "";  // as --list shows it; of a choice its words, with a | between them
    bool isOptional = false;
};

/// The operation of ScriptRun that carries out a command. There is no handler without one: a row
/// that lacks it does not compile.
class ScriptHandler {
public:
    using Operation = void (ScriptRun::*)(const ScriptCommand& command);

    // NOLINTNEXTLINE(google-explicit-constructor): a row names the operation alone
    constexpr ScriptHandler(Operation operation)
        : operation(operation) {}

    ScriptHandler(std::nullptr_t) = delete;  // NOLINT(google-explicit-constructor): deleted

    constexpr bool is(Operation other) const { return operation == other; }

    void call(ScriptRun& run, const ScriptCommand& command) const { (run.*operation)(command); }

private:
    Operation operation;
};

// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): a handler has no default
struct ScriptVerb {
    enum class Sort {
        kFact,         // holds from the start if only facts precede it
        kAction,       // cannot be done once the program has ended
        kExpectation,  // can be met also when the program has ended
    };

    const char* name = "";  // one or more words
    std::array<ScriptArgument, 2> arguments;
    Sort sort = Sort::kAction;
    ScriptHandler handler;
    const char* meaning = "";  // one line

    /// Every command, as --list shows them.
    static std::span<const ScriptVerb> all();

    /// Name and arguments: "until SCREEN [MS]".
    std::string form() const;
};
