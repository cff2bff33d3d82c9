// SPDX-License-Identifier: MIT
// Backwards: the recording played from its end.
#pragma once

#include "WavProc.h"

class WpReverse : public WavProc {
public:
    using ClassLife::static_dtor;  // WavProc's runs once, not for each effect

    void doInit() override;
    int32_t doProcess() override;

    void doCleanup() override {}

private:
    int32_t position = 0;  // samples reported so far
};
