// A headless run's script: one command a line, # starts a comment.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

enum class ScriptVerb {
    kTap,
    kPress,
    kMove,
    kRelease,
    kSwipe,
    kKey,
    kNavigate,
    kWait,
    kStill,
    kUntil,
    kMic,
    kSpeaker,
    kSilent,
    kStorage,
    kBackground,
    kForeground,
    kScreen,
    kVolume,
    kFail,
    kLose,
    kShot,
    kShotCanvas,
    kWatch,
    kSave,
    kTake,
    kRemove,
    kExpectScreen,
    kExpectFile,
    kExpectNoFile,
    kExpectEffect,
    kExpectEnded,
};

struct ScriptCommand {
    ScriptVerb verb = ScriptVerb::kWait;
    int32_t line = 0;
    std::string text;              // the word given, if the verb takes one
    std::string second;            // and the second word
    std::vector<int64_t> numbers;  // the numbers given, in order
};

class Script {
public:
    /// Reads a whole script. @returns empty, or what is wrong in which line
    static std::string parse(const std::string& text, std::vector<ScriptCommand>& commands);
};
