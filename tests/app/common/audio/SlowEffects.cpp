// SPDX-License-Identifier: MIT
// The effects written a second time, as plainly as possible and without regard to speed.
#include "SlowEffects.h"

#include "Rnd.h"

#include <cmath>
#include <cstdlib>
#include <limits>

namespace audio::slow {

namespace {

// Sums and products of samples that no recording has wrap.
int32_t plus(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}

int32_t times(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) * static_cast<uint32_t>(b));
}

int32_t truncated(double value) {
    if (std::isnan(value)) {
        return 0;
    }
    if (value > 2147483647.0) {
        return std::numeric_limits<int32_t>::max();
    }
    if (value < -2147483648.0) {
        return std::numeric_limits<int32_t>::min();
    }
    return static_cast<int32_t>(std::trunc(value));
}

int32_t limited(int32_t sample) {
    return std::clamp(sample, -32768, 32767);
}

}  // namespace

Samples stretched(const Samples& src, int32_t from, int32_t to, int32_t count) {
    Samples out;
    const int32_t step = (to - from) * 1024 / (count - 1);
    int32_t p = from * 1024;
    for (int32_t j = 0; j < count; j++) {
        const auto i = static_cast<size_t>(p >> 10);
        const int32_t f = p & 1023;
        out.push_back((src.at(i) * (1024 - f) + 512 + src.at(i + 1) * f) >> 10);
        p += step;
    }
    return out;
}

void crossFade(
    const Samples& src, size_t srcOff, Samples& dst, size_t dstOff, int32_t fade, int32_t total) {
    const int32_t g = 32768 / fade;
    for (int32_t i = 0; i <= fade; i++) {
        const auto k = static_cast<size_t>(i);
        dst.at(dstOff + k) = (g * (src.at(srcOff + k) * i + dst.at(dstOff + k) * (fade - i))) >> 15;
    }
    for (int32_t i = fade + 1; i < total; i++) {
        const auto k = static_cast<size_t>(i);
        dst.at(dstOff + k) = src.at(srcOff + k);
    }
}

int32_t bestOffset(const int32_t* grain, const int32_t* target, int32_t offsets, int32_t window) {
    int32_t best = 0;
    int64_t smallest = std::numeric_limits<int64_t>::max();
    for (int32_t o = 0; o < offsets; o++) {
        int64_t sum = 0;
        for (int32_t j = 0; j < window; j++) {
            sum += std::abs(int64_t{grain[o + j]} - target[j]);
        }
        if (sum < smallest) {
            smallest = sum;
            best = o;
        }
    }
    return best;
}

Samples granular(const Samples& source, const Grains& grains) {
    const auto samples = static_cast<int32_t>(source.size());
    const int32_t count = samples / grains.step;
    std::vector<int32_t> stretch(static_cast<size_t>(count), 1024);
    std::vector<int32_t> dstPos;
    dstPos.reserve(stretch.size());
    if (grains.pitch != 1.0) {
        stretch.assign(stretch.size(), truncated(1024 * grains.pitch + 0.5));
    }
    for (int32_t g = 0; g < count; g++) {
        dstPos.push_back(truncated(g * grains.step * 1024 * grains.tempo + 0.5) / 1024);
    }
    if (grains.drunk) {
        Rnd rnd;
        int32_t v = 1024;
        int32_t target = 1024;
        for (int32_t& s : stretch) {
            if (rnd.nextInt(10) == 0) {
                target = rnd.nextInt(880, 1080);
            }
            s = v;
            v = (target * 100 + v * 156) >> 8;
        }
    }
    const int32_t last = count > 0 ? dstPos.back() : 0;
    Samples out(static_cast<size_t>(grains.search + grains.fade + last));
    Samples temp(4000);
    for (int32_t g = 0; g + 1 < count; g++) {
        const auto k = static_cast<size_t>(g);
        const int32_t s0 = g * grains.step;
        const int32_t n = grains.search + grains.fade + dstPos[k + 1] - dstPos[k];
        int32_t m = (stretch[k] * n) >> 10;
        if (s0 + m >= samples) {
            m = samples - 1 - s0;
        }
        Samples piece(source.begin() + s0, source.begin() + s0 + std::min(m, n));
        if (m != n) {
            piece = stretched(source, s0, s0 + m - 1, n);
        }
        std::copy(piece.begin(), piece.end(), temp.begin());
        const auto d0 = static_cast<size_t>(dstPos[k]);
        const int32_t o =
            g == 0 ? 0 : bestOffset(temp.data(), &out[d0], grains.search, grains.fade);
        crossFade(temp, static_cast<size_t>(o), out, d0, grains.fade, n - grains.search);
    }
    return out;
}

