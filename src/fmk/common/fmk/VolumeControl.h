// SPDX-License-Identifier: MIT
// A player's volume that cannot be changed: the audio device keeps the real one.
#pragma once

#include "GnoObject.h"

class VolumeControl : public GnoObject {
public:
    int32_t getLevel() const { return level; }

    bool isMuted() const { return muted; }

    void setLevel(int32_t /*level*/) {}

    void setMute(bool /*muted*/) {}

private:
    int32_t level = 0;
    bool muted = false;
};
