// Scripts: whatever is accepted has the arguments that its commands are carried out with.
#include "Script.h"
#include "ScriptHand.h"

#include <cstdlib>
#include <limits>
#include <string>

namespace {

constexpr size_t kMaxInputBytes = 1 << 16;

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void checkValues(const ScriptCommand& command) {
    for (const int64_t number : command.numbers) {
        require(number >= std::numeric_limits<int32_t>::min() &&
                number <= std::numeric_limits<int32_t>::max());
    }
    switch (command.verb) {
    case ScriptVerb::kStorage:
        require(command.numbers.size() == 2);
        break;
    case ScriptVerb::kWait:
    case ScriptVerb::kStill:
        require(command.numbers.size() == 1 && command.numbers[0] >= 0);
        break;
    case ScriptVerb::kUntil:
        require(!command.text.empty() && command.numbers.size() <= 1);
        break;
    case ScriptVerb::kFail:
        require(!command.text.empty() && command.numbers.size() == 1 && command.numbers[0] > 0);
        break;
    case ScriptVerb::kWatch:
        require(!command.text.empty() && !command.second.empty());
        break;
    default:
        break;
    }
}

/// Works out what the finger and the keys would do.
void carryOut(const ScriptCommand& command) {
    std::deque<ScriptHand::Callback> callbacks;
    switch (command.verb) {
    case ScriptVerb::kTap:
    case ScriptVerb::kPress:
    case ScriptVerb::kMove:
    case ScriptVerb::kRelease:
    case ScriptVerb::kSwipe:
    case ScriptVerb::kKey:
        ScriptHand::append(command, callbacks);
        require(!callbacks.empty());
        break;
    case ScriptVerb::kNavigate:
        ScriptHand::keyOf(command);
        break;
    default:
        break;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size > kMaxInputBytes) {
        return 0;
    }
    std::vector<ScriptCommand> commands;
    const std::string mistake = Script::parse(std::string(data, data + size), commands);
    int32_t line = 0;
    for (const ScriptCommand& command : commands) {
        require(command.line > line);
        line = command.line;
        checkValues(command);
        carryOut(command);
    }
    require(mistake.empty() || mistake.compare(0, 5, "line ") == 0);
    return 0;
}