Samples lagCorrelations(const int32_t* frame) {
    Samples sums;
    for (int32_t lag = 0; lag < 85; lag++) {
        int32_t sum = 0;
        for (int32_t i = 0; i < std::min(144 - lag, 80 + 5 * lag); i++) {
            sum = plus(sum, times(frame[i] >> 6, frame[16 + lag + i] >> 6));
        }
        sums.push_back(sum);
    }
    return sums;
}

std::vector<float> autoCorrelation(const int32_t* frame) {
    Samples d(160);
    for (size_t i = 1; i < 160; i++) {
        d[i] = (frame[i] >> 8) - (frame[i - 1] >> 8);
    }
    std::vector<float> r;
    for (size_t k = 0; k <= 10; k++) {
        int32_t sum = 0;
        for (size_t i = 0; i + k < 160; i++) {
            sum = plus(sum, times(d[i], d[i + k]));
        }
        r.push_back(static_cast<float>(sum) / 16384.0F);
    }
    return r;
}

std::vector<float> filter(const std::vector<float>& r, float& gain) {
    std::vector<float> a(11);
    a[0] = 1.0F;
    float k = r[0] == 0.0F ? 0.0F : -r[1] / r[0];
    a[1] = k;
    float e = r[0] * (1.0F - k * k);
    for (size_t i = 2; i <= 10; i++) {
        float acc = r[i];
        for (size_t j = 1; j < i; j++) {
            const float product = r[j] * a[i - j];
            acc = acc + product;
        }
        k = e == 0.0F ? 0.0F : -acc / e;
        std::vector<float> next = a;
        for (size_t j = 1; j < i; j++) {
            const float product = k * a[i - j];
            next[j] = a[j] + product;
        }
        next[i] = k;
        a = next;
        e = e * (1.0F - k * k);
    }
    gain = std::sqrt(e) * 0.33F;
    return a;
}

void decode(int32_t* frame, const float* a, float* ring, int32_t& offset) {
    for (int32_t i = 0; i < 160; i++) {
        float y = static_cast<float>(frame[i]) / 32768.0F;
        for (int32_t t = 1; t <= 10; t++) {
            const float product = a[t] * ring[(offset + 10 - t) % 10];
            y = y - product;
        }
        ring[offset] = y;
        offset = (offset + 1) % 10;
        const float scaled = y * 32767.0F;
        frame[i] = truncated(scaled);
    }
}

Pitch pitchOf(const int32_t* frame, int32_t lastPeriod) {
    const Samples p = lagCorrelations(frame);
    int32_t best = 0;
    int32_t bestSum = std::numeric_limits<int32_t>::min();
    for (size_t lag = 1; lag <= 83; lag++) {
        const int32_t sum = plus(plus(p[lag - 1], p[lag]), p[lag + 1]);
        if (p[lag] > p[lag - 1] && p[lag] > p[lag + 1] && sum > bestSum) {
            best = static_cast<int32_t>(lag);
            bestSum = sum;
        }
    }
    if (best == 0 || bestSum >> 10 < 100) {
        return {lastPeriod, 0};
    }
    return {best + 16, bestSum >> 10 > 1023 ? 1024 : bestSum >> 10};
}

namespace {

struct Frame {
    std::vector<float> a;
    float gain = 0.0F;
    Pitch pitch;
};

}  // namespace

