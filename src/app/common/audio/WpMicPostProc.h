// SPDX-License-Identifier: MIT
// Cleans up a fresh recording: fades the clicks of the key away, takes out rumble, pushes quiet
// noise down and raises speech to nearly full scale.
#pragma once

#include "Array.h"
#include "WavProc.h"

class WpMicPostProc : public WavProc {
public:
    using ClassLife::static_dtor;  // WavProc's runs once, not for each effect

    ~WpMicPostProc() override;

    void doInit() override;
    int32_t doProcess() override;
    void doCleanup() override;

private:
    void fadeEdges();
    void removeRumble();
    void countLevels();
    int32_t findLevel() const;
    void drawCurve(int32_t level);
    void mapSamples();

    Array<int32_t> levelTable;  // 513 entries; first a histogram, then the level curve
};
