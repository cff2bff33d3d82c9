// SPDX-License-Identifier: MIT
// The effects written a second time, as plainly as possible and without regard to speed: the model
// for every sample.
#pragma once

#include "AudioSupport.h"

namespace audio::slow {

/// Resamples src[from..to] to count values; every read lies inside src.
Samples stretched(const Samples& src, int32_t from, int32_t to, int32_t count);

/// Cross-fade of src over dst, in place.
void crossFade(
    const Samples& src, size_t srcOff, Samples& dst, size_t dstOff, int32_t fade, int32_t total);

/// The best offset, by exact sums alone.
int32_t bestOffset(const int32_t* grain, const int32_t* target, int32_t offsets, int32_t window);

struct Grains {
    int32_t step;
    int32_t fade;
    int32_t search;
    double pitch;
    double tempo;
    bool drunk;
};

Samples granular(const Samples& source, const Grains& grains);

/// Lag correlations 0..84 of a frame.
Samples lagCorrelations(const int32_t* frame);

std::vector<float> autoCorrelation(const int32_t* frame);

/// Filter of order 10; the gain goes to gain.
std::vector<float> filter(const std::vector<float>& r, float& gain);

/// One frame through the filter; ring and offset carry over.
void decode(int32_t* frame, const float* a, float* ring, int32_t& offset);

struct Pitch {
    int32_t period = 0;   // samples
    int32_t voicing = 0;  // 0, or 100..1024
};

/// Pitch of a frame, given the last frame's period.
Pitch pitchOf(const int32_t* frame, int32_t lastPeriod);

/// The robot; mode 0 at the voice's own pitch, mode 1 at a constant pitch, mode 2 with the melody
/// mirrored.
Samples robot(const Samples& source, int32_t mode, int32_t seed);

Samples cleanUp(const Samples& recording);

}  // namespace audio::slow
