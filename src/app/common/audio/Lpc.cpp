#include "Lpc.h"

#include "Arithmetic.h"
#include "Kernels.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int32_t kFirstPeriod = 58;  // samples; 138 Hz, between a man's voice and a woman's

// Less voicing than this counts as no pitch. If it is larger, fewer frames growl and more whisper.
constexpr int32_t kLeastVoiceness = 100;
constexpr int32_t kFullVoiceness = 1024;

constexpr float kGainFactor = 0.33F;

// The windows of lags below this one end before the frame does: they have 80 samples, and 5 more
// for each lag. Those of longer lags end with the frame; zeros after it make them all equally long.
constexpr int32_t kShortLags = 11;
constexpr int32_t kPaddedWindow = 144;

constexpr int32_t shortWindow(int32_t lag) {
    return 80 + 5 * lag;
}

/// sums[lag] = sum of x[i] * y[lag + i] over i < window. The numbers have at most 10 bits, so the
/// sums fit.
MURMELO_KERNEL void correlate(
    const int16_t* x, const int16_t* y, int32_t window, int32_t* __restrict sums, int32_t lags) {
    for (int32_t lag = 0; lag < lags; lag++) {
        const int16_t* delayed = y + lag;
        int32_t sum = 0;
        for (int32_t i = 0; i < window; i++) {
            sum += x[i] * delayed[i];
        }
        sums[lag] = sum;
    }
}

/// sums[lag] of a frame that kLags zeros follow.
void correlateLags(const int16_t* samples, int32_t* sums) {
    const int16_t* delayed = samples + Lpc::kShortestPeriod;
    for (int32_t lag = 0; lag < kShortLags; lag++) {
        correlate(samples, delayed + lag, shortWindow(lag), sums + lag, 1);
    }
    correlate(samples, delayed + kShortLags, kPaddedWindow, sums + kShortLags,
              Lpc::kLags - kShortLags);
}

/// The same for samples outside 16 bits; wraps like all sample arithmetic.
void correlateWideLags(const int32_t* samples, int32_t* sums) {
    for (int32_t lag = 0; lag < Lpc::kLags; lag++) {
        const int32_t* delayed = samples + Lpc::kShortestPeriod + lag;
        const int32_t window = std::min(kPaddedWindow - lag, shortWindow(lag));
        sums[lag] = 0;
        for (int32_t i = 0; i < window; i++) {
            sums[lag] = wrapAdd(sums[lag], wrapMul(samples[i] >> 6, delayed[i] >> 6));
        }
    }
}

void correlateWideDifferences(const int32_t* differences, int32_t* sums) {
    for (int32_t lag = 0; lag <= Lpc::kOrder; lag++) {
        sums[lag] = 0;
        for (int32_t i = 0; i + lag < Lpc::kFrameSamples; i++) {
            sums[lag] = wrapAdd(sums[lag], wrapMul(differences[i], differences[i + lag]));
        }
    }
}

/// True if all samples of a frame fit 16 bits, as those of every recording do.
bool isNarrow(const int32_t* x) {
    uint32_t magnitudes = 0;
    for (int32_t i = 0; i < Lpc::kFrameSamples; i++) {
        magnitudes |= static_cast<uint32_t>(x[i] ^ (x[i] >> 31));
    }
    return magnitudes <= 0x7FFF;
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
    int32_t sums[kCoefficients];
    int32_t differences[kFrameSamples] = {};
    for (int32_t i = 1; i < kFrameSamples; i++) {
        differences[i] = (x[i] >> 8) - (x[i - 1] >> 8);
    }
    if (isNarrow(x)) {
        int16_t padded[kFrameSamples + kOrder] = {};
        for (int32_t i = 0; i < kFrameSamples; i++) {
            padded[i] = static_cast<int16_t>(differences[i]);
        }
        correlate(padded, padded, kFrameSamples, sums, kCoefficients);
    } else {
        correlateWideDifferences(differences, sums);
    }
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
    if (isNarrow(x)) {
        int16_t padded[kFrameSamples + kLags] = {};
        for (int32_t i = 0; i < kFrameSamples; i++) {
            padded[i] = static_cast<int16_t>(x[i] >> 6);
        }
        correlateLags(padded, P_CORR);
    } else {
        correlateWideLags(x, P_CORR);
    }

    int32_t bestLag = -1;
    int32_t bestSum = 0;
    for (int32_t lag = 1; lag < kLags - 1; lag++) {
        const int32_t before = P_CORR[lag - 1];
        const int32_t after = P_CORR[lag + 1];
        const int32_t sum = wrapAdd(wrapAdd(before, P_CORR[lag]), after);
        const bool isPeak = P_CORR[lag] > before && P_CORR[lag] > after;
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

void Lpc::decode(int32_t* x, const float* a) {
    decode(x, a, [](int32_t /*unused*/) {});
}

void Lpc::beginLine(Line& line) {
    for (int32_t t = 0; t < kOrder; t++) {
        line[t] = DEL_BUF[(DEL_OFS + t) % kOrder];
    }
}

void Lpc::endLine(const Line& line) {
    // A frame fills the ring a whole number of times: the next output goes where this frame's first
    // one went.
    static_assert(kFrameSamples % kOrder == 0);
    for (int32_t t = 0; t < kOrder; t++) {
        DEL_BUF[(DEL_OFS + t) % kOrder] = line[kFrameSamples + t];
    }
}
