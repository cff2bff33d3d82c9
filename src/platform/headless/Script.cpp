#include "Script.h"

#include <algorithm>
#include <charconv>
#include <sstream>
#include <system_error>

namespace {

/// What follows a verb: a word (w), one of the given words (o), a screen (s), an operation of the
/// platform (p), numbers (n), a number that may be left out (?).
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
        {"until", ScriptVerb::kUntil, "s?", {}},
        {"mic", ScriptVerb::kMic, "w", {}},
        {"speaker", ScriptVerb::kSpeaker, "w", {}},
        {"silent", ScriptVerb::kSilent, "o", {"on", "off"}},
        {"storage", ScriptVerb::kStorage, "nn", {}},
        {"background", ScriptVerb::kBackground, "", {}},
        {"foreground", ScriptVerb::kForeground, "", {}},
        {"screen", ScriptVerb::kScreen, "o", {"on", "off"}},
        {"volume", ScriptVerb::kVolume, "o", {"up", "down"}},
        {"fail", ScriptVerb::kFail, "pn", {}},
        {"lose", ScriptVerb::kLose, "o", {"microphone", "speaker"}},
        {"shot", ScriptVerb::kShot, "w", {}},
        {"shot-canvas", ScriptVerb::kShotCanvas, "w", {}},
        {"watch", ScriptVerb::kWatch, "sw", {}},
        {"save", ScriptVerb::kSave, "", {}},
        {"take", ScriptVerb::kTake, "w", {}},
        {"remove", ScriptVerb::kRemove, "w", {}},
        {"expect screen", ScriptVerb::kExpectScreen, "s", {}},
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

const std::vector<std::string>& screens() {
    static const std::vector<std::string> kScreens = {
        "FirstLang", "Splash", "Options", "Record", "Recording",
        "Process",   "Play",   "Playing", "Save",   "MessageAndQuit",
    };
    return kScreens;
}

/// Every operation of the platform that can be told to fail.
const std::vector<std::string>& operations() {
    static const std::vector<std::string> kOperations = {
        "AppRegistry.Write", "AudioIn.AddBuffer",   "AudioIn.Construct",    "AudioIn.Prepare",
        "AudioIn.Reset",     "AudioIn.Start",       "AudioIn.Stop",         "AudioIn.Unprepare",
        "Canvas.Show",       "Directory.Construct", "Directory.Create",     "Directory.Read",
        "File.Construct",    "File.Copy",           "File.Flush",           "File.MoveAside",
        "File.Read",         "File.Remove",         "File.Rename",          "File.RenameToFree",
        "File.Seek",         "File.SyncFolder",     "File.Write",           "Player.Close",
        "Player.Construct",  "Player.OpenFile",     "Player.Pause",         "Player.Play",
        "Player.SetVolume",  "Player.Stop",         "RuntimeInfo.GetValue", "SettingInfo.GetValue",
    };
    return kOperations;
}

/// Empty, or what is wrong with arguments that have the right form.
std::string checkValues(const ScriptCommand& command) {
    if (command.verb == ScriptVerb::kFail) {
        return command.numbers[0] < 1 ? "the calls of an operation count from 1" : "";
    }
    const bool waits = command.verb == ScriptVerb::kWait || command.verb == ScriptVerb::kStill ||
                       command.verb == ScriptVerb::kUntil;
    return waits && !command.numbers.empty() && command.numbers[0] < 0 ? "time does not go back"
                                                                       : "";
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

/// Empty, or that the word is none of those that may stand there.
std::string checkWord(char kind, const Form& form, const std::string& word) {
    const std::vector<std::string>& choices =
        kind == 's' ? screens() : (kind == 'p' ? operations() : form.choices);
    if (kind == 'w' || std::find(choices.begin(), choices.end(), word) != choices.end()) {
        return "";
    }
    if (kind == 'o') {
        return std::string("\"") + form.name + "\" wants " + joined(choices);
    }
    return std::string("there is no ") + (kind == 's' ? "screen" : "operation") + " \"" + word +
           "\", only " + joined(choices);
}

/// What is wrong with a line that begins with no form's name.
std::string noForm(const std::string& firstWord) {
    std::vector<std::string> choices;
    for (const Form& form : forms()) {
        const std::string name = form.name;
        if (name.substr(0, firstWord.size() + 1) == firstWord + " ") {
            choices.push_back(name.substr(firstWord.size() + 1));
        }
    }
    return choices.empty() ? "there is no command \"" + firstWord + "\""
                           : "\"" + firstWord + "\" wants " + joined(choices);
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
        if (*kind != 'n' && *kind != '?') {
            std::string wrong = checkWord(*kind, form, word);
            if (!wrong.empty()) {
                return wrong;
            }
            (kind == form.arguments ? command.text : command.second) = word;
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
            return where + noForm(words[0]);
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
