// SPDX-License-Identifier: MIT
// Reads plain WAV files for the page, and makes takes of sounds at any rate. The browser decodes
// every other kind of file.
#pragma once

#include "HostSound.h"

#include <cstddef>
#include <cstdint>
#include <vector>

class PlainWav {
public:
    static constexpr int32_t kMinRateHz = 8000;
    static constexpr int32_t kMaxRateHz = 192000;
    static constexpr int32_t kMaxChannels = 8;

    /// Of a take; what lies after that is not used.
    static constexpr int32_t kLongestSeconds =
        HostMicrophone::kLongestTakeSamples / HostMicrophone::kRateHz;

    /// The first 20 s of a WAV file as 16 kHz mono: 8, 16, 24 or 32-bit whole numbers or 32-bit
    /// floats, 1 to 8 channels (their mean), kMinRateHz to kMaxRateHz. Empty for everything else.
    /// Of a file that is cut short, what is there is read.
    /// @param isCut  if given: there is more of it
    static std::vector<int16_t> read(const uint8_t* bytes, size_t count, bool* isCut = nullptr);

    /// The same for the first bytes of a longer file. Also empty if they do not hold all of the
    /// sound or its first 20 s.
    static std::vector<int16_t>
    readBeginning(const uint8_t* bytes, size_t count, bool* isCut = nullptr);

    /// All samples of a 16 kHz file that toFile() made, unchanged and not cut to 20 s: a recording
    /// may end some frames late. Empty for everything else.
    static std::vector<int16_t> readTake(const uint8_t* bytes, size_t count);

    /// The bytes of a WAV file: 16 bits, one channel.
    static std::vector<uint8_t> toFile(const int16_t* samples, int32_t count, int32_t rateHz);

    /// The first 20 s of samples from -1 to 1 as 16 kHz mono. Empty if the rate is out of range.
    static std::vector<int16_t> toTake(const float* samples, int32_t count, int32_t rateHz);

private:
    static std::vector<int16_t>
    readIf(const uint8_t* bytes, size_t count, bool isWhole, bool* isCut);
};
