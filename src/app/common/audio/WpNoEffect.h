// No effect: the recording as it is.
#pragma once

#include "WavProc.h"

class WpNoEffect : public WavProc {
public:
    static void static_ctor() {}

    static void static_dtor() {}

    void doInit() override;
    int32_t doProcess() override;

    void doCleanup() override {}

private:
    int32_t position = 0;  // samples; how far the run has got
};
