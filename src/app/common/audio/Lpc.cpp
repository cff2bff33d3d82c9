// SPDX-License-Identifier: MIT
#include "Lpc.h"

#include "Arithmetic.h"
#include "Kernels.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr int32_t kFirstPeriod = 58;  // samples; 138 Hz, between a man's voice and a woman's

// Less voicing than this counts as no pitch. If it is larger, fewer frames growl and more whisper.
constexpr int32_t kLeastVoiceness = 100;
constexpr int32_t kFullVoiceness = 1024;

constexpr float kGainFactor = 0.33F;

// The window of a lag has kLeastWindow + kWindowPerLag * lag samples, but not more than remain in
// the frame. Windows of lags below kShortLags are cut with a mask; all others end with the frame.
constexpr int32_t kShortLags = 13;
constexpr int32_t kLeastWindow = 80;
constexpr int32_t kWindowPerLag = 5;
constexpr int32_t kLongestWindow = Lpc::kFrameSamples - Lpc::kShortestPeriod;
constexpr int32_t kWindowRest = kLongestWindow - kLeastWindow;
static_assert(kLeastWindow + kWindowPerLag * kShortLags >= kLongestWindow);

// Correlations of longer lags are worked out for four lags at once.
constexpr int32_t kLagsAtOnce = 4;
static_assert((Lpc::kLags - kShortLags) % kLagsAtOnce == 0);

constexpr int32_t kPaddedTaps = (Lpc::kCoefficients + kLagsAtOnce - 1) / kLagsAtOnce * kLagsAtOnce;

/// Sum of x[i] * y[i] over i < window. The numbers have at most 10 bits, so the sum fits.
MURMELO_KERNEL_PART int32_t product(const int16_t* x, const int16_t* y, int32_t window) {
    int32_t sum = 0;
    for (int32_t i = 0; i < window; i++) {
        sum += x[i] * y[i];
    }
    return sum;
}

/// The sums of x[i] * y[i + k] for k = 0..3. Four loops after one another: of a single loop in a
/// loop over lags gcc makes vectors of lags, which are slower.
MURMELO_KERNEL_PART void
fourProducts(const int16_t* x, const int16_t* y, int32_t window, int32_t* __restrict sums) {
    sums[0] = product(x, y, window);
    sums[1] = product(x, y + 1, window);
    sums[2] = product(x, y + 2, window);
    sums[3] = product(x, y + 3, window);
}

/// Works out sums[lag] for kFrom <= lag < kTo, kTo - kFrom being a multiple of four. Loops of a
/// length known to the compiler are faster, so all have the window of the first lag, in whole
/// vectors; the zeros after the frame make the products of the longer lags the same.
template <int32_t kFrom, int32_t kTo>
MURMELO_KERNEL_PART void
correlateLongLags(const int16_t* x, const int16_t* delayed, int32_t* __restrict sums) {
    static_assert(kFrom >= kShortLags && (kTo - kFrom) % kLagsAtOnce == 0);
    constexpr int32_t kWindow = (kLongestWindow - kFrom + 15) / 16 * 16;
    for (int32_t lag = kFrom; lag < kTo; lag += kLagsAtOnce) {
        fourProducts(x, delayed + lag, kWindow, sums + lag);
    }
}

/// kWindowRest ones and then zeros: a loop that starts reading at index n keeps all samples but the
/// last n.
struct Masks {
    int16_t masks[2 * kWindowRest] = {};

    constexpr Masks() {
        for (int32_t i = 0; i < kWindowRest; i++) {
            masks[i] = -1;
        }
    }
};

constexpr Masks kMasks;

/// sums[lag] = sum of x[i] * x[i + kShortestPeriod + lag], x being the frame's samples >> 6.
MURMELO_KERNEL void correlateLags(const int32_t* frame, int32_t* __restrict sums) {
    int16_t x[Lpc::kFrameSamples + Lpc::kLags];
    std::fill_n(x + Lpc::kFrameSamples, Lpc::kLags, int16_t{0});
    for (int32_t i = 0; i < Lpc::kFrameSamples; i++) {
        x[i] = static_cast<int16_t>(frame[i] >> 6);
    }
    const int16_t* delayed = x + Lpc::kShortestPeriod;
    for (int32_t lag = 0; lag < kShortLags; lag++) {
        const int16_t* rest = x + kLeastWindow;
        const int16_t* delayedRest = delayed + kLeastWindow + lag;
        const int16_t* mask = &kMasks.masks[kWindowRest - kWindowPerLag * lag];
        int32_t sum = 0;
        for (int32_t i = 0; i < kWindowRest; i++) {
            sum += static_cast<int16_t>(rest[i] & mask[i]) * delayedRest[i];
        }
        sums[lag] = sum + product(x, delayed + lag, kLeastWindow);
    }
    // After each 16 lags the window is one vector of 16 shorter.
    correlateLongLags<kShortLags, 17>(x, delayed, sums);
    correlateLongLags<17, 33>(x, delayed, sums);
    correlateLongLags<33, 49>(x, delayed, sums);
    correlateLongLags<49, 65>(x, delayed, sums);
    correlateLongLags<65, 81>(x, delayed, sums);
    correlateLongLags<81, Lpc::kLags>(x, delayed, sums);
}

