// SPDX-License-Identifier: MIT
// The table of a script's commands, one row for each. The reader of scripts, the run, and --list
// use it.
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
        kPngFile,    // a word that ends in .png
        kChoice,     // one of the words in text
        kScreen,     // name of a screen
        kOperation,  // name of an operation of the platform (HostOperation)
        kNumber,     // any number of 32 bits
        kCount,      // a number, at least 1
        kTimeMs,     // a number, at least 0
    };

    bool isNumber() const { return kind >= Kind::kNumber; }

    Kind kind = Kind::kNone;
    const char* text = "";  // as --list shows it; for a choice, its words separated by |
    bool isOptional = false;
};

/// The operation of ScriptRun that carries out a command. A handler always has one: a row without
/// an operation does not compile.
class ScriptHandler {
public:
    using Operation = void (ScriptRun::*)(const ScriptCommand& command);

    // NOLINTNEXTLINE(google-explicit-constructor): a row contains just the operation
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
        kFact,         // if only facts precede it, holds before the program starts
        kAction,       // impossible after the program has ended
        kExpectation,  // possible after the program has ended
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
