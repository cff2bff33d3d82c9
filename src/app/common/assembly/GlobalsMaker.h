// SPDX-License-Identifier: MIT
// Makes the objects that G holds: painters, fonts, effects, screens and processors.
#pragma once

class GlobalsMaker {
public:
    /// Every class before G in the class list must be initialised.
    static void make();
    static void free();

private:
    static void makePainters();
    static void setPictures();
    static void freePainters();
};