/// sums[lag] = sum of d[i] * d[i + lag], d being the first differences of the samples >> 8.
MURMELO_KERNEL void correlateDifferences(const int32_t* frame, int32_t* __restrict sums) {
    int16_t d[Lpc::kFrameSamples + kPaddedTaps];
    std::fill_n(d + Lpc::kFrameSamples, kPaddedTaps, int16_t{0});
    d[0] = 0;
    for (int32_t i = 1; i < Lpc::kFrameSamples; i++) {
        d[i] = static_cast<int16_t>((frame[i] >> 8) - (frame[i - 1] >> 8));
    }
    for (int32_t lag = 0; lag < kPaddedTaps; lag += kLagsAtOnce) {
        fourProducts(d, d + lag, Lpc::kFrameSamples, sums + lag);
    }
}

/// The same for samples outside 16 bits; wraps like all sample arithmetic.
void correlateWideLags(const int32_t* samples, int32_t* sums) {
    for (int32_t lag = 0; lag < Lpc::kLags; lag++) {
        const int32_t* delayed = samples + Lpc::kShortestPeriod + lag;
        const int32_t window = std::min(kLongestWindow - lag, kLeastWindow + kWindowPerLag * lag);
        sums[lag] = 0;
        for (int32_t i = 0; i < window; i++) {
            sums[lag] = wrapAdd(sums[lag], wrapMul(samples[i] >> 6, delayed[i] >> 6));
        }
    }
}

void correlateWideDifferences(const int32_t* frame, int32_t* sums) {
    int32_t differences[Lpc::kFrameSamples] = {};
    for (int32_t i = 1; i < Lpc::kFrameSamples; i++) {
        differences[i] = (frame[i] >> 8) - (frame[i - 1] >> 8);
    }
    for (int32_t lag = 0; lag <= Lpc::kOrder; lag++) {
        sums[lag] = 0;
        for (int32_t i = 0; i + lag < Lpc::kFrameSamples; i++) {
            sums[lag] = wrapAdd(sums[lag], wrapMul(differences[i], differences[i + lag]));
        }
    }
}

/// peaks[lag]: the sum of a lag and its neighbours if it is larger than both, else 0, which counts
/// as no pitch. The first and the last lag have none. Returns the largest, at least 0.
MURMELO_KERNEL int32_t findPeaks(const int32_t* correlations, int32_t* __restrict peaks) {
    int32_t largest = 0;
    for (int32_t lag = 1; lag < Lpc::kLags - 1; lag++) {
        const int32_t before = correlations[lag - 1];
        const int32_t here = correlations[lag];
        const int32_t after = correlations[lag + 1];
        const int32_t sum = wrapAdd(wrapAdd(before, here), after);
        const int32_t isPeak = here > before && here > after ? -1 : 0;
        peaks[lag] = sum & isPeak;
        largest = std::max(largest, peaks[lag]);
    }
    return largest;
}

constexpr int32_t kFrames = Lpc::kFiltersAtOnce;

/// Levinson and Durbin's recursion as in Lpc::computeFilterCoeffs, for frames side by side. It
/// divides first and then checks if the divisor was 0, so that the loop has no branch.
MURMELO_KERNEL void
recur(const float (*r)[kFrames], float (*__restrict a)[kFrames], float* __restrict gains) {
    float k[kFrames];
    float error[kFrames];
    for (int32_t f = 0; f < kFrames; f++) {
        const float quotient = -r[1][f] / r[0][f];
        k[f] = r[0][f] == 0.0F ? 0.0F : quotient;
        a[0][f] = 1.0F;
        a[1][f] = k[f];
        error[f] = r[0][f] * (1.0F - k[f] * k[f]);
    }
    for (int32_t i = 2; i <= Lpc::kOrder; i++) {
        float acc[kFrames];
        for (int32_t f = 0; f < kFrames; f++) {
            acc[f] = r[i][f];
        }
        for (int32_t j = 1; j < i; j++) {
            for (int32_t f = 0; f < kFrames; f++) {
                acc[f] += r[j][f] * a[i - j][f];
            }
        }
        for (int32_t f = 0; f < kFrames; f++) {
            const float quotient = -acc[f] / error[f];
            k[f] = error[f] == 0.0F ? 0.0F : quotient;
            a[i][f] = k[f];
            error[f] = error[f] * (1.0F - k[f] * k[f]);
        }
        for (int32_t j = 1; j <= i - j; j++) {
            for (int32_t f = 0; f < kFrames; f++) {
                const float low = a[j][f];
                const float high = a[i - j][f];
                a[j][f] = low + k[f] * high;
                a[i - j][f] = high + k[f] * low;
            }
        }
    }
    for (int32_t f = 0; f < kFrames; f++) {
        gains[f] = std::sqrt(error[f]) * kGainFactor;
    }
}

