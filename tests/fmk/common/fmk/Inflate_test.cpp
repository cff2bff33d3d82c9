// SPDX-License-Identifier: MIT
// Both inflaters give the same bytes: the native one, and the browser's, which has another name
// here.
#include "Inflate.h"
#include "InflateStb.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <cstring>
#include <filesystem>
#include <fstream>

namespace {

using Bytes = std::vector<unsigned char>;

Bytes unpackedBy(decltype(&Inflate::unpack) unpack, const Bytes& packed, size_t size) {
    Bytes out(size);
    unpack(packed.data(), packed.size(), out.data(), out.size());
    return out;
}

Bytes packed(const Bytes& plain, int level) {
    uLongf size = compressBound(plain.size());
    Bytes bytes(size);
    compress2(bytes.data(), &size, plain.data(), plain.size(), level);
    bytes.resize(size);
    return bytes;
}

uint32_t bigEndian(const Bytes& bytes, size_t at) {
    return uint32_t{bytes[at]} << 24 | uint32_t{bytes[at + 1]} << 16 |
           uint32_t{bytes[at + 2]} << 8 | bytes[at + 3];
}

/// The compressed rows of a PNG file.
Bytes dataOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    Bytes bytes;
    bytes.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    Bytes data;
    for (size_t at = 8; at + 12 <= bytes.size(); at += bigEndian(bytes, at) + 12) {
        if (std::memcmp(&bytes[at + 4], "IDAT", 4) == 0) {
            const auto first = bytes.begin() + static_cast<ptrdiff_t>(at) + 8;
            data.insert(data.end(), first, first + bigEndian(bytes, at));
        }
    }
    return data;
}

}  // namespace

TEST(Inflate, bothUnpackWhatZlibPacks) {
    Bytes plain(100000);
    uint32_t state = 1;
    for (size_t i = 0; i < plain.size(); i++) {
        state = state * 1664525 + 1013904223;
        plain[i] = static_cast<unsigned char>(i % 3 == 0 ? state >> 24 : i / 100);
    }
    for (const int level : {0, 1, 6, 9}) {
        const Bytes bytes = packed(plain, level);
        EXPECT_EQ(plain, unpackedBy(&Inflate::unpack, bytes, plain.size())) << level;
        EXPECT_EQ(plain, unpackedBy(&InflateStb::unpack, bytes, plain.size())) << level;
    }
}

TEST(Inflate, bothUnpackEveryShippedPictureAlike) {
    constexpr size_t kMaxBytes = (4 * 240 + 1) * 320;
    int pictures = 0;
    for (const auto& entry : std::filesystem::directory_iterator(MURMELO_SOURCE_DIR "/res/Res")) {
        if (entry.path().extension() == ".png") {
            const Bytes data = dataOf(entry.path());
            ASSERT_FALSE(data.empty()) << entry.path();
            EXPECT_EQ(unpackedBy(&Inflate::unpack, data, kMaxBytes),
                      unpackedBy(&InflateStb::unpack, data, kMaxBytes))
                << entry.path();
            pictures++;
        }
    }
    EXPECT_EQ(28, pictures);
}

TEST(Inflate, aStreamThatIsTooLongFillsTheBufferAndNoMore) {
    const Bytes plain(1000, 7);
    const Bytes bytes = packed(plain, 6);
    for (const auto unpack : {&Inflate::unpack, &InflateStb::unpack}) {
        Bytes out(101, 9);
        unpack(bytes.data(), bytes.size(), out.data(), 100);
        EXPECT_EQ(9, out[100]);
    }
}

TEST(Inflate, aDamagedStreamWritesNothingBeyondTheBuffer) {
    const Bytes good = packed(Bytes(5000, 7), 6);
    for (size_t at = 0; at < good.size(); at++) {
        Bytes bytes = good;
        bytes[at] ^= 0x55;
        for (const auto unpack : {&Inflate::unpack, &InflateStb::unpack}) {
            Bytes out(5001, 9);
            unpack(bytes.data(), bytes.size(), out.data(), 5000);
            ASSERT_EQ(9, out[5000]) << at;
        }
    }
}
