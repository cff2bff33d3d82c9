// SPDX-License-Identifier: MIT
// Every class with a class initialiser, in the order in which they run.
#pragma once

#include "ClassListEntry.h"

#include <cstdint>

class ClassList {
public:
    /// The list; its order is that of the initialisers and of the finalisers.
    static const ClassListEntry* entries(int32_t& count);
};
