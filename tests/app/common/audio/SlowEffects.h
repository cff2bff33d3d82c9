// The effects once more, written as plainly as possible and without a thought for speed: what every
// sample must be.
#pragma once

#include "AudioSupport.h"

namespace audio::slow {

/// The resample of src[from..to] onto count values, with every read inside src.
Samples stretched(const Samples& src, int32_t from, int32_t to, int32_t count);

/// Cross-fade of src over dst, in place.
void crossFade(
    const Samples& src, size_t srcOff, Samples& dst, size_t dstOff, int32_t fade, int32_t total);

/// The offset search, one sum after the other.
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

/// The voice with another throat; mode 1 at a constant pitch, mode 2 mirrored.
Samples robot(const Samples& source, int32_t mode, int32_t seed);

Samples cleanUp(const Samples& recording);

}  // namespace audio::slow
