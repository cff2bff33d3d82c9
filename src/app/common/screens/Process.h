// SPDX-License-Identifier: MIT
// Runs one processor over a whole sound, one slice for each "Update", so that the screen is painted
// in between.
#pragma once

#include "Array.h"
#include "Screen.h"

#include <cstdint>
#include <memory>

class WavProc;

class Process : public Screen {
public:
    /// @param samples    8 kHz; owned from now on
    /// @param processor  not owned
    /// @param path       of the file for the result; owned from now on
    /// @param next       entered when the result is written
    /// @param back       entered when the work is interrupted
    Process(
        int32_t* samples, WavProc* processor, Osp::Base::String* path, State* next, State* back);
    ~Process() override;

    /// Deletes the last job (G::stateProcess), makes the next one with the constructor's arguments,
    /// and enters it.
    static void
    enter(int32_t* samples, WavProc* processor, Osp::Base::String* path, State* next, State* back);

    void onEnter() override;

    /// Drops samples, processor, next screen and path: a job runs only once.
    void onExit() override;
    void onEvent(Event* event) override;

private:
    void update();
    void finish();
    static void schedUpdate();

    Array<int32_t> samples;
    WavProc* processor;
    State* next;
    State* back;
    std::unique_ptr<Osp::Base::String> path;
};
