// SPDX-License-Identifier: MIT
// The messages of the strip: one is shown for some seconds, later ones wait for a moment each.
#pragma once

#include "DueTime.h"
#include "StripWish.h"

#include <cstdint>
#include <deque>
#include <string>

class StripMessages {
public:
    /// How long a message is shown that no other follows; one with an action longer, so that the
    /// hand gets there.
    static constexpr int64_t kShownMs = 6000;
    static constexpr int64_t kActionShownMs = 10000;

    /// At least so long, if another waits. The hand needs longer than the eye.
    static constexpr int64_t kLeastMs = 2000;
    static constexpr int64_t kActionLeastMs = 5000;

    struct Message {
        std::string text;
        StripWish action;
        std::string actionWord;
        bool isSeen = false;
    };

    /// Shows it, or lets it wait. The same text that is shown now only begins again.
    void tell(Message message, int64_t nowMs);

    /// Null: none is shown.
    const Message* shown() const { return waiting.empty() ? nullptr : &waiting.front(); }

    /// Takes the shown message away; a waiting one follows with the next tick().
    void close();

    /// Takes all away that were told before the last look, also those that wait.
    void closeSeen();

    /// True if another message is shown now, or none.
    bool tick(int64_t nowMs);

    /// The strip was looked at.
    void look();

    /// When tick() has something to do.
    int64_t dueMs() const;

private:
    int64_t endMs() const;

    std::deque<Message> waiting;        // the first one is shown
    int64_t sinceMs = DueTime::kNever;  // when it began; DueTime::kNever: with the next tick
};
