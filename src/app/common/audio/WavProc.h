// SPDX-License-Identifier: MIT
// Base of all sound processors: one array of 8 kHz samples in, another out, worked on in slices so
// that the screen stays alive.
//
// Idle (last progress -1) -> init -> running (0..1023) -> process ... -> finished (1024) ->
// getResult -> idle. cleanUp ends a run at any time. A processor is made once and run many times.
#pragma once

#include "Array.h"
#include "ClassLife.h"

#include <cstdint>

namespace Osp::Base {
class String;
}

class WavProc : public ClassLife {
public:
    static constexpr int32_t kIdle = -1;        // progress of no run
    static constexpr int32_t kFinished = 1024;  // progress of a run whose result is complete

    /// Frees the sample arrays that are kept from run to run.
    static void static_dtor();

    WavProc() = default;
    WavProc(const WavProc&) = delete;
    WavProc& operator=(const WavProc&) = delete;
    virtual ~WavProc();

    /// Starts a run on a copy of samples (a counted array, the caller's; null is a sound of no
    /// samples).
    virtual void init(const int32_t* samples, int32_t srate);

    /// The same, but takes ownership of samples instead of copying them.
    void initWithOwn(Array<int32_t> samples, int32_t srate);

    /// Does one slice of work. Returns the progress, 0..1024; -1 if an error has ended the run:
    /// then only init starts another one.
    virtual int32_t process();

    /// Ends the run. Returns the result, which is the caller's from here on (deleteArrFunc frees
    /// it); null if there is none.
    virtual int32_t* getResult();

    /// Sets up the buffers and every field of a run, and makes the result or, by newResultLater(),
    /// says how long it will be.
    virtual void doInit() = 0;

    /// Does one slice and returns the new progress. Also called after an error has cleaned the
    /// processor up: then source and result are null.
    virtual int32_t doProcess() = 0;

    /// Frees what doInit made, except the result.
    virtual void doCleanup() = 0;

    virtual int32_t getSrate() { return srateHz; }

    virtual int32_t getLastProgress() { return lastProgress; }

    /// Ends the run, finished or not.
    virtual void cleanUp();

    /// Reports an internal error: ends the run and drops the message.
    void exc(const char* message);
    void exc(Osp::Base::String* message);

    /// Fades src in over what dst holds: sample i of 0..fade takes i parts of src and fade - i of
    /// dst. After that copies src, until total samples are written. Samples outside an array are
    /// left out.
    static void addCrossFaded(const int32_t* src,
                              int32_t srcOff,
                              int32_t* dst,
                              int32_t dstOff,
                              int32_t fade,
                              int32_t total);

    /// Does nothing: no effect stretches and adds in one step.
    static void addStretched(const int32_t* /*src*/,
                             int32_t /*from*/,
                             int32_t /*to*/,
                             int32_t* /*dst*/,
                             int32_t /*dstFrom*/,
                             int32_t /*dstTo*/) {}

    /// Resamples src[from..to] onto dst[dstFrom..dstTo], both ends included, with linear
    /// interpolation. Samples read outside src are 0, those to be written outside dst are dropped.
    static void copyStretched(
        const int32_t* src, int32_t from, int32_t to, int32_t* dst, int32_t dstFrom, int32_t dstTo);

protected:
    /// Allocates the result: count samples of silence.
    void newResult(int32_t count);

    /// For doInit(): like newResult(), but allocates only in fillResult(). If the result is fetched
    /// earlier, it is made then, as silence.
    void newResultLater(int32_t count);

    /// For the first doProcess() after newResultLater(): allocates the result, with samples of any
    /// value. The caller writes all of them.
    void fillResult();

    int32_t* source = nullptr;  // owned; a copy from SampleKeep, or the array of initWithOwn()
    Array<int32_t> result;
    int32_t lastProgress = kIdle;
    int32_t srateHz = 0;

private:
    void dropRun();
    void start(int32_t* samples, int32_t srate);

    static constexpr int32_t kNoResult = -1;
    int32_t laterCount = kNoResult;  // samples of a result that is not made yet
};
