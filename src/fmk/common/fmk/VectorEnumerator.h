// SPDX-License-Identifier: MIT
// Enumeration over a live Vector: elements added meanwhile are seen, nothing is copied.
#pragma once

#include "Enumeration.h"
#include "Vector.h"

class VectorEnumerator : public Enumeration {
public:
    /// @param vector  not owned; must outlive the enumerator
    explicit VectorEnumerator(Vector* vector)
        : vector(vector) {}

    bool hasMoreElements() override { return index < vector->size(); }

    GnoObject* nextElement() override { return vector->elementAt(index++); }

private:
    Vector* vector;
    int32_t index = 0;
};
