// SPDX-License-Identifier: MIT
// Linear prediction of speech in frames of 20 ms: what the mouth does (a filter of order 10), what
// the throat does (pitch period, voicing), and the way back to sound.
//
// Its working state is class-wide: one voice at a time.
#pragma once

#include "Arithmetic.h"
#include "ClassLife.h"

#include <cstdint>

class Lpc : public ClassLife {
public:
    static constexpr int32_t kFrameSamples = 160;
    static constexpr int32_t kOrder = 10;
    static constexpr int32_t kCoefficients = kOrder + 1;
    static constexpr int32_t kFiltersAtOnce = 8;
    static constexpr int32_t kShortestPeriod = 16;  // samples; 500 Hz
    static constexpr int32_t kLags = 85;
    static constexpr int32_t kLongestPeriod = kShortestPeriod + kLags - 1;  // 80 Hz

    static constexpr int32_t kPulseSamples = 32;  // the ramp of a pulse; a longer one is duller

    static void static_ctor() { init(); }

    /// Forgets the last voice: resets the delay line, the pitch and the pulse.
    static void init();

    /// Analyses a frame of 160 samples into a[0..10]; LAST_PERIOD and LAST_VOICENESS tell its
    /// pitch. Returns the gain. The robot calls the parts instead, with computeFilters() and
    /// isFaint() in place of the slower ones.
    static float encode(const int32_t* frame, float* a);

    /// Writes the autocorrelation of the samples' first difference to r[0..10], one value a lag.
    static void computeAutoCorrelation(const int32_t* x, float* r);

    /// Works out the prediction filter a[0..10] of an autocorrelation r[0..10]; tmp is working
    /// space for 11 values. Returns the gain.
    static float computeFilterCoeffs(const float* r, float* a, float* tmp);

    /// Computes the filters of kFiltersAtOnce frames f side by side, which is faster: a step of the
    /// recursion depends on the step before it in its own frame only. r[lag][f] are the
    /// autocorrelations; writes the filters to a[tap][f] and the gains to gains[f].
    static void computeFilters(const float (&r)[kCoefficients][kFiltersAtOnce],
                               float (&a)[kCoefficients][kFiltersAtOnce],
                               float (&gains)[kFiltersAtOnce]);

    /// Pitch period of a frame in samples; LAST_PERIOD where the frame has none. Sets
    /// LAST_VOICENESS.
    static int32_t computePeriod(const int32_t* x);

    /// True if a frame is so quiet that computePeriod() cannot find a pitch in it. Much cheaper
    /// than computePeriod().
    static bool isFaint(const int32_t* x);

    /// Next sample of the pulse train: a rising ramp of 32 samples, then silence up to the period.
    /// In the header because the robot calls it for each sample.
    static int32_t excitation(int32_t period, int32_t /*unused*/) {
        if (period <= excOfs) {
            excOfs = 0;
        }
        const int32_t pulse = excOfs < kPulseSamples ? (excOfs - 15) * 2048 : 0;
        excOfs++;
        return pulse;
    }

    /// Runs a frame through the filter, in place. The delay line carries over to the next frame.
    static void decode(int32_t* x, const float* a);

    /// The same; calls meanwhile(i) for each sample i. Every output waits for the one before it,
    /// and a processor does other work in that time if it stands in the same loop.
    template <class Work>
    static void decode(int32_t* x, const float* a, Work meanwhile);

    static int32_t LAST_PERIOD;     // samples
    static int32_t LAST_VOICENESS;  // 0, or 100..1024
    static int32_t P_CORR[kLags];   // correlation at each lag
    static float TEMP_R[kCoefficients];
    static float TEMP_A[kCoefficients];
    static float DEL_BUF[kOrder];  // the last outputs, a ring
    static int32_t DEL_OFS;        // where the next output goes
    static int32_t excOfs;         // samples since the pulse began

private:
    /// The last outputs, oldest first, followed by the frame's own.
    using Line = float[kOrder + kFrameSamples];

    static void beginLine(Line& line);
    static void endLine(const Line& line);
};

template <class Work>
void Lpc::decode(int32_t* x, const float* a, Work meanwhile) {
    Line line;
    beginLine(line);
    float newest = line[kOrder - 1];
    for (int32_t i = 0; i < kFrameSamples; i++) {
        // One tap after the other, the newest output first: the order of the roundings is part of
        // the sound.
        float y = static_cast<float>(x[i]) * 0x1p-15F - a[1] * newest;
        for (int32_t t = 2; t <= kOrder; t++) {
            y -= a[t] * line[kOrder + i - t];
        }
        line[kOrder + i] = y;
        newest = y;
        x[i] = toInt32(y * 32767.0F);
        meanwhile(i);
    }
    endLine(line);
}
