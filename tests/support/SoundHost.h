// SPDX-License-Identifier: MIT
// A host with a microphone and a speaker, on the clock that the test moves.
#pragma once

#include "FileMicrophone.h"
#include "FileSpeaker.h"
#include "TestHost.h"

#include <algorithm>

class SoundHost : public TestHost {
public:
    HostMicrophone* microphone() override { return hasDevices ? &ears : nullptr; }

    HostSpeaker* speaker() override { return hasDevices ? &voice : nullptr; }

    /// Lets time pass; sound that becomes due is delivered at its time.
    void pass(int64_t ms) {
        const int64_t endMs = nowMs + ms;
        while (ears.deliver() || voice.deliver() || nextDue() <= endMs) {
            nowMs = std::max(nowMs, std::min(nextDue(), endMs));
        }
        nowMs = endMs;
    }

    FileMicrophone ears{[this] { return nowMs; }};
    FileSpeaker voice{[this] { return nowMs; }};
    bool hasDevices = true;

private:
    int64_t nextDue() const {
        int64_t next = INT64_MAX;
        for (const int64_t dueMs : {ears.dueMs(), voice.dueMs()}) {
            next = dueMs >= 0 ? std::min(next, dueMs) : next;
        }
        return next;
    }
};
