// SPDX-License-Identifier: MIT
// The back end without a window: a script instead of the user's hands, a virtual clock, and files
// for sound and pictures.
//
// When nothing is due, time jumps to the next event. So every run gives the same result, and takes
// only as long as its work.
#pragma once

#include "CopyingMicrophone.h"
#include "FailurePlan.h"
#include "FileMicrophone.h"
#include "FileSpeaker.h"
#include "FrameCheck.h"
#include "Host.h"
#include "LostMicrophone.h"
#include "RunVerdict.h"
#include "Script.h"
#include "ScriptRun.h"
#include "Strip.h"
#include "TakeKeeper.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class HeadlessHost : public Host {
public:
    /// @param silent  true: the phone is silent at first, unless the script says otherwise
    HeadlessHost(HostFolders folders,
                 std::vector<ScriptCommand> script,
                 int64_t clockStartMs,
                 bool silent = false);
    HeadlessHost(const HeadlessHost&) = delete;  // the script's run has a pointer to it
    HeadlessHost& operator=(const HeadlessHost&) = delete;

    /// Carries out the rest of the script, which may only be expectations, after the end of the
    /// program.
    /// @returns the status of the whole run
    int32_t finish();

    /// What has failed, with the script's line; empty if nothing has.
    const std::string& error() const { return verdict.error(); }

    int64_t uptimeMs() override { return nowMs; }

    int64_t ticksMs() override { return nowMs; }

    void yielded() override;

    const HostFolders& folders() override { return mapped; }

    bool isSilent() override { return silent; }

    int64_t freePhoneBytes() override { return phoneBytes; }

    int64_t freeCardBytes() override { return cardBytes; }

    bool pump(HostListener& listener, int64_t timeoutMs) override;

    /// Shows the strip above the picture, and gives touches to it. Call it before the program
    /// starts.
    void showStrip();

    void frameShown(HostFrame* phones) override;

    HostMicrophone* microphone() override { return &copyingEars; }

    HostSpeaker* speaker() override { return &fileVoice; }

    void setDoors(HostDoors* offered) override;

    /// Writes the sentence to standard error; if the strip is shown, shows the message there.
    void tell(const HostMessage& message, const std::string& sentence) override;

    bool fails(const char* operation) override { return failures.fails(operation); }

    // For the script's run: reading and changing the state of the device.

    /// The program's doors; null before the program has opened them and after its end.
    HostDoors* openDoors() { return doors; }

    /// Name of the current screen; empty if there is none.
    std::string screenName() { return doors != nullptr ? doors->screenName() : ""; }

    /// What the display shows, as RGB565 from the top down; empty before the first frame.
    std::vector<uint16_t> picture();

    FileMicrophone& ears() { return fileEars; }

    FileSpeaker& voice() { return fileVoice; }

    /// The takes that are kept, if any are.
    TakeKeeper& takes() { return keeper; }

    void setClock(int64_t ms) { nowMs = ms; }

    /// Milliseconds until the program or its sound has something to do; -1 if neither has.
    /// @param timeoutMs  how long the program wants to wait; -1: for ever
    int64_t longestSleep(int64_t timeoutMs) const;

    /// Compares every frame after this with the painted picture; the run fails at the first
    /// difference.
    void checkFrames() { frameCheck.emplace(); }

    void setSilent(bool on) { silent = on; }

    /// Sets the free bytes of the phone's memory and of its card; -1: unknown.
    void setStorage(int64_t phone, int64_t card);

    /// As FailurePlan::failNth.
    void failNth(const std::string& operation, int64_t n) { failures.failNth(operation, n); }

private:
    bool pumpProgram(HostListener& listener, int64_t timeoutMs);
    void look();
    void tellOnStrip(const HostMessage& message);
    void bringBack();
    static std::vector<uint16_t> pictureOf(HostFrame& shown);

    HostFolders mapped;
    int64_t nowMs;
    int32_t yieldsSincePump = 0;

    FileMicrophone fileEars;
    TakeKeeper keeper;
    CopyingMicrophone copyingEars;
    FileSpeaker fileVoice;
    LostMicrophone lostMicrophone;
    bool silent;
    int64_t phoneBytes = int64_t{1} << 30;
    int64_t cardBytes = -1;
    FailurePlan failures;

    std::unique_ptr<Strip> strip;  // null: no strip is shown
    HostFrame* frame = nullptr;
    std::vector<uint16_t> lastPicture;  // of a deleted frame; empty before the first
    HostDoors* doors = nullptr;
    std::optional<FrameCheck> frameCheck;  // none: frames are not compared
    int64_t framesToCheck = 0;

    RunVerdict verdict;
    ScriptRun scriptRun;
};
