// SPDX-License-Identifier: MIT
// Anything that occupies a rectangle of the screen.
#pragma once

#include "GnoObject.h"

class Bounds;

class Bounded : public GnoObject {
public:
    /// Copies the given rectangle into this object.
    virtual void setBounds(Bounds* bounds) = 0;

    /// Writes this object's rectangle into the given one.
    virtual void getBounds(Bounds* bounds) = 0;
};
