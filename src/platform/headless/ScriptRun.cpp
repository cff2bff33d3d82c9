// SPDX-License-Identifier: MIT
#include "ScriptRun.h"

#include "EndSignal.h"
#include "HeadlessHost.h"
#include "RunVerdict.h"

#include <utility>

namespace {

// How many frames the program may make without time passing. More would mean that it is always due,
// and the script would never go on.
constexpr int64_t kMaxFramesAtOnce = 1000000;

bool isUntil(const ScriptCommand& command) {
    return command.verb->handler.is(&ScriptRun::until);
}

}  // namespace

ScriptRun::ScriptRun(HeadlessHost& host, RunVerdict& verdict, std::vector<ScriptCommand> script)
    : host(host)
    , verdict(verdict)
    , script(std::move(script)) {}

void ScriptRun::begin() {
    while (next < script.size() && script[next].verb->sort == ScriptVerb::Sort::kFact) {
        next++;
        start(script[next - 1]);
    }
}

int32_t ScriptRun::currentLine() const {
    return next > 0 ? script[next - 1].line : 0;
}

void ScriptRun::look() {
    // Takes a picture of the watched screen even if it comes and goes within one command, as the
    // processing of a take does.
    if (!watchedScreen.empty() && host.screenName() == watchedScreen) {
        watchedScreen.clear();
        writeCanvas(script[next - 1], watchedFile);
    }
    heedSignal();
}

void ScriptRun::heedSignal() {
    const int signal = EndSignal::received();
    if (signal != 0 && verdict.isOk()) {
        verdict.signalled(currentLine(), signal);
    }
}

bool ScriptRun::pump(HostListener& listener, int64_t timeoutMs) {
    if (timeoutMs == 0 && verdict.isOk() && !awaitedScreenCame()) {
        framesAtThisTime++;
        if (framesAtThisTime <= kMaxFramesAtOnce) {
            return false;
        }
        verdict.fail(currentLine(), "the program never comes to rest");
    }
    while (verdict.isOk() && pending.empty()) {
        if (waiting && !waitOver(timeoutMs)) {
            framesAtThisTime = 0;
            return false;
        }
        if (!verdict.isOk() || next == script.size()) {
            break;
        }
        next++;
        framesAtThisTime = 0;
        start(script[next - 1]);
        heedSignal();
    }
    if (!verdict.isOk() || pending.empty()) {
        ended = true;
        listener.onTerminate();
        return true;
    }
    const ScriptHand::Callback callback = std::move(pending.front());
    pending.pop_front();
    callback(listener);
    return true;
}

void ScriptRun::start(const ScriptCommand& command) {
    if (host.openDoors() != nullptr && !isUntil(command)) {
        screenBefore = host.screenName();
    }
    command.verb->handler.call(*this, command);
}

/// True if the screen that "until" waits for is shown. "until" checks every frame, also those of
/// the command before it and those during work, so that it notices a screen that is shown only
/// briefly. If that screen was shown when the command before began, and still is, "until" takes
/// effect only when nothing is due.
bool ScriptRun::awaitedScreenCame() {
    const bool untilIsNext =
        !waiting && pending.empty() && next < script.size() && isUntil(script[next]);
    const std::string& wanted = untilIsNext ? script[next].text : awaitedScreen;
    const bool came =
        host.openDoors() != nullptr && (host.screenName() != wanted || screenBefore != wanted);
    if (untilIsNext && came) {
        next++;
        start(script[next - 1]);
    }
    return waiting && awaitedScreenIsThere();
}

bool ScriptRun::awaitedScreenIsThere() const {
    return !awaitedScreen.empty() && host.screenName() == awaitedScreen;
}

bool ScriptRun::waitOver(int64_t timeoutMs) {
    const bool there = awaitedScreenIsThere();
    const int64_t nowMs = host.uptimeMs();
    if (there || nowMs >= waitEndMs) {
        waiting = false;
        if (!there && !awaitedScreen.empty()) {
            fail(script[next - 1], "expected screen " + inQuotes(awaitedScreen) + ", found " +
                                       inQuotes(host.screenName()));
        }
        return true;
    }
    const int64_t sleepMs = host.longestSleep(timeoutMs);
    const bool dueBefore = sleepMs >= 0 && sleepMs < waitEndMs - nowMs;
    if (dueBefore && stayingStill && sleepMs > 0) {  // 0 ms: still the command before it
        fail(script[next - 1], "something is due in " + std::to_string(sleepMs) + " ms");
        return true;
    }
    host.setClock(dueBefore ? nowMs + sleepMs : waitEndMs);
    return false;
}

void ScriptRun::finish() {
    ended = true;
    if (waiting && !awaitedScreen.empty() && verdict.isOk()) {
        fail(script[next - 1],
             "expected screen " + inQuotes(awaitedScreen) + ", the program ended");
    }
    while (verdict.isOk() && next < script.size()) {
        const ScriptCommand& command = script[next++];
        if (command.verb->sort == ScriptVerb::Sort::kExpectation) {
            start(command);
        } else {
            fail(command, "the program has ended");
        }
    }
}

void ScriptRun::fail(const ScriptCommand& command, const std::string& message) {
    verdict.fail(command.line, message);
}

void ScriptRun::mistake(const ScriptCommand& command, const std::string& message) {
    verdict.mistake(command.line, message);
}

std::string ScriptRun::inQuotes(const std::string& text) {
    return "\"" + text + "\"";
}
