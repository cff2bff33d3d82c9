// SPDX-License-Identifier: MIT
// A class with a class initialiser and a class finaliser.
#pragma once

struct ClassListEntry {
    const char* name;
    void (*staticCtor)();
    void (*staticDtor)();
};
