// SPDX-License-Identifier: MIT
// One entry of the registry: an object that may be loaded only when it is first asked for.
#pragma once

#include "GnoObject.h"

#include <cstdint>

class Resource : public GnoObject {
public:
    // The values that getType() returns.
    static constexpr int32_t kTypeNull = 0;
    static constexpr int32_t kTypeString = 1;
    static constexpr int32_t kTypeImage = 2;
    static constexpr int32_t kTypeFont = 3;
    static constexpr int32_t kTypeObject = 4;

    /// The object, loaded now if it is not yet; null if there is none or it cannot be loaded.
    /// For texts a counted array of strings (String**), for all other kinds a GnoObject*.
    virtual void* get() = 0;

    /// Frees what the next get() can load again.
    virtual void free() = 0;
    virtual int32_t getType() = 0;
};
