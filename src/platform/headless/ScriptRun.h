// SPDX-License-Identifier: MIT
// Runs a script: knows the current command and what it still has to deliver or to wait for, and
// carries out each command on the host.
#pragma once

#include "Script.h"
#include "ScriptHand.h"

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

class HeadlessHost;
class RunVerdict;

class ScriptRun {
public:
    /// @param host, verdict  not owned
    ScriptRun(HeadlessHost& host, RunVerdict& verdict, std::vector<ScriptCommand> script);

    /// Carries out the facts about the device at the beginning of the script, so that they hold
    /// before the program starts.
    void begin();

    /// Checks for a signal and for the watched screen. Call it first in each pump().
    void look();

    /// Delivers at most one callback of the script, or lets time pass.
    /// @param timeoutMs  how long the program wants to wait; -1: for ever
    /// @returns true if it delivered one
    bool pump(HostListener& listener, int64_t timeoutMs);

    /// Carries out the rest of the script after the end of the program: expectations are checked,
    /// anything else fails.
    void finish();

    // The operations of the commands, which ScriptVerb calls. The command's arguments are as the
    // verb's row says.
    void tap(const ScriptCommand& command);
    void press(const ScriptCommand& command);
    void move(const ScriptCommand& command);
    void release(const ScriptCommand& command);
    void swipe(const ScriptCommand& command);
    void key(const ScriptCommand& command);
    void navigate(const ScriptCommand& command);
    void wait(const ScriptCommand& command);
    void still(const ScriptCommand& command);
    void until(const ScriptCommand& command);
    void mic(const ScriptCommand& command);
    void speaker(const ScriptCommand& command);
    void silent(const ScriptCommand& command);
    void storage(const ScriptCommand& command);
    void background(const ScriptCommand& command);
    void foreground(const ScriptCommand& command);
    void screen(const ScriptCommand& command);
    void volume(const ScriptCommand& command);
    void failCall(const ScriptCommand& command);
    void lose(const ScriptCommand& command);
    void shot(const ScriptCommand& command);
    void shotCanvas(const ScriptCommand& command);
    void watch(const ScriptCommand& command);
    void save(const ScriptCommand& command);
    void take(const ScriptCommand& command);
    void last(const ScriptCommand& command);
    void forget(const ScriptCommand& command);
    void remove(const ScriptCommand& command);
    void expectScreen(const ScriptCommand& command);
    void expectFile(const ScriptCommand& command);
    void expectNoFile(const ScriptCommand& command);
    void expectEffect(const ScriptCommand& command);
    void expectEnded(const ScriptCommand& command);

private:
    void start(const ScriptCommand& command);
    void heedSignal();

    /// Line of the current command, 0 before the first.
    int32_t currentLine() const;
    bool awaitedScreenCame();
    bool awaitedScreenIsThere() const;

    /// Moves the clock towards the end of a wait. True once the wait is over.
    bool waitOver(int64_t timeoutMs);

    /// True if the program has started and not ended, so that it offers its doors (HostDoors); else
    /// false, and the run has failed.
    bool hasDoors(const ScriptCommand& command);

    /// True if the program keeps the last take; else false, and the run ends with a mistake.
    bool hasState(const ScriptCommand& command);
    void waitFor(int64_t ms, const std::string& screen = "");
    std::string soundPath(const std::string& name) const;
    bool soundFileExists(const std::string& name) const;
    void writeCanvas(const ScriptCommand& command, const std::string& path);
    void fail(const ScriptCommand& command, const std::string& message);
    void mistake(const ScriptCommand& command, const std::string& message);
    static std::string inQuotes(const std::string& text);

    HeadlessHost& host;
    RunVerdict& verdict;
    std::vector<ScriptCommand> script;
    size_t next = 0;                           // index of the next command
    std::deque<ScriptHand::Callback> pending;  // callbacks of the current command
    int64_t framesAtThisTime = 0;
    bool ended = false;

    bool waiting = false;
    bool stayingStill = false;  // true: the wait fails if anything becomes due before its end
    int64_t waitEndMs = 0;
    std::string awaitedScreen;  // of "until"; empty: it is a wait for time only
    std::string screenBefore;   // the screen when the current command began
    std::string watchedScreen;  // empty: none
    std::string watchedFile;
};
