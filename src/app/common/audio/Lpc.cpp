#include "Lpc.h"

#include "Arithmetic.h"
#include "Kernels.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int32_t kFirstPeriod = 58;  // samples; 138 Hz, between a man's voice and a woman's

// A quieter pitch counts as no pitch: fewer frames growl, more of them whisper if this is larger.
constexpr int32_t kLeastVoiceness = 100;
constexpr int32_t kFullVoiceness = 1024;

constexpr int32_t kPulseSamples = 32;  // the ramp; longer is duller
constexpr float kGainFactor = 0.33F;

// Up to here a lag's window ends before the frame does: 80 samples and 5 more for each lag.
constexpr int32_t kShortLags = 11;

// The longer lags run to the end of the frame. They are worked off in two blocks of neighbours that
// stay in registers; behind the last lag the block is filled up with some that nobody reads.
constexpr int32_t kLagBlock = 40;
constexpr int32_t kPaddedLags = kShortLags + 2 * kLagBlock;
static_assert(kPaddedLags >= Lpc::kLags);

// The autocorrelation's lags, filled up to whole vectors.
constexpr int32_t kPaddedOrder = 16;

constexpr int32_t shortWindow(int32_t lag) {
    return 80 + 5 * lag;
}

/// sums[lag] = sum of x[i] * y[lag + i] over i < samples, for neighbouring lags; wraps.
template <int32_t kNeighbours>
inline void correlate(const int32_t* x, const int32_t* y, int32_t samples, int32_t* sums) {
    int32_t block[kNeighbours] = {};
    for (int32_t i = 0; i < samples; i++) {
        for (int32_t lag = 0; lag < kNeighbours; lag++) {
            block[lag] = wrapAdd(block[lag], wrapMul(x[i], y[lag + i]));
        }
    }
    std::copy_n(block, kNeighbours, sums);
}

/// difference: 160 values and 15 zeros behind them.
MURMELO_KERNEL void correlateDifference(const int32_t* difference, int32_t* sums) {
    correlate<kPaddedOrder>(difference, difference, Lpc::kFrameSamples, sums);
}

/// samples: 160 values and enough zeros behind them for the longest padded lag.
MURMELO_KERNEL void correlateLags(const int32_t* samples, int32_t* sums) {
    const int32_t* delayed = samples + Lpc::kShortestPeriod;
    for (int32_t lag = 0; lag < kShortLags; lag++) {
        correlate<1>(samples, delayed + lag, shortWindow(lag), sums + lag);
    }
    for (int32_t lag = kShortLags; lag < kPaddedLags; lag += kLagBlock) {
        const int32_t window = Lpc::kFrameSamples - Lpc::kShortestPeriod - lag;
        correlate<kLagBlock>(samples, delayed + lag, window, sums + lag);
    }
}

}  // namespace

int32_t Lpc::LAST_PERIOD = kFirstPeriod;
int32_t Lpc::LAST_VOICENESS = 0;
int32_t Lpc::P_CORR[kLags];
float Lpc::TEMP_R[kCoefficients];
float Lpc::TEMP_A[kCoefficients];
float Lpc::DEL_BUF[kOrder];
int32_t Lpc::DEL_OFS = 0;
int32_t Lpc::excOfs = 0;

void Lpc::init() {
    LAST_PERIOD = kFirstPeriod;
    DEL_OFS = 0;
    excOfs = 0;
    std::fill_n(DEL_BUF, kOrder, 0.0F);
}

float Lpc::encode(const int32_t* frame, float* a) {
    computeAutoCorrelation(frame, TEMP_R);
    const float gain = computeFilterCoeffs(TEMP_R, a, TEMP_A);
    LAST_PERIOD = computePeriod(frame);
    return gain;
}

void Lpc::computeAutoCorrelation(const int32_t* x, float* r) {
    int32_t difference[kFrameSamples + kPaddedOrder] = {};
    for (int32_t i = 1; i < kFrameSamples; i++) {
        difference[i] = (x[i] >> 8) - (x[i - 1] >> 8);
    }
    int32_t sums[kPaddedOrder];
    correlateDifference(difference, sums);
    for (int32_t lag = 0; lag <= kOrder; lag++) {
        r[lag] = static_cast<float>(sums[lag]) * 0x1p-14F;
    }
}

// Levinson and Durbin's recursion. The order of the float operations is part of the sound: each
// product and each sum is rounded to single, and the sum starts at r[i].
float Lpc::computeFilterCoeffs(const float* r, float* a, float* tmp) {
    a[0] = 1.0F;
    float k = r[0] == 0.0F ? 0.0F : -r[1] / r[0];
    a[1] = k;
    float error = r[0] * (1.0F - k * k);
    for (int32_t i = 2; i <= kOrder; i++) {
        float acc = r[i];
        for (int32_t j = 1; j < i; j++) {
            acc += r[j] * a[i - j];
        }
        k = error == 0.0F ? 0.0F : -acc / error;
        for (int32_t j = 1; j < i; j++) {
            tmp[j] = a[j] + k * a[i - j];
        }
        std::copy_n(tmp + 1, i - 1, a + 1);
        a[i] = k;
        error = error * (1.0F - k * k);
    }
    return std::sqrt(error) * kGainFactor;
}

int32_t Lpc::computePeriod(const int32_t* x) {
    int32_t samples[kShortestPeriod + kFrameSamples + kPaddedLags] = {};
    for (int32_t i = 0; i < kFrameSamples; i++) {
        samples[i] = x[i] >> 6;
    }
    int32_t sums[kPaddedLags];
    correlateLags(samples, sums);
    std::copy_n(sums, kLags, P_CORR);

    int32_t bestLag = -1;
    int32_t bestSum = 0;
    for (int32_t lag = 1; lag < kLags - 1; lag++) {
        const int32_t before = P_CORR[lag - 1];
        const int32_t behind = P_CORR[lag + 1];
        const int32_t sum = wrapAdd(wrapAdd(before, P_CORR[lag]), behind);
        const bool isPeak = P_CORR[lag] > before && P_CORR[lag] > behind;
        if (isPeak && (bestLag < 0 || sum > bestSum)) {
            bestLag = lag;
            bestSum = sum;
        }
    }
    const int32_t voiceness = bestLag < 0 ? 0 : bestSum >> 10;
    if (voiceness < kLeastVoiceness) {
        LAST_VOICENESS = 0;
        return LAST_PERIOD;
    }
    LAST_VOICENESS = std::min(voiceness, kFullVoiceness);
    return bestLag + kShortestPeriod;
}

int32_t Lpc::excitation(int32_t period, int32_t /*unused*/) {
    if (period <= excOfs) {
        excOfs = 0;
    }
    const int32_t pulse = excOfs < kPulseSamples ? (excOfs - 15) * 2048 : 0;
    excOfs++;
    return pulse;
}

void Lpc::decode(int32_t* x, const float* a) {
    // The delay line laid out straight, oldest output first, with the frame's outputs behind it.
    float line[kOrder + kFrameSamples];
    for (int32_t t = 0; t < kOrder; t++) {
        line[t] = DEL_BUF[(DEL_OFS + t) % kOrder];
    }
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
    }
    for (int32_t i = 0; i < kFrameSamples; i++) {
        x[i] = toInt32(line[kOrder + i] * 32767.0F);
    }
    // A frame is a whole number of rings: the next output goes where this frame's first one went.
    static_assert(kFrameSamples % kOrder == 0);
    for (int32_t t = 0; t < kOrder; t++) {
        DEL_BUF[(DEL_OFS + t) % kOrder] = line[kFrameSamples + t];
    }
}