/// True if all samples of a frame fit 16 bits, as those of every recording do.
MURMELO_KERNEL bool isNarrow(const int32_t* x) {
    uint32_t magnitudes = 0;
    for (int32_t i = 0; i < Lpc::kFrameSamples; i++) {
        magnitudes |= static_cast<uint32_t>(x[i] ^ (x[i] >> 31));
    }
    return magnitudes <= 0x7FFF;
}

/// The sum of the squares of a frame's samples >> 6, which fit 16 bits.
MURMELO_KERNEL int32_t energy(const int32_t* frame) {
    int32_t sum = 0;
    for (int32_t i = 0; i < Lpc::kFrameSamples; i++) {
        const auto x = static_cast<int16_t>(frame[i] >> 6);
        sum += x * x;
    }
    return sum;
}

constexpr int32_t nextInRing(int32_t place) {
    return place + 1 < Lpc::kOrder ? place + 1 : 0;
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
    int32_t sums[kPaddedTaps];
    if (isNarrow(x)) {
        correlateDifferences(x, sums);
    } else {
        correlateWideDifferences(x, sums);
    }
    for (int32_t lag = 0; lag <= kOrder; lag++) {
        r[lag] = static_cast<float>(sums[lag]) * 0x1p-14F;
    }
}

// Levinson and Durbin's recursion. The order of the float operations is part of the sound: each
// product and each sum is rounded to single, and the sum starts at r[i].
float Lpc::computeFilterCoeffs(const float* r, float* a, float* tmp) {
    // The filters of two orders, each made from the one before. After an odd number of steps the
    // result is in a.
    static_assert(kOrder % 2 == 0);
    float* filter = tmp;
    float* next = a;
    float k = r[0] == 0.0F ? 0.0F : -r[1] / r[0];
    filter[1] = k;
    float error = r[0] * (1.0F - k * k);
    for (int32_t i = 2; i <= kOrder; i++) {
        float acc = r[i];
        for (int32_t j = 1; j < i; j++) {
            acc += r[j] * filter[i - j];
        }
        k = error == 0.0F ? 0.0F : -acc / error;
        for (int32_t j = 1; j < i; j++) {
            next[j] = filter[j] + k * filter[i - j];
        }
        next[i] = k;
        std::swap(filter, next);
        error = error * (1.0F - k * k);
    }
    a[0] = 1.0F;
    return std::sqrt(error) * kGainFactor;
}

void Lpc::computeFilters(const float (&r)[kCoefficients][kFiltersAtOnce],
                         float (&a)[kCoefficients][kFiltersAtOnce],
                         float (&gains)[kFiltersAtOnce]) {
    recur(r, a, gains);
}

int32_t Lpc::computePeriod(const int32_t* x) {
    if (isNarrow(x)) {
        correlateLags(x, P_CORR);
    } else {
        correlateWideLags(x, P_CORR);
    }

    int32_t peaks[kLags];
    const int32_t largest = findPeaks(P_CORR, peaks);
    const int32_t voiceness = largest >> 10;
    if (voiceness < kLeastVoiceness) {
        LAST_VOICENESS = 0;
        return LAST_PERIOD;
    }
    LAST_VOICENESS = std::min(voiceness, kFullVoiceness);
    const int32_t* first = std::find(peaks + 1, peaks + kLags - 1, largest);
    return static_cast<int32_t>(first - peaks) + kShortestPeriod;
}

bool Lpc::isFaint(const int32_t* x) {
    // The product of two numbers is at most half the sum of their squares. So no correlation is
    // greater than the energy, and no peak greater than three times that.
    return isNarrow(x) && 3 * energy(x) < kLeastVoiceness << 10;
}

void Lpc::decode(int32_t* x, const float* a) {
    decode(x, a, [](int32_t /*unused*/) {});
}

void Lpc::beginLine(Line& line) {
    for (int32_t t = 0, place = DEL_OFS; t < kOrder; t++, place = nextInRing(place)) {
        line[t] = DEL_BUF[place];
    }
}

void Lpc::endLine(const Line& line) {
    // A frame fills the ring a whole number of times: the next output goes where this frame's first
    // one went.
    static_assert(kFrameSamples % kOrder == 0);
    for (int32_t t = 0, place = DEL_OFS; t < kOrder; t++, place = nextInRing(place)) {
        DEL_BUF[place] = line[kFrameSamples + t];
    }
}
