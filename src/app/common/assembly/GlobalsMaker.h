// Makes what G holds besides its names: painters, fonts, effects, screens and processors.
#pragma once

class GlobalsMaker {
public:
    /// Needs every class initialised that stands before G in the class list.
    static void make();
    static void free();

private:
    static void makePainters();
    static void setPictures();
    static void freePainters();
};
