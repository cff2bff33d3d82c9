// Brings a sound to another rate, piece by piece.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

struct SRC_STATE_tag;

class Resampler {
public:
    enum class Quality { kMedium, kBest };

    /// What has no limit.
    static constexpr size_t kEndless = SIZE_MAX;

    /// @param ratio  the new rate over the old one
    Resampler(Quality quality, double ratio);

    /// False if there was no memory, or the rates lie too far apart: convert() fails then.
    bool isReady() const { return state != nullptr; }

    /// Takes count samples and appends what they make to out, until out holds maxSamples.
    /// @param last  no more will come
    /// @returns false if the resampling library failed
    bool convert(
        const float* samples, size_t count, bool last, size_t maxSamples, std::vector<float>& out);

private:
    std::unique_ptr<SRC_STATE_tag, SRC_STATE_tag* (*)(SRC_STATE_tag*)> state;
    double ratio;
};
