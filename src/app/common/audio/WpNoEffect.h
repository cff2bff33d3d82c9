// SPDX-License-Identifier: MIT
// No effect: the recording as it is.
#pragma once

#include "WavProc.h"

class WpNoEffect : public WavProc {
public:
    using ClassLife::static_dtor;  // WavProc's runs once, not for each effect

    void doInit() override;
    int32_t doProcess() override;

    void doCleanup() override {}

private:
    int32_t position = 0;  // samples reported so far
};
