// SPDX-License-Identifier: MIT
// What the frame needs from the folders that depend on it. The assembly fills it in before the
// application object is made; the frame includes nothing from those folders.
#pragma once

#include <cstdint>

struct ClassListEntry;

class FrameNeeds {
public:
    FrameNeeds() = default;
    FrameNeeds(const FrameNeeds&) = delete;
    FrameNeeds& operator=(const FrameNeeds&) = delete;
    virtual ~FrameNeeds() = default;

    /// Every class with a class initialiser, in the order in which initialisers and finalisers run.
    virtual const ClassListEntry* classes(int32_t& count) = 0;

    /// Makes and frees the objects that G holds: painters, fonts, effects, screens.
    virtual void makeGlobals() = 0;
    virtual void freeGlobals() = 0;

    /// How many languages there are, and the index of the current one.
    virtual int32_t languages() const = 0;
    virtual int32_t language() const = 0;
    virtual void setLanguage(int32_t index) = 0;

    /// The fatal screen that says that a file cannot be read or written, over the plain picture.
    virtual void enterFileError() = 0;

    static FrameNeeds* installed;  // not owned
};
