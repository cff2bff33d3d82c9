// SPDX-License-Identifier: MIT
// The finger and the keys of a script: turns a command into callbacks of the host.
#pragma once

#include "Host.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <string>

class ScriptHand {
public:
    using Callback = std::function<void(HostListener&)>;

    /// @param callbacks  the hand's callbacks are appended here; not owned
    explicit ScriptHand(std::deque<Callback>& callbacks)
        : callbacks(callbacks) {}

    /// Sets the finger down, moves or lifts it, at a pixel of the display.
    void touch(HostListener::Touch kind, int32_t x, int32_t y);

    /// Sets the finger down and lifts it.
    void tap(int32_t x, int32_t y);

    /// Drags the finger through the middle of the picture.
    /// @param direction  left or right
    void swipe(const std::string& direction);

    /// Taps a third of the soft-key bar.
    /// @param third  left, middle or right
    void softKey(const std::string& third);

    /// The key for an argument of "navigate".
    static HostKey keyOf(const std::string& name);

private:
    std::deque<Callback>& callbacks;
};
