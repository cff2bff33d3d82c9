// SPDX-License-Identifier: MIT
// A converted sound keeps its level, pitch and length, and has nothing at a wrong pitch.
#include "Resampler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

using Sound = std::vector<float>;

namespace {

double sineAt(double hz, size_t at, int32_t rateHz) {
    return 0.5 * std::sin(2 * std::numbers::pi * hz * static_cast<double>(at) / rateHz);
}

Sound sine(int32_t rateHz, double hz) {
    Sound sound;
    for (size_t i = 0; i < static_cast<size_t>(rateHz); i++) {
        sound.push_back(static_cast<float>(sineAt(hz, i, rateHz)));
    }
    return sound;
}

/// Converts a sound in pieces.
Sound converted(const Sound& sound, int32_t fromHz, int32_t toHz, size_t piece = 4096) {
    Resampler resampler(fromHz, toHz);
    Sound out;
    for (size_t at = 0; at < sound.size(); at += piece) {
        const size_t count = std::min(piece, sound.size() - at);
        const bool last = at + count == sound.size();
        EXPECT_TRUE(resampler.convert(&sound[at], count, last, Resampler::kEndless, out));
    }
    return out;
}

/// The power in the middle half of a sound, away from the edges, relative to that of the sine.
template <typename Wanted>
double decibelsOff(const Sound& sound, Wanted wanted) {
    double power = 0;
    for (size_t i = sound.size() / 4; i < sound.size() * 3 / 4; i++) {
        const double off = static_cast<double>(sound[i]) - wanted(i);
        power += off * off;
    }
    return 10 * std::log10(power / (0.125 * static_cast<double>(sound.size()) / 2) + 1e-30);
}

struct Rates {
    int32_t fromHz;
    int32_t toHz;
};

constexpr Rates kRates[] = {{44100, 8000}, {48000, 8000},  {22050, 8000},
                            {11025, 8000}, {44101, 16000}, {8000, 44100}};

}  // namespace

TEST(Resampler, aTonePassesAtItsLevelItsPitchAndItsPlace) {
    for (const auto& [fromHz, toHz] : kRates) {
        for (const double share : {0.01, 0.3, 0.6, 0.9}) {
            const double hz = share * std::min(fromHz, toHz) / 2;
            const Sound made = converted(sine(fromHz, hz), fromHz, toHz);
            const double off =
                decibelsOff(made, [hz, to = toHz](size_t i) { return sineAt(hz, i, to); });
            EXPECT_GT(-70, off) << fromHz << " to " << toHz << ", " << hz << " Hz";
        }
    }
}

TEST(Resampler, theBandIsLevelUpToNinetyFivePercent) {
    for (const auto& [fromHz, toHz] : kRates) {
        const double hz = 0.95 * std::min(fromHz, toHz) / 2;
        const Sound made = converted(sine(fromHz, hz), fromHz, toHz);
        EXPECT_NEAR(0, decibelsOff(made, [](size_t) { return 0.0; }), 0.02) << fromHz;
    }
}

TEST(Resampler, whatTheNewRateCannotHoldIsGone) {
    for (const auto& [fromHz, toHz] : kRates) {
        for (const double share : {1.01, 1.1, 1.37, 1.9, 2.7}) {
            const double hz = share * toHz / 2;
            if (hz < 0.99 * fromHz / 2) {
                const Sound made = converted(sine(fromHz, hz), fromHz, toHz);
                EXPECT_GT(-115, decibelsOff(made, [](size_t) { return 0.0; }))
                    << fromHz << " to " << toHz << ", " << hz << " Hz";
            }
        }
    }
}

TEST(Resampler, aSoundIsAsLongAsBeforeRoundedToWholeSamples) {
    for (const auto& [fromHz, toHz] : kRates) {
        for (const size_t count : {1U, 2U, 100U, 4095U, 4096U, 44100U, 50021U}) {
            const Sound made = converted(Sound(count, 0.25F), fromHz, toHz);
            const double exact = static_cast<double>(count) * toHz / fromHz;
            EXPECT_NEAR(exact, static_cast<double>(made.size()), 0.501) << fromHz << " " << count;
        }
    }
}

TEST(Resampler, piecesOfAnySizeMakeTheSameSound) {
    const Sound sound = sine(44100, 1000);
    const Sound whole = converted(sound, 44100, 8000, sound.size());
    for (const size_t piece : {1U, 7U, 4096U, 10000U}) {
        EXPECT_EQ(whole, converted(sound, 44100, 8000, piece)) << piece;
    }
}

TEST(Resampler, noMoreIsMadeThanIsWanted) {
    const Sound sound = sine(44100, 1000);
    Resampler resampler(44100, 8000);
    Sound out;
    EXPECT_TRUE(resampler.convert(sound.data(), sound.size(), true, 123, out));
    EXPECT_EQ(123U, out.size());
}

TEST(Resampler, ratesMoreThan256TimesApartAreRefused) {
    for (const auto& [fromHz, toHz] : {Rates{0, 8000}, Rates{-1, 8000}, Rates{31, 8000},
                                       Rates{8000, 31}, Rates{2048001, 8000}}) {
        Resampler resampler(fromHz, toHz);
        Sound out;
        const float sample = 0;
        EXPECT_FALSE(resampler.isReady()) << fromHz;
        EXPECT_FALSE(resampler.convert(&sample, 1, true, Resampler::kEndless, out));
    }
    EXPECT_TRUE(Resampler(32, 8000).isReady());
    EXPECT_TRUE(Resampler(2048000, 8000).isReady());
}
