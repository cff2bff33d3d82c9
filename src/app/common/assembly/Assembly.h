// SPDX-License-Identifier: MIT
// Connects the parts of the application: fills in what the frame needs from the folders that depend
// on it.
#pragma once

#include "FrameNeeds.h"

class Assembly : public FrameNeeds {
public:
    /// Call it before the application object is made. A second call does nothing.
    static void install();

    const ClassListEntry* classes(int32_t& count) override;
    void makeGlobals() override;
    void freeGlobals() override;
    int32_t languages() const override;
    int32_t language() const override;
    void setLanguage(int32_t index) override;
    void enterFileError() override;
};
