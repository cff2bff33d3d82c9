// The finger and the keys of a script: what a command means in callbacks of the host.
#pragma once

#include "Host.h"
#include "Script.h"

#include <deque>
#include <functional>

class ScriptHand {
public:
    using Callback = std::function<void(HostListener&)>;

    /// Appends what a command of the finger does: tap, press, move, release, swipe, key.
    static void append(const ScriptCommand& command, std::deque<Callback>& callbacks);

    /// The key that "navigate" names.
    static HostKey keyOf(const ScriptCommand& command);
};
