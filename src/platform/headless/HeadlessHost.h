// The back end without a window: a script for hands, a virtual clock, files for ears and eyes.
//
// When nothing is due, time jumps to whatever comes next, so every run is the same and takes no
// longer than its work.
#pragma once

#include "FileMicrophone.h"
#include "FileSpeaker.h"
#include "Host.h"
#include "LostMicrophone.h"
#include "Script.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

class HeadlessHost : public Host {
public:
    static constexpr int32_t kOk = 0;
    static constexpr int32_t kFailed = 1;  // an expectation was not met
    static constexpr int32_t kUsage = 2;   // a mistake in the script or on the command line
    static constexpr int32_t kSignalled =
        128;  // and the number of the signal that asked for the end

    /// @param silent  what the phone is at first, unless the script's first lines say otherwise
    HeadlessHost(HostFolders folders,
                 std::vector<ScriptCommand> script,
                 int64_t clockStartMs,
                 bool silent = false);

    /// Works off what the script still expects once the program has ended.
    /// @returns the status of the whole run
    int32_t finish();

    /// What went wrong, with its line; empty if nothing did.
    const std::string& complaint() const { return failure; }

    int64_t uptimeMs() override { return nowMs; }

    int64_t ticksMs() override { return nowMs; }

    void yielded() override;

    const HostFolders& folders() override { return mapped; }

    bool isSilent() override { return silent; }

    int64_t freePhoneBytes() override { return phoneBytes; }

    int64_t freeCardBytes() override { return cardBytes; }

    bool pump(HostListener& listener, int64_t timeoutMs) override;

    void frameShown(HostFrame* newest) override;

    HostMicrophone* microphone() override { return &ears; }

    HostSpeaker* speaker() override { return &voice; }

    void setDoors(HostDoors* offered) override { doors = offered; }

    /// One line on standard error.
    void say(const std::string& sentence) override;

    bool fails(const char* operation) override;

private:
    using Callback = std::function<void(HostListener&)>;

    /// Passes time towards the end of a wait. True once the wait is over.
    bool waitOver(int64_t timeoutMs);

    /// How long until the program or its sound has something to do, -1 if neither.
    int64_t longestSleep(int64_t timeoutMs) const;
    void watch();
    void heedSignal();
    bool awaitedScreenCame();
    bool awaitedScreenIsThere() const;
    static std::vector<uint16_t> pictureOf(HostFrame& shown);
    void mistake(const ScriptCommand& command, const std::string& message);
    void start(const ScriptCommand& command);
    void startDevice(const ScriptCommand& command);
    void startSound(const ScriptCommand& command);
    void loseDevice(const ScriptCommand& command);
    void expect(const ScriptCommand& command);
    void takeShot(const ScriptCommand& command);
    void useDoor(const ScriptCommand& command);
    void writeCanvas(const ScriptCommand& command, const std::string& path);
    void useSoundFile(const ScriptCommand& command);
    void removeSoundFile(const ScriptCommand& command);
    std::string soundPath(const std::string& name) const;
    bool soundFileExists(const std::string& name) const;
    void fail(const ScriptCommand& command, const std::string& message);

    HostFolders mapped;
    std::vector<ScriptCommand> script;
    size_t next = 0;               // of the script
    std::deque<Callback> pending;  // callbacks of the current command

    int64_t nowMs;
    int32_t yieldsSincePump = 0;
    int64_t framesAtThisTime = 0;

    bool waiting = false;
    bool stayingStill = false;  // the wait fails if anything falls due before its end
    int64_t waitEndMs = 0;
    std::string watchedScreen;  // empty: none
    std::string watchedFile;
    std::string screenBefore;   // when the current command began
    std::string awaitedScreen;  // empty: only time counts

    FileMicrophone ears;
    FileSpeaker voice;
    LostMicrophone lostMicrophone;
    bool silent;
    int64_t phoneBytes = int64_t{1} << 30;
    int64_t cardBytes = -1;
    std::map<std::string, int64_t> failures;  // operation, calls until it fails

    HostFrame* frame = nullptr;
    std::vector<uint16_t> lastPicture;  // of a frame that is gone; empty before the first
    HostDoors* doors = nullptr;
    bool ended = false;
    std::string failure;
    int32_t status = kOk;
};
