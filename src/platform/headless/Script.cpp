// SPDX-License-Identifier: MIT
#include "Script.h"

#include "HostOperation.h"

#include <algorithm>
#include <charconv>
#include <sstream>
#include <string_view>
#include <system_error>
#include <utility>

namespace {

using Kind = ScriptArgument::Kind;

std::vector<std::string> wordsOf(const std::string& line) {
    std::istringstream stream(line.substr(0, line.find('#')));
    std::vector<std::string> words;
    std::string word;
    while (stream >> word) {
        words.push_back(word);
    }
    return words;
}

bool startsWith(const std::vector<std::string>& words, const std::vector<std::string>& start) {
    return words.size() >= start.size() && std::equal(start.begin(), start.end(), words.begin());
}

/// The verb whose name begins the line; if several do, the longest. Null if there is none.
const ScriptVerb* verbOf(const std::vector<std::string>& words, size_t& nameWords) {
    const ScriptVerb* best = nullptr;
    nameWords = 0;
    for (const ScriptVerb& verb : ScriptVerb::all()) {
        const std::vector<std::string> name = wordsOf(verb.name);
        if (startsWith(words, name) && name.size() > nameWords) {
            best = &verb;
            nameWords = name.size();
        }
    }
    return best;
}

bool isNumber(const std::string& word, int64_t& number) {
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    // 32 bits are enough for positions, for the milliseconds of a run, and for the bytes of a small
    // phone.
    return error == std::errc() && end == word.data() + word.size() && number >= INT32_MIN &&
           number <= INT32_MAX;
}

/// Checks the values of arguments whose form is correct.
Problem checkValues(const ScriptCommand& command) {
    auto number = command.numbers.begin();
    for (const ScriptArgument& argument : command.verb->arguments) {
        if (!argument.isNumber() || number == command.numbers.end()) {
            continue;
        }
        if (argument.kind == Kind::kCount && *number < 1) {
            return "the calls of an operation count from 1";
        }
        if (argument.kind == Kind::kTimeMs && *number < 0) {
            return "a time must be at least 0";
        }
        number++;
    }
    return Problem::none();
}

/// "a, b or c".
std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (size_t i = 0; i < words.size(); i++) {
        text += i == 0 ? "" : (i + 1 == words.size() ? " or " : ", ");
        text += words[i];
    }
    return text;
}

/// The words that are allowed for this argument.
std::vector<std::string> choicesOf(const ScriptArgument& argument,
                                   const std::vector<std::string>& screens) {
    if (argument.kind == Kind::kScreen) {
        return screens;
    }
    if (argument.kind == Kind::kOperation) {
        return {HostOperation::kNames.begin(), HostOperation::kNames.end()};
    }
    std::vector<std::string> choices;
    std::istringstream stream(argument.text);
    std::string word;
    while (std::getline(stream, word, '|')) {
        choices.push_back(word);
    }
    return choices;
}

/// A problem if the word is not allowed for this argument.
Problem checkWord(const ScriptVerb& verb,
                  const ScriptArgument& argument,
                  const std::vector<std::string>& screens,
                  const std::string& word) {
    if (argument.kind == Kind::kWord) {
        return Problem::none();
    }
    if (argument.kind == Kind::kPngFile) {
        const std::string_view name = word;
        return name.ends_with(".png") ? Problem::none()
                                      : Problem("the name of a picture must end in .png");
    }
    const std::vector<std::string> choices = choicesOf(argument, screens);
    if (std::find(choices.begin(), choices.end(), word) != choices.end()) {
        return Problem::none();
    }
    if (argument.kind == Kind::kChoice) {
        return std::string("\"") + verb.name + "\" needs " + joined(choices);
    }
    return std::string("there is no ") + (argument.kind == Kind::kScreen ? "screen" : "operation") +
           " \"" + word + "\", only " + joined(choices);
}

/// The sentence for a line that begins with no verb's name.
std::string noVerb(const std::string& firstWord) {
    std::vector<std::string> choices;
    for (const ScriptVerb& verb : ScriptVerb::all()) {
        const std::string name = verb.name;
        if (name.substr(0, firstWord.size() + 1) == firstWord + " ") {
            choices.push_back(name.substr(firstWord.size() + 1));
        }
    }
    return choices.empty() ? "there is no command \"" + firstWord + "\""
                           : "\"" + firstWord + "\" needs " + joined(choices);
}

/// Reads the arguments, which begin at words[at], into command.
Problem readArguments(const std::vector<std::string>& words,
                      size_t at,
                      const std::vector<std::string>& screens,
                      ScriptCommand& command) {
    const ScriptVerb& verb = *command.verb;
    for (const ScriptArgument& argument : verb.arguments) {
        if (argument.kind == Kind::kNone || (at == words.size() && argument.isOptional)) {
            break;
        }
        if (at == words.size()) {
            return std::string("\"") + verb.name + "\" needs" +
                   verb.form().substr(std::string(verb.name).size());
        }
        const std::string& word = words[at++];
        int64_t number = 0;
        if (!argument.isNumber()) {
            if (Problem problem = checkWord(verb, argument, screens, word)) {
                return problem;
            }
            (&argument == verb.arguments.data() ? command.text : command.second) = word;
        } else if (isNumber(word, number)) {
            command.numbers.push_back(number);
        } else {
            return "\"" + word + "\" is not a number";
        }
    }
    return at == words.size() ? Problem::none() : Problem("\"" + words[at] + "\" is too much");
}

}  // namespace

Problem Script::parse(const std::string& text,
                      const std::vector<std::string>& screens,
                      std::vector<ScriptCommand>& commands) {
    std::istringstream stream(text);
    std::string line;
    for (int32_t number = 1; std::getline(stream, line); number++) {
        const std::vector<std::string> words = wordsOf(line);
        if (words.empty()) {
            continue;
        }
        const std::string where = "line " + std::to_string(number) + ": ";
        size_t nameWords = 0;
        ScriptCommand command;
        command.verb = verbOf(words, nameWords);
        command.line = number;
        if (command.verb == nullptr) {
            return where + noVerb(words[0]);
        }
        Problem problem = readArguments(words, nameWords, screens, command);
        if (!problem) {
            problem = checkValues(command);
        }
        if (problem) {
            return where + problem.sentence();
        }
        commands.push_back(std::move(command));
    }
    return Problem::none();
}
