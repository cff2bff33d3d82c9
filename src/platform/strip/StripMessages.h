// SPDX-License-Identifier: MIT
// The messages of the strip. One is shown for some seconds; if others wait, each is shown for a
// shorter time.
#pragma once

#include "DueTime.h"
#include "StripWish.h"

#include <cstdint>
#include <deque>
#include <string>

class StripMessages {
public:
    /// How long a message is shown if no other waits. One with an action is shown longer, so that
    /// there is time to tap it.
    static constexpr int64_t kShownMs = 6000;
    static constexpr int64_t kActionShownMs = 10000;

    /// How long a message is shown if another waits: time to read it, or to tap its action.
    static constexpr int64_t kLeastMs = 2000;
    static constexpr int64_t kActionLeastMs = 5000;

    struct Message {
        std::string text;
        StripWish action;
        std::string actionWord;
        bool isSeen = false;
    };

    /// Shows a message, or lets it wait. If the newest message has the same text, replaces that one
    /// and starts its time again.
    void tell(Message message, int64_t nowMs);

    /// The current message; null: none.
    const Message* shown() const { return waiting.empty() ? nullptr : &waiting.front(); }

    /// Removes the current message. The next one is shown at once; its time begins with the next
    /// tick().
    void close();

    /// Removes all messages that were shown or queued before the last look(), also those that wait.
    void closeSeen();

    /// Removes the current message if its time is over. True if it did.
    bool tick(int64_t nowMs);

    /// Marks all messages as seen, for closeSeen().
    void look();

    /// When to call tick() next; DueTime::kNever if there is no message.
    int64_t dueMs() const;

private:
    int64_t endMs() const;

    std::deque<Message> waiting;  // the first one is shown
    // Since when it is shown; DueTime::kNever: from the next tick on.
    int64_t sinceMs = DueTime::kNever;
};
