// SPDX-License-Identifier: MIT
// PNG files for tests: real ones made and read by libpng, and chunks put together by hand.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

using Bytes = std::vector<unsigned char>;

/// The file that libpng is to write. The samples are noise from a seed, so that every filter is
/// used.
struct TestPngSpec {
    int32_t w = 1;
    int32_t h = 1;
    int32_t colorType = 2;  // as in the file: 0 grey, 2 RGB, 3 palette, 4 grey and alpha, 6 RGBA
    int32_t depth = 8;
    int32_t filter = -1;       // 0..4 for every row; -1 leaves the choice to libpng
    int32_t idatBytes = 8192;  // most bytes in one IDAT chunk
    bool interlaced = false;
    int32_t transparentEntries = 0;  // of the palette, with noise as their alpha
    uint32_t seed = 1;
};

/// Straight ARGB, 8 bits a channel; empty if the file could not be read.
struct TestPicture {
    int32_t w = 0;
    int32_t h = 0;
    std::vector<uint32_t> argb;
};

class TestPng {
public:
    static Bytes write(const TestPngSpec& spec);

    /// Reads a file with libpng, which checks sums and sizes; warnings count as errors. Of 16-bit
    /// samples the high byte is kept.
    static TestPicture read(const Bytes& file);

    /// The signature.
    static Bytes signature();

    /// A chunk: length, type, data, and a checksum of zero, which our decoder does not check.
    static Bytes chunk(const std::string& type, const Bytes& data);
    static Bytes header(int32_t w, int32_t h, int32_t depth, int32_t colorType);
    static Bytes compressed(const Bytes& data);

    /// Signature, header, one IDAT with the compressed rows, end.
    static Bytes file(int32_t w, int32_t h, int32_t depth, int32_t colorType, const Bytes& rows);
};

Bytes operator+(const Bytes& a, const Bytes& b);
