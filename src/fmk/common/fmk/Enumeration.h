// SPDX-License-Identifier: MIT
// Steps once through the elements of a collection. Made by the collection, deleted by the caller.
#pragma once

#include "GnoObject.h"

class Enumeration : public GnoObject {
public:
    virtual bool hasMoreElements() = 0;

    /// The next element; only while hasMoreElements() returns true.
    virtual GnoObject* nextElement() = 0;
};
