// SPDX-License-Identifier: MIT
// A program that ignores its host. A test overrides the calls that it wants to see.
#pragma once

#include "Host.h"

class QuietListener : public HostListener {
public:
    void onTouch(Touch /*touch*/, int32_t /*x*/, int32_t /*y*/) override {}

    void onVolumeKey(bool /*up*/) override {}

    void onForeground() override {}

    void onBackground() override {}

    void onScreenOff() override {}

    void onScreenOn() override {}

    void onTerminate() override {}
};
