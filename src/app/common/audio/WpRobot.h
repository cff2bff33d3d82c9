// SPDX-License-Identifier: MIT
// Takes the voice apart by linear prediction and speaks it again with another throat: at one pitch
// (the robot), or with the melody of the voice upside down.
#pragma once

#include "Lpc.h"
#include "WavProc.h"

#include <memory>
#include <vector>

class Rnd;

class WpRobot : public WavProc {
public:
    using ClassLife::static_dtor;  // WavProc's runs once, not for each effect

    static constexpr int32_t kConstantPitch = 1;
    static constexpr int32_t kMirroredPitch = 2;

    /// Seeds come from the clock until fixSeed().
    static void static_ctor() { followClock(); }

    /// Every later run makes its noise from this seed, so that a run can be repeated.
    static void fixSeed(int32_t seed);

    /// Every later run seeds its noise with the clock, so that the noise differs from run to run.
    static void followClock() { seedIsFixed = false; }

    /// @param mode  one of the two above; any other mode keeps the voice's own pitch
    explicit WpRobot(int32_t mode);
    ~WpRobot() override;

    void doInit() override;
    int32_t doProcess() override;
    void doCleanup() override;

private:
    struct Frame {
        float coefficients[Lpc::kCoefficients];
        float gain;
        int32_t period;   // samples
        int32_t voicing;  // 0, or 100..1024
    };

    int32_t analyseFrame();
    int32_t synthesiseFrame();
    void setThroat();
    void setFilters(Frame* newest, int32_t count);
    void draw(const Frame& before, const Frame& frame, int32_t i, Rnd& noise);
    void decodeAndDraw(const Frame& frame, const Frame& next);

    static bool seedIsFixed;
    static int32_t fixedSeed;

    int32_t sampleCount = 0;
    int32_t frameCount = 0;
    int32_t frameBuffer[Lpc::kFrameSamples] = {};
    int32_t pulses[Lpc::kFrameSamples] = {};  // both of the frame that is synthesised next
    int32_t hisses[Lpc::kFrameSamples] = {};
    std::vector<Frame> frames;  // its memory is kept from run to run
    float correlations[Lpc::kCoefficients][Lpc::kFiltersAtOnce] = {};  // of frames without a filter
    float periodSum = 0.0F;
    int32_t voicedCount = 0;
    int32_t throat[Lpc::kLongestPeriod + 1] = {};  // new period for each of the voice
    int32_t frameIndex = 0;
    std::unique_ptr<Rnd> rnd;
    int32_t mode;
};
