// SPDX-License-Identifier: MIT
// The pixel arithmetic written a second time, one channel at a time, slow and obvious; and noise to
// test it with.
//
// It is correct for premultiplied sources, where no channel carries into its neighbour.
#pragma once

#include "AppImage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <vector>

namespace model {

/// Alpha, red, green, blue.
struct Channels {
    explicit Channels(uint32_t argb)
        : c{static_cast<int32_t>(argb >> 24), static_cast<int32_t>(argb >> 16 & 255),
            static_cast<int32_t>(argb >> 8 & 255), static_cast<int32_t>(argb & 255)} {}

    uint32_t argb() const {
        uint32_t word = 0;
        for (const int32_t channel : c) {
            word = word << 8 | static_cast<uint32_t>(channel & 255);
        }
        return word;
    }

    int32_t c[4];
};

/// Works out each channel of one pixel.
inline uint32_t each(uint32_t argb, const std::function<int32_t(int32_t)>& channel) {
    Channels out(argb);
    for (int32_t& c : out.c) {
        c = channel(c);
    }
    return out.argb();
}

inline uint32_t both(uint32_t d, uint32_t s, const std::function<int32_t(int32_t, int32_t)>& mix) {
    Channels out(d);
    const Channels source(s);
    for (int32_t i = 0; i < 4; i++) {
        out.c[i] = mix(out.c[i], source.c[i]);
    }
    return out.argb();
}

inline uint32_t over(uint32_t d, uint32_t s) {
    const int32_t alpha = static_cast<int32_t>(s >> 24);
    return both(d, s, [alpha](int32_t dc, int32_t sc) { return sc + dc * (256 - alpha) / 256; });
}

inline uint32_t over(uint32_t d, uint32_t s, int32_t opacity) {
    const int32_t alpha = static_cast<int32_t>(s >> 24);
    const int32_t remains = (65536 - alpha * opacity) / 256;
    return both(d, s, [=](int32_t dc, int32_t sc) { return (dc * remains + sc * opacity) / 256; });
}

inline uint32_t lightness(uint32_t argb, int32_t l) {
    const int32_t alpha = static_cast<int32_t>(argb >> 24);
    l = std::clamp(l, 0, 512);
    const uint32_t colour = each(argb, [=](int32_t c) {
        return l <= 256 ? c * l / 256 : (alpha * (l - 256) + c * (512 - l)) / 256;
    });
    return (argb & 0xFF000000) | (colour & 0xFFFFFF);
}

/// @param s  0..256
inline uint32_t saturation(uint32_t argb, int32_t s) {
    const Channels in(argb);
    const int32_t grey = (55 * in.c[1] + 183 * in.c[2] + 18 * in.c[3]) / 256;
    const uint32_t colour = each(argb, [=](int32_t c) { return (c * s + grey * (256 - s)) / 256; });
    return (argb & 0xFF000000) | (colour & 0xFFFFFF);
}

/// @param o  at least 0
inline uint32_t opacity(uint32_t argb, int32_t o) {
    return o > 255 ? argb : each(argb, [o](int32_t c) { return c * o / 256; });
}

inline uint32_t props(uint32_t argb, int32_t l, int32_t s, int32_t o) {
    return opacity(saturation(lightness(argb, l), s), o);
}

inline uint32_t throughMask(uint32_t d, uint32_t argb, uint32_t mask) {
    const int32_t alpha = static_cast<int32_t>(mask >> 24);
    return over(d, each(argb, [alpha](int32_t c) { return c * alpha / 256; }));
}

constexpr uint32_t kEdgeAlphas[] = {0, 1, 127, 128, 254, 255};

/// Pseudo-random words: the same in every run, different for each seed.
class Noise {
public:
    explicit Noise(uint32_t seed)
        : state(seed * 2654435761u + 1) {}

    uint32_t word() {
        state ^= state << 13;
        state ^= state >> 17;
        state ^= state << 5;
        return state;
    }

    int32_t below(int32_t limit) {
        return static_cast<int32_t>(word() % static_cast<uint32_t>(limit));
    }

    /// A premultiplied colour; every second one has an extreme alpha (0, 1, 254, 255).
    uint32_t colour() {
        const uint32_t alpha = word() % 2 == 0 ? kEdgeAlphas[word() % 6] : word() >> 24;
        const auto limit = static_cast<int32_t>(alpha) + 1;
        return alpha << 24 | each(word(), [=](int32_t c) { return c % limit; }) % 0x1000000;
    }

    /// As colour(), in runs long enough to fill whole groups of pixels with one kind.
    void fill(AppImage& image) {
        int32_t left = 0;
        int32_t kind = 0;
        for (int32_t i = 0; i < image.w * image.h; i++) {
            if (left-- == 0) {
                left = below(90);
                kind = below(4);
            }
            const uint32_t c = colour();
            image.writableRows(0, image.h)[i] = kind == 0 ? 0 : (kind == 1 ? c | 0xFF000000 : c);
        }
    }

private:
    uint32_t state;
};

inline std::vector<uint32_t> pixelsOf(const AppImage& image) {
    return std::vector<uint32_t>(image.pixels.get(), image.pixels + image.w * image.h);
}

}  // namespace model
