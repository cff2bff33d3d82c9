// SPDX-License-Identifier: MIT
// A script being run: which command is current, what it still has to deliver or to wait for, and
// what each command does to the host.
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

    /// Carries out the commands at the script's beginning that state facts of the device, so that
    /// these hold from the start.
    void begin();

    /// Must be called first in each pump: checks for a signal, and for the screen that is watched.
    void look();

    /// Delivers at most one callback of the script, or lets time pass.
    /// @param timeoutMs  how long the program has nothing to do, -1 for ever
    /// @returns true if it delivered one
    bool pump(HostListener& listener, int64_t timeoutMs);

    /// Checks what the script still expects after the end of the program.
    void finish();

    // What the commands do; ScriptVerb calls them. The arguments are those of the verb's row.
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

    /// Passes time towards the end of a wait. True once the wait is over.
    bool waitOver(int64_t timeoutMs);

    /// False, and the run has failed, if the program has no doors.
    bool hasDoors(const ScriptCommand& command);
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
    size_t next = 0;                           // of the script
    std::deque<ScriptHand::Callback> pending;  // callbacks of the current command
    int64_t framesAtThisTime = 0;
    bool ended = false;

    bool waiting = false;
    bool stayingStill = false;  // the wait fails if anything becomes due before its end
    int64_t waitEndMs = 0;
    std::string awaitedScreen;  // empty: only time counts
    std::string screenBefore;   // when the current command began
    std::string watchedScreen;  // empty: none
    std::string watchedFile;
};
