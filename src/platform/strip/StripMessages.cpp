// SPDX-License-Identifier: MIT
#include "StripMessages.h"

#include <utility>

void StripMessages::tell(Message message, int64_t nowMs) {
    if (!waiting.empty() && waiting.back().text == message.text) {
        waiting.back() = std::move(message);
        sinceMs = waiting.size() == 1 ? nowMs : sinceMs;
        return;
    }
    waiting.push_back(std::move(message));
    if (waiting.size() == 1) {
        sinceMs = nowMs;
    }
    tick(nowMs);
}

void StripMessages::close() {
    if (!waiting.empty()) {
        waiting.pop_front();
        sinceMs = DueTime::kNever;
    }
}

void StripMessages::closeSeen() {
    while (!waiting.empty() && waiting.front().isSeen) {
        close();
    }
}

void StripMessages::look() {
    for (Message& message : waiting) {
        message.isSeen = true;
    }
}

bool StripMessages::tick(int64_t nowMs) {
    if (waiting.empty()) {
        return false;
    }
    if (sinceMs == DueTime::kNever) {
        sinceMs = nowMs;
    }
    if (nowMs < endMs()) {
        return false;
    }
    waiting.pop_front();
    sinceMs = nowMs;
    return true;
}

int64_t StripMessages::dueMs() const {
    if (waiting.empty()) {
        return DueTime::kNever;
    }
    return sinceMs == DueTime::kNever ? 0 : endMs();
}

int64_t StripMessages::endMs() const {
    if (waiting.size() > 1) {
        return sinceMs + (waiting.front().action ? kActionLeastMs : kLeastMs);
    }
    return sinceMs + (waiting.front().action ? kActionShownMs : kShownMs);
}
