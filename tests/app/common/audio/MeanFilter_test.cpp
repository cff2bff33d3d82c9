// SPDX-License-Identifier: MIT
// The running mean as high-pass and as low-pass, whole and in pieces.
#include "AudioSupport.h"
#include "MeanFilter.h"

#include <gtest/gtest.h>

using audio::Samples;

namespace {

int32_t windowMean(const Samples& samples, size_t i, size_t window) {
    int64_t sum = 0;
    for (size_t back = 0; back < window && back <= i; back++) {
        sum += samples[i - back];
    }
    const auto width = static_cast<int64_t>(window);
    return static_cast<int32_t>(sum >= 0 ? sum / width : -((-sum + width - 1) / width));
}

}  // namespace

TEST(MeanFilter, highpassSettlesToZeroOnAConstant) {
    MeanFilter filter(5);
    Samples samples(64, 1000);
    filter.highpass(samples.data(), 0, samples.data(), 0, 64);
    EXPECT_EQ(-31, samples[0]);
    EXPECT_EQ(-62, samples[1]);
    EXPECT_EQ(-500, samples[15]);
    EXPECT_EQ(1000 - 531, samples[16]);
    EXPECT_EQ(1000 - 968, samples[30]);
    for (size_t i = 31; i < 64; i++) {
        EXPECT_EQ(0, samples[i]) << i;
    }
}

TEST(MeanFilter, highpassIsTheDelayedInputMinusTheWindowsMean) {
    for (const int32_t shift : {0, 1, 5, 8}) {
        const Samples input = audio::roughSignal(3000);
        Samples output(input.size());
        MeanFilter filter(shift);
        filter.highpass(input.data(), 0, output.data(), 0, 3000);
        const size_t window = size_t{1} << shift;
        for (size_t i = 0; i < input.size(); i++) {
            const int32_t delayed = i >= window / 2 ? input[i - window / 2] : 0;
            const int32_t expected =
                std::clamp(delayed - windowMean(input, i, window), -32768, 32767);
            ASSERT_EQ(expected, output[i]) << "shift " << shift << ", sample " << i;
        }
    }
}

TEST(MeanFilter, lowpassIsTheWindowsMeanRoundedDown) {
    const Samples input = audio::noise(1000, 32767);
    Samples output(input.size());
    MeanFilter(3).lowpass(input.data(), 0, output.data(), 0, 1000, false);
    for (size_t i = 0; i < input.size(); i++) {
        ASSERT_EQ(windowMean(input, i, 8), output[i]) << i;
    }
}

TEST(MeanFilter, lowpassClampsOnlyWhenAsked) {
    const Samples input = {100000, -400000};
    Samples output(2);
    MeanFilter(1).lowpass(input.data(), 0, output.data(), 0, 2, false);
    EXPECT_EQ((Samples{50000, -150000}), output);
    MeanFilter(1).lowpass(input.data(), 0, output.data(), 0, 2, true);
    EXPECT_EQ((Samples{32767, -32768}), output);
}

TEST(MeanFilter, piecesGiveWhatTheWholeGives) {
    const Samples input = audio::noise(500, 32767);
    Samples whole(500);
    Samples pieces(500);
    MeanFilter(4).highpass(input.data(), 0, whole.data(), 0, 500);
    MeanFilter filter(4);
    int32_t done = 0;
    for (const int32_t piece : {1, 15, 16, 17, 0, 451}) {
        filter.highpass(input.data(), done, pieces.data(), done, piece);
        done += piece;
    }
    EXPECT_EQ(whole, pieces);
}

TEST(MeanFilter, piecesOfAnyLengthGiveWhatTheWholeGives) {
    const Samples input = audio::noise(20000, 32767);
    for (const int32_t shift : {0, 1, 5, 9, 12}) {
        for (const int32_t piece : {1, 31, 511, 512, 513, 1024, 1025, 9999}) {
            Samples whole = input;
            Samples pieces = input;
            MeanFilter(shift).highpass(whole.data(), 0, whole.data(), 0, 20000);
            MeanFilter filter(shift);
            for (int32_t done = 0; done < 20000; done += piece) {
                const int32_t count = std::min(piece, 20000 - done);
                filter.highpass(pieces.data(), done, pieces.data(), done, count);
            }
            ASSERT_EQ(whole, pieces) << "shift " << shift << ", pieces of " << piece;
        }
    }
}

TEST(MeanFilter, outputsWrittenAheadOfTheInputAreInputsAgain) {
    for (const int32_t ahead : {1, 3, 600}) {
        Samples together = audio::noise(3000, 32767);
        Samples single = together;
        const int32_t count = 3000 - ahead;
        MeanFilter(5).highpass(together.data(), 0, together.data(), ahead, count);
        MeanFilter filter(5);
        for (int32_t i = 0; i < count; i++) {
            filter.highpass(single.data(), i, single.data(), i + ahead, 1);
        }
        ASSERT_EQ(single, together) << ahead;
        Samples means = audio::noise(3000, 32767);
        Samples singleMeans = means;
        MeanFilter(5).lowpass(means.data(), 0, means.data(), ahead, count, false);
        MeanFilter lowFilter(5);
        for (int32_t i = 0; i < count; i++) {
            lowFilter.lowpass(singleMeans.data(), i, singleMeans.data(), i + ahead, 1, false);
        }
        ASSERT_EQ(singleMeans, means) << ahead;
    }
}
