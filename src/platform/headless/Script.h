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
    std::string text;              // the first word, if the verb takes one
    std::string second;            // the second word
    std::vector<int64_t> numbers;  // the numbers, in order
};

class Script {
public:
    /// Reads a whole script.
    /// @param screens   names of the program's screens
    /// @param commands  the commands are appended
    /// @returns the first problem, with its line
    static Problem parse(const std::string& text,
                         const std::vector<std::string>& screens,
                         std::vector<ScriptCommand>& commands);
};
