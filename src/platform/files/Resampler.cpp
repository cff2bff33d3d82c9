#include "Resampler.h"

#include <algorithm>
#include <array>
#include <samplerate.h>

namespace {

constexpr size_t kBlockSamples = 4096;  // made at once

SRC_STATE* newState(Resampler::Quality quality) {
    int error = 0;
    return src_new(quality == Resampler::Quality::kBest ? SRC_SINC_BEST_QUALITY
                                                        : SRC_SINC_MEDIUM_QUALITY,
                   1, &error);
}

}  // namespace

Resampler::Resampler(Quality quality, double ratio)
    : state(src_is_valid_ratio(ratio) != 0 ? newState(quality) : nullptr, &src_delete)
    , ratio(ratio) {}

bool Resampler::convert(
    const float* samples, size_t count, bool last, size_t maxSamples, std::vector<float>& out) {
    if (!isReady()) {
        return false;
    }
    std::array<float, kBlockSamples> made{};
    SRC_DATA work = {};
    work.data_in = samples;
    work.input_frames = static_cast<decltype(work.input_frames)>(count);
    work.data_out = made.data();
    work.src_ratio = ratio;
    work.end_of_input = last ? 1 : 0;
    do {
        work.output_frames = static_cast<decltype(work.output_frames)>(
            std::min(maxSamples - out.size(), kBlockSamples));
        if (src_process(state.get(), &work) != 0) {
            return false;
        }
        out.insert(out.end(), made.begin(), made.begin() + work.output_frames_gen);
        work.data_in += work.input_frames_used;
        work.input_frames -= work.input_frames_used;
    } while (out.size() < maxSamples && (work.input_frames > 0 || work.output_frames_gen > 0));
    return true;
}
