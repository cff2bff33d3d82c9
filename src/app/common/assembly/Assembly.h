// The roof over the application's rooms: fills in what the frame needs of the rooms above it.
#pragma once

#include "Roof.h"

class Assembly : public Roof {
public:
    /// Before an application object is made. Installing again does no harm.
    static void install();

    const ClassListEntry* classes(int32_t& count) override;
    void makeGlobals() override;
    void freeGlobals() override;
    int32_t languages() const override;
    int32_t language() const override;
    void setLanguage(int32_t index) override;
    void enterFileError() override;
};
