// SPDX-License-Identifier: MIT
// Every screen of the program, one row for each: its name, and how it is made, found and freed.
#pragma once

#include <cstdint>

class State;

class ScreenTable {
public:
    struct Row {
        const char* name;    // for scripts and hosts
        void (*make)();      // called with the globals; null: it is made when it is needed
        void (*free)();      // called with the globals; null: its class frees it
        State* (*screen)();  // null while there is none
    };

    static const Row* rows(int32_t& count);

    /// Makes all screens that exist for the whole run, in the order of the rows.
    static void make();
    static void free();

    /// Name of the current screen; empty before the first.
    static const char* currentName();
};
