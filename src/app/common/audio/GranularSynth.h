// SPDX-License-Identifier: MIT
// Cuts a recording into grains of equal length and pastes them, resampled and moved, where they fit
// best. Changing a grain's stretch changes its pitch, moving the grains changes the tempo.
//
// Positions are samples in Q10, so that grains may stand between samples; 32 bits of that reach to
// sample 2097151 (262 s at 8 kHz).
#pragma once

#include "Array.h"
#include "ClassLife.h"
#include "GrainSearch.h"

#include <cstdint>

class GranularSynth : public ClassLife {
public:
    static constexpr int32_t POS_SH = 10;
    static constexpr int32_t POS_ONE = 1024;
    static constexpr int32_t POS_MASK = 1023;
    static constexpr int32_t POS_HALF = 512;
    static constexpr int32_t STR_SH = 10;
    static constexpr int32_t STR_ONE = 1024;
    static constexpr int32_t PER_SH = 10;
    static constexpr int32_t PER_ONE = 1024;

    /// Longest resampled grain, samples.
    static constexpr int32_t kTempSamples = 4000;

    enum class Source { kCopied, kBorrowed };

    /// At first every grain lies in the output where it lies in the source, at its own pitch.
    /// Lengths are in samples.
    /// @param source  counted array; copied, or borrowed if it stays unchanged and outlives this
    /// @param step  distance of the grains in the source
    /// @param fade  cross-fade at each join; the offsets are compared over it
    /// @param search  number of offsets that are tried at each join
    GranularSynth(const int32_t* source,
                  int32_t step,
                  int32_t fade,
                  int32_t search,
                  Source ownership = Source::kCopied);
    GranularSynth(const GranularSynth&) = delete;
    GranularSynth& operator=(const GranularSynth&) = delete;
    virtual ~GranularSynth();

    virtual int32_t getNumGrains() { return numGrains; }

    virtual int32_t getSrcStepSize() { return step; }

    /// Length of the output in samples, up to the end of the last grain's search and fade.
    virtual int32_t getDstLength();

    virtual void analyseMamp(int32_t /*from*/, int32_t /*to*/) {}

    virtual void analyseCorr(int32_t /*from*/, int32_t /*to*/) {}

    /// Resamples a grain and joins it to what dst (a counted array) holds before it. Does nothing
    /// for the last grain, which only marks the end of the one before it, nor for a number outside
    /// 0 .. getNumGrains() - 1.
    virtual void pasteGrain(int32_t grain, int32_t* dst);

    virtual void findAmpPeaks(int32_t /*window*/) {}

    /// Moves grains from..to, both included, by delta samples, or by delta Q10 if fixedPoint.
    virtual void addDstPos(int32_t from, int32_t to, int32_t delta, bool fixedPoint);

    /// In samples, or in Q10 if fixedPoint.
    virtual int32_t getDstPos(int32_t grain, bool fixedPoint);

    /// Scales the distances of the grains in the output: 0.5 is twice as fast.
    void scaleDstPos(float factor);

    /// Source samples read for each output sample, Q10: STR_ONE leaves the pitch as it is.
    void setStretch(int32_t grain, int32_t stretchQ10) { stretchesQ10[grain] = stretchQ10; }

private:
    /// Called for a grain that does not fit. Does nothing: the grain is cut.
    static void exc(const char* /*message*/) {}

    void resampleGrain(int32_t from, int32_t count, int32_t samples);
    int32_t findOffset(const int32_t* dst, int32_t dstPos);

    Array<int32_t> srcPosQ10;
    Array<int32_t> dstPosQ10;
    Array<int32_t> stretchesQ10;
    Array<int32_t> periods;       // pitch period of each grain; -1: not analysed
    Array<int32_t> correlations;  // voicing strength of each grain
    Array<int32_t> meanAmps;
    int32_t numGrains;
    int32_t step;
    int32_t fade;
    int32_t search;
    Array<int32_t> temp;  // the resampled grain, not cleared between grains
    int32_t* ownSource;   // a copy from SampleKeep; null if the source is borrowed
    const int32_t* source;
    Array<int32_t> peaks;  // amplitude peaks; never analysed
    GrainSearch grainSearch;
};
