#include "Script.h"

#include <algorithm>
#include <charconv>
#include <set>
#include <sstream>
#include <system_error>

namespace {

/// What follows a verb: a word (w), one of the given words (o), numbers (n), a number that may be
/// left out (?).
struct Form {
    const char* name;  // one or more words
    ScriptVerb verb;
    const char* arguments;
    std::vector<std::string> choices;
};

const std::vector<Form>& forms() {
    static const std::vector<Form> kForms = {
        {"tap", ScriptVerb::kTap, "nn", {}},
        {"press", ScriptVerb::kPress, "nn", {}},
        {"move", ScriptVerb::kMove, "nn", {}},
        {"release", ScriptVerb::kRelease, "nn", {}},
        {"swipe", ScriptVerb::kSwipe, "o", {"left", "right"}},
        {"key", ScriptVerb::kKey, "o", {"left", "middle", "right"}},
        {"navigate", ScriptVerb::kNavigate, "o", {"up", "down", "left", "right", "middle"}},
        {"wait", ScriptVerb::kWait, "n", {}},
        {"still", ScriptVerb::kStill, "n", {}},
        {"until", ScriptVerb::kUntil, "w?", {}},
        {"mic", ScriptVerb::kMic, "w", {}},
        {"speaker", ScriptVerb::kSpeaker, "w", {}},
        {"silent", ScriptVerb::kSilent, "o", {"on", "off"}},
        {"storage", ScriptVerb::kStorage, "nn", {}},
        {"background", ScriptVerb::kBackground, "", {}},
        {"foreground", ScriptVerb::kForeground, "", {}},
        {"screen", ScriptVerb::kScreen, "o", {"on", "off"}},
        {"volume", ScriptVerb::kVolume, "o", {"up", "down"}},
        {"fail", ScriptVerb::kFail, "wn", {}},
        {"shot", ScriptVerb::kShot, "w", {}},
        {"shot-canvas", ScriptVerb::kShotCanvas, "w", {}},
        {"watch", ScriptVerb::kWatch, "ww", {}},
        {"save", ScriptVerb::kSave, "", {}},
        {"take", ScriptVerb::kTake, "w", {}},
        {"remove", ScriptVerb::kRemove, "w", {}},
        {"expect screen", ScriptVerb::kExpectScreen, "w", {}},
        {"expect file", ScriptVerb::kExpectFile, "w", {}},
        {"expect no file", ScriptVerb::kExpectNoFile, "w", {}},
        {"expect effect", ScriptVerb::kExpectEffect, "n", {}},
        {"expect ended", ScriptVerb::kExpectEnded, "", {}},
    };
    return kForms;
}

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

/// The form whose name the line begins with, the longest where several do; null if none.
const Form* formOf(const std::vector<std::string>& words, size_t& nameWords) {
    const Form* best = nullptr;
    nameWords = 0;
    for (const Form& form : forms()) {
        const std::vector<std::string> name = wordsOf(form.name);
        if (startsWith(words, name) && name.size() > nameWords) {
            best = &form;
            nameWords = name.size();
        }
    }
    return best;
}

bool isNumber(const std::string& word, int64_t& number) {
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    // Within 32 bits: positions, milliseconds of one journey, bytes of a small phone.
    return error == std::errc() && end == word.data() + word.size() && number >= INT32_MIN &&
           number <= INT32_MAX;
}

/// Every operation of the platform that can be told to fail.
bool isOperation(const std::string& word) {
    static const std::set<std::string> kOperations = {
        "AppRegistry.Write", "AudioIn.AddBuffer",   "AudioIn.Construct",    "AudioIn.Prepare",
        "AudioIn.Reset",     "AudioIn.Start",       "AudioIn.Stop",         "AudioIn.Unprepare",
        "Canvas.Show",       "Directory.Construct", "Directory.Create",     "Directory.Read",
        "File.Construct",    "File.Copy",           "File.Flush",           "File.Read",
        "File.Remove",       "File.Seek",           "File.Write",           "Player.Close",
        "Player.Construct",  "Player.OpenFile",     "Player.Pause",         "Player.Play",
        "Player.SetVolume",  "Player.Stop",         "RuntimeInfo.GetValue", "SettingInfo.GetValue",
    };
    return kOperations.count(word) != 0;
}

/// Empty, or what is wrong with arguments that have the right form.
std::string checkValues(const ScriptCommand& command) {
    if (command.verb == ScriptVerb::kFail) {
        if (!isOperation(command.text)) {
            return "there is no operation \"" + command.text + "\"";
        }
        return command.numbers[0] < 1 ? "the calls of an operation count from 1" : "";
    }
    const bool waits = command.verb == ScriptVerb::kWait || command.verb == ScriptVerb::kStill ||
                       command.verb == ScriptVerb::kUntil;
    return waits && !command.numbers.empty() && command.numbers[0] < 0 ? "time does not go back"
                                                                       : "";
}

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) {
        text += text.empty() ? word : " or " + word;
    }
    return text;
}

/// Empty, or what is wrong with the arguments that stand from words[at] on.
std::string readArguments(const Form& form,
                          const std::vector<std::string>& words,
                          size_t at,
                          ScriptCommand& command) {
    for (const char* kind = form.arguments; *kind != '\0'; kind++) {
        if (at == words.size()) {
            if (*kind == '?') {
                break;
            }
            return std::string("\"") + form.name + "\" wants more";
        }
        const std::string& word = words[at++];
        int64_t number = 0;
        if (*kind == 'w') {
            (kind == form.arguments ? command.text : command.second) = word;
        } else if (*kind == 'o') {
            if (std::find(form.choices.begin(), form.choices.end(), word) == form.choices.end()) {
                return std::string("\"") + form.name + "\" wants " + joined(form.choices);
            }
            command.text = word;
        } else if (isNumber(word, number)) {
            command.numbers.push_back(number);
        } else {
            return "\"" + word + "\" is not a number";
        }
    }
    return at == words.size() ? "" : "\"" + words[at] + "\" is too much";
}

}  // namespace

std::string Script::parse(const std::string& text, std::vector<ScriptCommand>& commands) {
    std::istringstream stream(text);
    std::string line;
    for (int32_t number = 1; std::getline(stream, line); number++) {
        const std::vector<std::string> words = wordsOf(line);
        if (words.empty()) {
            continue;
        }
        const std::string where = "line " + std::to_string(number) + ": ";
        size_t nameWords = 0;
        const Form* form = formOf(words, nameWords);
        if (form == nullptr) {
            return where + "there is no command \"" + words[0] + "\"";
        }
        ScriptCommand command;
        command.verb = form->verb;
        command.line = number;
        std::string wrong = readArguments(*form, words, nameWords, command);
        if (wrong.empty()) {
            wrong = checkValues(command);
        }
        if (!wrong.empty()) {
            return where + wrong;
        }
        commands.push_back(std::move(command));
    }
    return "";
}
