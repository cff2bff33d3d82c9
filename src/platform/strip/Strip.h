// SPDX-License-Identifier: MIT
// The strip as a host uses it: the model, what feeds it, what fulfils its wishes, and the frame to
// look at.
#pragma once

#include "Host.h"
#include "StripFeed.h"
#include "StripFrame.h"
#include "StripModel.h"
#include "StripWishes.h"

#include <cstdint>
#include <functional>
#include <utility>

class Strip {
public:
    Strip() = default;
    Strip(const Strip&) = delete;
    Strip& operator=(const Strip&) = delete;

    /// The program has started, or (null) ended. Only in between the strip is shown, and takes
    /// touches and keys.
    void setDoors(HostDoors* doors);

    /// The frame to look at in place of the phone's own; null: the display's is gone.
    HostFrame* frameOver(HostFrame* display);

    /// True if it looks different from what was looked at last.
    bool isNew() const { return frame.isThere() && frame.isNew(); }

    /// Looks at the program; before a picture is shown, and when dueMs() is over.
    void look(int64_t nowMs) { feeding.look(nowMs); }

    /// DueTime::kNever: when the program does something.
    int64_t dueMs() const { return feeding.dueMs(); }

    /// A touch in pixels of the 480 x 800 display, and what it wishes is fulfilled. One that goes
    /// down on the strip or its sheet is the strip's until it is lifted; it wishes nothing if that
    /// is not on the button where it went down.
    /// @returns false if the touch is the program's
    bool touch(HostListener::Touch touch, int32_t x, int32_t y, int64_t nowMs);

    /// The finger that is down wishes nothing when it is lifted: it was taken away.
    void takeTouchAway() { isTakenAway = true; }

    /// The mouse is there, in pixels of the display.
    void point(int32_t x, int32_t y);

    /// A key.
    /// @returns false if the strip has no use for it now
    bool key(StripKey key, int64_t nowMs);

    /// A key of the phone, which goes to the sheet while that lies over the picture.
    /// @returns false if the key is the program's
    bool navigate(HostKey key, int64_t nowMs);

    /// True if the sheet lies over the picture.
    bool coversPicture() const { return isShown && row.sheet() != StripModel::Sheet::kNone; }

    /// True if there is something that the key for it closes.
    bool canClose() const { return isShown && row.canClose(); }

    StripModel& model() { return row; }

    StripFeed& feed() { return feeding; }

    StripWishes& wishes() { return fulfilling; }

private:
    StripModel row;
    StripFeed feeding{row};
    StripWishes fulfilling{row, feeding};
    StripFrame frame{row};
    bool isShown = false;  // the program runs
    bool touched = false;  // the finger went down on it
    bool isTakenAway = false;
    StripButton pressed;  // the finger went down on this one; without a wish: on none
};

/// Hands touches to the strip first, and everything else to the program.
class StripListener : public HostListener {
public:
    using Clock = std::function<int64_t()>;

    /// @param strip, program  not owned
    /// @param nowMs           the host's clock
    StripListener(Strip& strip, HostListener& program, Clock nowMs)
        : strip(strip)
        , program(program)
        , nowMs(std::move(nowMs)) {}

    void onTouch(Touch touch, int32_t x, int32_t y) override {
        if (!strip.touch(touch, x, y, nowMs())) {
            program.onTouch(touch, x, y);
        }
    }

    void onVolumeKey(bool up) override { program.onVolumeKey(up); }

    void onForeground() override { program.onForeground(); }

    void onBackground() override { program.onBackground(); }

    void onScreenOff() override { program.onScreenOff(); }

    void onScreenOn() override { program.onScreenOn(); }

    void onTerminate() override { program.onTerminate(); }

private:
    Strip& strip;
    HostListener& program;
    Clock nowMs;
};
