// Backwards: the recording played from its end.
#pragma once

#include "WavProc.h"

class WpReverse : public WavProc {
public:
    static void static_ctor() {}

    static void static_dtor() {}

    void doInit() override;
    int32_t doProcess() override;

    void doCleanup() override {}

private:
    int32_t position = 0;  // samples; how far the run has got
};
