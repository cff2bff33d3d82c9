// SPDX-License-Identifier: MIT
// The initialiser and the finaliser of a class as a whole: they do nothing, unless a class has its
// own. A class derived from one that has its own selects these again with a using declaration.
#pragma once

class ClassLife {
public:
    /// Runs once, before the first object of the class.
    static void static_ctor() {}

    /// Runs once, at the end of the program.
    static void static_dtor() {}
};
