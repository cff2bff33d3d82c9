// SPDX-License-Identifier: MIT
// Counts how the clips that a test plays end.
#pragma once

#include "HostSound.h"

class ClipEnds : public HostSpeakerListener {
public:
    void onClipEnd() override { ends++; }

    void onDeviceLost() override { losses++; }

    int32_t ends = 0;
    int32_t losses = 0;
};
