// SPDX-License-Identifier: MIT
// A headless run's script: one command a line, # starts a comment.
#pragma once

#include "Problem.h"
#include "ScriptVerb.h"

#include <cstdint>
#include <string>
#include <vector>

struct ScriptCommand {
    const ScriptVerb* verb = nullptr;  // a row of ScriptVerb::all()
    int32_t line = 0;
    std::string text;              // the word given, if the verb takes one
    std::string second;            // and the second word
    std::vector<int64_t> numbers;  // the numbers given, in order
};

class Script {
public:
    /// Reads a whole script.
    /// @param screens   names of the program's screens
    /// @param commands  what was read is appended
    /// @returns what is wrong, and in which line
    static Problem parse(const std::string& text,
                         const std::vector<std::string>& screens,
                         std::vector<ScriptCommand>& commands);
};
