#include "RateConverter.h"

#include "Arithmetic.h"
#include "WavFile.h"

#include <array>
#include <cmath>
#include <samplerate.h>

namespace {

constexpr size_t kBlockSamples = 4096;

/// Rounded, and clamped at full scale: a resampled peak may reach beyond.
int32_t toSample(float value) {
    return clampToSample(toInt32(std::nearbyint(static_cast<double>(value) * 32768.0)));
}

}  // namespace

RateConverter::RateConverter(int32_t rateHz)
    : rateHz(rateHz) {
    if (rateHz == WavFile::kRateHz || rateHz == WavFile::kRecordedRateHz) {
        return;
    }
    possible = rateHz > 0 && src_is_valid_ratio(double{WavFile::kRateHz} / rateHz) != 0;
    if (possible) {
        int error = 0;
        state = src_new(SRC_SINC_BEST_QUALITY, 1, &error);
        possible = state != nullptr;
    }
}

RateConverter::~RateConverter() {
    src_delete(state);
}

bool RateConverter::convert(const float* samples,
                            size_t count,
                            bool last,
                            std::vector<int32_t>& out) {
    if (rateHz == WavFile::kRecordedRateHz) {
        halve(samples, count, out);
        return true;
    }
    if (state != nullptr) {
        return resample(samples, count, last, out);
    }
    for (size_t i = 0; i < count; i++) {
        out.push_back(toSample(samples[i]));
    }
    return true;
}

// The mean of each pair, as recordings of the microphone are halved; an odd last sample is dropped.
void RateConverter::halve(const float* samples, size_t count, std::vector<int32_t>& out) {
    for (size_t i = 0; i < count; i++) {
        const int32_t sample = toSample(samples[i]);
        if (hasFirst) {
            out.push_back((first + sample) >> 1);
        }
        first = sample;
        hasFirst = !hasFirst;
    }
}

bool RateConverter::resample(const float* samples,
                             size_t count,
                             bool last,
                             std::vector<int32_t>& out) {
    std::array<float, kBlockSamples> made{};
    SRC_DATA work = {};
    work.data_in = samples;
    work.input_frames = static_cast<decltype(work.input_frames)>(count);
    work.data_out = made.data();
    work.output_frames = kBlockSamples;
    work.src_ratio = double{WavFile::kRateHz} / rateHz;
    work.end_of_input = last ? 1 : 0;
    do {
        if (src_process(state, &work) != 0) {
            return false;
        }
        for (int64_t i = 0; i < work.output_frames_gen; i++) {
            out.push_back(toSample(made[static_cast<size_t>(i)]));
        }
        work.data_in += work.input_frames_used;
        work.input_frames -= work.input_frames_used;
    } while (work.input_frames > 0 || work.output_frames_gen > 0);
    return true;
}
