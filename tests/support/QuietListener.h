// SPDX-License-Identifier: MIT
// A listener that ignores all callbacks. A test overrides those that it needs.
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