Samples robot(const Samples& source, int32_t mode, int32_t seed) {
    Samples out(source.size());
    std::vector<Frame> frames(source.size() / 160);
    float periodSum = 60.0F;
    int32_t voiced = 0;
    int32_t lastPeriod = 58;
    for (size_t f = 0; f < frames.size(); f++) {
        frames[f].a = filter(autoCorrelation(&source[f * 160]), frames[f].gain);
        frames[f].pitch = pitchOf(&source[f * 160], lastPeriod);
        lastPeriod = frames[f].pitch.period;
        if (frames[f].pitch.voicing > 0 && lastPeriod > 16 && lastPeriod < 100) {
            periodSum += static_cast<float>(lastPeriod);
            voiced++;
        }
    }
    const float average = periodSum / static_cast<float>(voiced);
    Rnd rnd(seed);
    float ring[10] = {};
    int32_t offset = 0;
    int32_t sincePulse = 0;
    float lastGain = 0.0F;
    lastPeriod = 0;
    for (size_t f = 0; f < frames.size(); f++) {
        const Frame& frame = frames[f];
        int32_t buffer[160];
        for (int32_t i = 0; i < 160; i++) {
            int32_t period = mode == 1 ? 90 : frame.pitch.period;
            if (mode == 2) {
                const int32_t cur =
                    truncated((lastPeriod * (160 - i) + frame.pitch.period * i) / 160.0);
                const float share = static_cast<float>(cur) / average;
                const float mirrored = average / share;
                period = truncated(static_cast<double>(mirrored) + 0.5);
            }
            const float before = lastGain * static_cast<float>(160 - i);
            const float after = frame.gain * static_cast<float>(i);
            const float sum = before + after;
            const int32_t g = truncated(static_cast<double>(sum) / 160.0 * 1024.0);
            if (period <= sincePulse) {
                sincePulse = 0;
            }
            const int32_t pulse = sincePulse < 32 ? ((sincePulse & 31) - 15) * 2048 : 0;
            sincePulse++;
            const int32_t hiss = rnd.nextInt(-20000, 20000);
            const int32_t v = (frame.pitch.voicing * frame.pitch.voicing) >> 10;
            const int32_t quiet = times(1024 - v, times(g, hiss) >> 10);
            buffer[i] = plus(quiet, times(v, times(g, pulse) >> 10)) >> 10;
        }
        decode(buffer, frame.a.data(), ring, offset);
        for (size_t i = 0; i < 160; i++) {
            out[f * 160 + i] = limited(buffer[i]);
        }
        lastGain = frame.gain;
        lastPeriod = frame.pitch.period;
    }
    return out;
}

namespace {

Samples levelCurve(const Samples& source) {
    Samples table(513);
    for (const int32_t s : source) {
        table.at(static_cast<size_t>(std::abs(s >> 6)))++;
    }
    const int32_t threshold = truncated(static_cast<double>(source.size()) * 0.992);
    int32_t k = 0;
    int32_t sum = 0;
    for (k = 0; k < 512; k++) {
        sum += table[static_cast<size_t>(k)];
        if (sum > threshold) {
            break;
        }
    }
    const int32_t m = truncated(k * 0.02);
    for (int32_t j = k; j <= 512; j++) {
        const float t = static_cast<float>(j - k) * static_cast<float>(1.0 / (512 - k));
        table[static_cast<size_t>(j)] =
            truncated(static_cast<double>(t) * 32767 + (1 - static_cast<double>(t)) * 30000);
    }
    for (int32_t j = m; j <= k; j++) {
        const float t = static_cast<float>(j - m) * static_cast<float>(1.0 / (k - m));
        table[static_cast<size_t>(j)] =
            truncated(static_cast<double>(t) * 30000 + (1 - static_cast<double>(t)) * 500);
    }
    for (int32_t j = 0; j <= m; j++) {
        const float t = static_cast<float>(j) * static_cast<float>(1.0 / m);
        table[static_cast<size_t>(j)] = truncated(static_cast<double>(t) * 500);
    }
    return table;
}

}  // namespace

Samples cleanUp(const Samples& recording) {
    Samples source = recording;
    const size_t samples = source.size();
    if (samples > 4096) {
        source[0] = 0;
        for (size_t i = 1; i <= 2047; i++) {
            source[i] = (source[i] * static_cast<int32_t>(i)) >> 12;
            source[samples - i] = (source[samples - i] * static_cast<int32_t>(i)) >> 12;
        }
    }
    Samples filtered;
    for (size_t i = 0; i < samples; i++) {
        int32_t sum = 0;
        for (size_t back = 0; back < 32 && back <= i; back++) {
            sum += source[i - back];
        }
        const int32_t delayed = i >= 16 ? source[i - 16] : 0;
        filtered.push_back(limited(delayed - (sum >> 5)));
    }
    const Samples curve = levelCurve(filtered);
    Samples out;
    for (const int32_t s : filtered) {
        const int32_t u = s >= 0 ? s : -s - 1;
        const auto q = static_cast<size_t>(u >> 6);
        const int32_t f = u & 63;
        const int32_t value = (curve[q + 1] * f + curve[q] * (64 - f)) >> 6;
        out.push_back(s >= 0 ? value : -value);
    }
    return out;
}

}  // namespace audio::slow
