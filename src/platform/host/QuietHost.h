// SPDX-License-Identifier: MIT
// A host without a window, sound or folders, whose clock stands still. A back end that needs only a
// part of a phone overrides that part.
#pragma once

#include "Host.h"

class QuietHost : public Host {
public:
    int64_t uptimeMs() override { return 0; }

    int64_t ticksMs() override { return 0; }

    void yielded() override {}

    const HostFolders& folders() override { return noFolders; }

    int64_t freePhoneBytes() override { return -1; }

    bool pump(HostListener& /*listener*/, int64_t /*timeoutMs*/) override { return false; }

    void frameShown(HostFrame* /*frame*/) override {}

private:
    HostFolders noFolders;
};
