// SPDX-License-Identifier: MIT
// The strip as a host uses it: holds the model, the feed that fills it, the wishes that it makes,
// and the frame that shows it.
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

    /// The program has started, or (null) ended. The strip is shown and takes touches and keys only
    /// while the program runs.
    void setDoors(HostDoors* doors);

    /// Returns the frame that the host shows in place of the phone's; null if display is null.
    HostFrame* frameOver(HostFrame* display);

    /// True if it has changed since it was shown last.
    bool isNew() const { return frame.isThere() && frame.isNew(); }

    /// Updates the strip from the program. Call it before a picture is shown, and when dueMs() has
    /// come.
    void look(int64_t nowMs) { feeding.look(nowMs); }

    /// When to call look() again; DueTime::kNever: not before the program does something.
    int64_t dueMs() const { return feeding.dueMs(); }

    /// Handles a touch, in pixels of the 480 x 800 display, and fulfils the wish it makes. A touch
    /// that begins on the strip or its sheet is the strip's until it ends. It makes a wish only if
    /// it ends on the button on which it began.
    /// @returns false if the touch is the program's
    bool touch(HostListener::Touch touch, int32_t x, int32_t y, int64_t nowMs);

    /// The system has taken the current touch away: it has no effect when it ends.
    void takeTouchAway() { isTakenAway = true; }

    /// The mouse points at this pixel of the display.
    void point(int32_t x, int32_t y);

    /// Handles a key of the strip, and fulfils the wish it makes.
    /// @returns false if the strip has no use for it now
    bool key(StripKey key, int64_t nowMs);

    /// Handles a key of the phone, which goes to the sheet while the sheet covers the picture.
    /// @returns false if the key is the program's
    bool navigate(HostKey key, int64_t nowMs);

    /// True if the sheet lies over the picture.
    bool coversPicture() const { return isShown && row.sheet() != StripModel::Sheet::kNone; }

    /// True if a sheet or a message is there, which StripKey::kClose closes.
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
    bool touched = false;  // the current touch began on the strip
    bool isTakenAway = false;
    StripButton pressed;  // where the touch began; without a wish: on no button
};

/// Gives touches to the strip first, and everything else straight to the program.
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
