// SPDX-License-Identifier: MIT
// The phone in a web page. The page decides when the program runs: it calls turn() in each of its
// events and when the program has asked for it.
//
// Events of the page wait in a queue until the next turn. The program stands still, and its clock
// with it, while the browser asks the user for the microphone.
#pragma once

#include "Host.h"
#include "HostProgram.h"
#include "KeyWalk.h"
#include "LostMicrophone.h"
#include "OneFinger.h"
#include "WebMicrophone.h"
#include "WebPage.h"
#include "WebPicture.h"
#include "WebSpeaker.h"
#include "WebStrip.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class WebHost : public Host {
public:
    // What turn() returns besides milliseconds.
    static constexpr double kNever = -1;
    static constexpr double kEnded = -2;

    /// Installs itself for its lifetime. @param page  not owned
    WebHost(WebPage& page, HostFolders folders);
    WebHost(const WebHost&) = delete;
    WebHost& operator=(const WebHost&) = delete;
    ~WebHost() override;

    /// Starts the program. False if it cannot be started.
    bool begin(std::unique_ptr<HostProgram> made);

    /// Lets the program work for at most 8 ms of the real clock, or for one step if that takes
    /// longer.
    /// @returns after how many milliseconds it wants the next turn (0: as soon as the page has
    /// dealt with its own events), kNever, or kEnded
    double turn();

    // What the page tells. All of it waits for the next turn.
    void touch(HostListener::Touch touch,
               bool isFinger,
               int32_t id,
               int32_t x,
               int32_t y,
               uint32_t timeMs);

    /// The browser takes the pointer away, for a pinch for instance: it presses nothing.
    void touchCancelled(bool isFinger, int32_t id);
    void key(HostKey key);
    void volumeKey(bool up);

    /// A key by the name that browsers give it ("ArrowUp"), after "Control+" if that is held.
    /// @returns whether program or strip have a use for it
    bool keyNamed(const std::string& name);

    /// The user has fingers and no keys: the help speaks of them.
    void fingersOnly(bool only) { row.fingersOnly(only); }

    /// See WebSpeaker.
    void volumeStays(bool stays) { voice.volumeStays(stays); }

    /// The user has not answered the browser's question for a while.
    void remindToAllow();

    /// What became of the question of that ticket. On a refusal the user is told why, and it goes
    /// back to the menu, with the earlier take, which the program has deleted. Keys and presses
    /// that still wait are then forgotten.
    /// @param error  name of the browser's exception; empty: it gives the microphone
    /// @param rateHz  of the samples that will come
    /// @param name    of the microphone; empty: not known
    void microphoneAnswered(int32_t ticket,
                            const std::string& error,
                            int32_t rateHz,
                            const std::string& name = "");

    /// The device is gone. What it heard is kept; before a recording it is as a refusal.
    void microphoneLost();
    void clipEnded(int32_t ticket);
    void clipFailed(int32_t ticket);

    /// Makes this sound the take, all of it: now, or as soon as the start leads to the menu. Tells
    /// the user where it is not possible. @param samples  16 kHz
    /// @param message  told when it is the take; without a row: nothing is
    void use(std::vector<int16_t> samples, HostMessage message = {});

    /// The page is hidden: stops a running recording, lets its clean-up run to its end, and only
    /// then goes to the background; all of that within this call. The user is told if the recording
    /// was too short to be kept.
    void leave();

    /// The page is seen again; nothing happens unless it had left.
    void comeBack();

    /// Samples from the microphone. @returns whether a turn has something to do with them
    bool heard(const float* samples, int32_t count, int32_t rateHz) {
        return ears.heard(samples, count, rateHz);
    }

    /// The rows that changed since the last call.
    WebPicture::Rows paint();

    const WebPicture& picture() const { return painted; }

    /// Null before the start and after the end.
    HostDoors* doorsInUse() { return doors; }

    /// Keeps the copy of a take from an earlier visit, for a refusal of the microphone.
    void rememberTake(std::vector<int16_t> samples);

    WebStrip& strip() { return row; }

    /// The mouse is there, in pixels of the display.
    void point(int32_t x, int32_t y);

    int64_t uptimeMs() override;

    int64_t ticksMs() override { return uptimeMs(); }

    void yielded() override {}

    const HostFolders& folders() override { return mapped; }

    int64_t freePhoneBytes() override;
    bool pump(HostListener& listener, int64_t timeoutMs) override;
    void frameShown(HostFrame* newest) override;

    HostMicrophone* microphone() override { return &ears; }

    HostSpeaker* speaker() override { return &voice; }

    void setDoors(HostDoors* offered) override;

    void kept(const std::string& path) override;

    /// Only words in the program's language are shown.
    void tell(const HostMessage& message, const std::string& /*sentence*/) override {
        row.tell(message);
    }

private:
    /// Returns whether it delivered a callback.
    using Task = std::function<bool(HostListener&)>;

    /// The microphone that the program sees: tells when a take was recorded, and brings the earlier
    /// one back after a recording that heard nothing.
    class Ears : public WebMicrophone {
    public:
        Ears(WebHost& host, WebPage& page)
            : WebMicrophone(page)
            , host(host) {}

        void release() override;

    private:
        WebHost& host;
    };

    bool isOn(const char* screen) const;
    void giveRecordingUp(const char* word);
    bool loseMicrophone();
    bool watchMicrophone();
    void keepTake(std::vector<int16_t> samples);
    bool step();
    void end();
    void bringLastTakeBack();
    void offer(std::vector<int16_t> samples, HostMessage message = {});
    bool bringTakeBack();
    bool deliver(HostListener& listener);
    void look();
    int64_t stripNowMs();
    void stripKey(StripKey key);
    void navigate(HostKey pressed);

    WebPage& page;
    HostFolders mapped;
    Ears ears;
    WebSpeaker voice;
    WebStrip row;
    KeyWalk walk;
    LostMicrophone lostMicrophone;
    OneFinger finger;
    WebPicture painted;
    HostDoors* doors = nullptr;
    HostFrame* frame = nullptr;
    std::deque<Task> tasks;
    std::vector<int16_t> lastTake;     // raw, 16 kHz; empty: none
    std::vector<int16_t> offeredTake;  // becomes the take when the program rests; empty: none
    HostMessage offeredMessage;        // told then; without a row: nothing is
    bool hasTake = false;              // the program has a take, or had it when it asked to record
    int32_t refusals = 0;              // of the microphone
    double restMs = 0;                 // how long the program wants to sleep since the last pump
    bool isAway = false;
    bool leavesLater = false;  // it was hidden while the user was asked
    int64_t leftMs = 0;        // when it went away
    int64_t awayMs = 0;        // for how long it was away, in all: the strip's clock stands still
    bool isReminded = false;   // to allow the microphone
    bool ended = false;
    std::unique_ptr<HostProgram> program;
};
