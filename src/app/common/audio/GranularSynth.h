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

    /// Every grain starts where it stands in the source, at its own pitch. Lengths in samples:
    /// @param source  copied; or borrowed, if it neither changes nor goes before the synthesizer
    /// @param step  distance of the grains in the source
    /// @param fade  cross-fade at each join, where the offset is judged as well
    /// @param search  how many offsets are tried at each join
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

    /// Samples from the start to the end of the last grain's search and fade.
    virtual int32_t getDstLength();

    virtual void analyseMamp(int32_t /*from*/, int32_t /*to*/) {}

    virtual void analyseCorr(int32_t /*from*/, int32_t /*to*/) {}

    /// Resamples a grain and joins it to what dst (a counted array) holds before it. The last grain
    /// only says where the one before it ends: nothing happens for it.
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
    /// Hears of a grain that does not fit. It does nothing.
    static void exc(const char* /*message*/) {}

    void resampleGrain(int32_t from, int32_t count, int32_t samples);
    int32_t findOffset(const int32_t* dst, int32_t dstPos);

    Array<int32_t> srcPosQ10;
    Array<int32_t> dstPosQ10;
    Array<int32_t> stretchesQ10;
    Array<int32_t> periods;       // pitch period of each grain; -1: not looked for
    Array<int32_t> correlations;  // voicing strength of each grain
    Array<int32_t> meanAmps;
    int32_t numGrains;
    int32_t step;
    int32_t fade;
    int32_t search;
    Array<int32_t> temp;  // the resampled grain, not cleared between grains
    int32_t* ownSource;   // a copy from SampleKeep; null if the source is borrowed
    const int32_t* source;
    Array<int32_t> peaks;  // amplitude peaks; not looked for
    GrainSearch grainSearch;
};
