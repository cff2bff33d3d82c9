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
    // Results of turn() besides times: wait for the next event; the program has ended.
    static constexpr double kNever = -1;
    static constexpr double kEnded = -2;

    /// Installs itself for its lifetime. @param page  not owned
    WebHost(WebPage& page, HostFolders folders);
    WebHost(const WebHost&) = delete;
    WebHost& operator=(const WebHost&) = delete;
    ~WebHost() override;

    /// Starts the program. False if it cannot be started.
    bool begin(std::unique_ptr<HostProgram> made);

    /// Lets the program work for about 8 ms of the real clock, and for at least one step.
    /// @returns milliseconds until the program wants the next turn (0: as soon as the page has
    /// handled its own events), kNever, or kEnded
    double turn();

    // Events of the page. They are delivered in the next turn.
    void touch(HostListener::Touch touch,
               bool isFinger,
               int32_t id,
               int32_t x,
               int32_t y,
               uint32_t timeMs);

    /// The browser has taken the pointer away, for example for a pinch: the touch ends without a
    /// press.
    void touchCancelled(bool isFinger, int32_t id);
    void key(HostKey key);
    void volumeKey(bool up);

    /// A key that was pressed. @param name as browsers call it ("ArrowUp"), with "Control+" before
    /// it if that key is held
    /// @returns true if the program or the strip uses it
    bool keyNamed(const std::string& name);

    /// Sets if the user has only fingers, no keys and no mouse: then the help describes touches
    /// instead of keys.
    void fingersOnly(bool only) { row.fingersOnly(only); }

    /// See WebSpeaker.
    void volumeStays(bool stays) { voice.volumeStays(stays); }

    /// Tells the user to answer the browser's question, which has waited for a while.
    void remindToAllow();

    /// The answer to the question with that ticket. If the microphone was refused, tells the user
    /// why, returns to the menu, and brings back the earlier take, which the program has deleted;
    /// keys and presses that still wait are dropped.
    /// @param error  name of the browser's exception; empty: the microphone was granted
    /// @param rateHz  of the microphone's samples
    /// @param name    of the microphone; empty: not known
    void microphoneAnswered(int32_t ticket,
                            const std::string& error,
                            int32_t rateHz,
                            const std::string& name = "");

    /// The device was lost. What it has recorded is kept; before a recording this counts as a
    /// refusal.
    void microphoneLost();
    void clipEnded(int32_t ticket);
    void clipFailed(int32_t ticket);

    /// Makes this sound the take, without cutting it: now, or as soon as the program reaches its
    /// menu after the start. Tells the user if it is not possible now. @param samples 16 kHz
    /// @param message  told when it is the take; without a row: nothing is
    void use(std::vector<int16_t> samples, HostMessage message = {});

    /// The page is hidden: stops a recording, finishes its clean-up, and then tells the program
    /// that it is in the background; all within this call. The user is told if the recording was
    /// too short to be kept.
    void leave();

    /// The page is visible again. Does nothing without a leave() before.
    void comeBack();

    /// Samples from the microphone. @returns true if a turn is due because of them
    bool heard(const float* samples, int32_t count, int32_t rateHz) {
        return ears.heard(samples, count, rateHz);
    }

    /// Works out the picture. Returns the rows that have changed since the last call.
    WebPicture::Rows paint();

    const WebPicture& picture() const { return painted; }

    /// Null before the start and after the end.
    HostDoors* doorsInUse() { return doors; }

    /// Keeps the copy of a take from an earlier visit, to bring it back on request or after a
    /// refusal.
    void rememberTake(std::vector<int16_t> samples);

    WebStrip& strip() { return row; }

    /// The mouse points at this pixel of the display.
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

    /// Shows the words in the program's language; the English sentence is not used.
    void tell(const HostMessage& message, const std::string& /*sentence*/) override {
        row.tell(message);
    }

private:
    /// Returns true if it delivered a callback.
    using Task = std::function<bool(HostListener&)>;

    /// The program's microphone: also keeps each recorded take, and brings the earlier one back
    /// after a recording without samples.
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
    int32_t refusals = 0;              // how often the microphone was refused
    double restMs = 0;  // the program's wish at the last pump: ms to sleep, or kNever
    bool isAway = false;
    bool leavesLater = false;  // the page was hidden while the browser asked the user
    int64_t leftMs = 0;        // when the page was hidden last
    int64_t awayMs = 0;        // total time away, during which the strip's clock stands still
    bool isReminded = false;   // the user was reminded to allow the microphone
    bool ended = false;
    std::unique_ptr<HostProgram> program;
};
