// SPDX-License-Identifier: MIT
#include "PngEncoder.h"

#include "ArrFunc.h"

#include <algorithm>

namespace {

constexpr unsigned char kSignature[8] = {0x89, 'P', 'N', 'G', 0x0D, 0x0A, 0x1A, 0x0A};
constexpr int32_t kBlockBytes = 32768;
constexpr int32_t kBlockHeaderBytes = 5;
constexpr int32_t kCrcEntries = 256;
constexpr uint32_t kCrcPolynomial = 0xEDB88320;  // reflected
constexpr signed char kDepth = 8;
constexpr signed char kTrueColour = 2;

/// How many bytes are added before the two sums are reduced; somewhat more would still fit 32 bits.
constexpr int32_t kAdlerRun = 3800;

signed char byteOf(uint32_t value, int32_t shift) {
    return static_cast<signed char>(static_cast<unsigned char>(value >> shift));
}

/// Number of bytes of all rows: one filter byte and three bytes for each pixel.
int64_t rawBytes(int64_t w, int64_t h) {
    return h * (1 + 3 * w);
}

}  // namespace

PngEncoder::PngEncoder()
    : crcTable(newArray<uint32_t>(kCrcEntries)) {}

bool PngEncoder::setImageData(const uint32_t* argb, int32_t w, int32_t h) {
    output.reset();
    pixels = nullptr;
    position = 0;
    if (w < 1 || h < 1 || int64_t{w} * h > kMaxArrayLength) {
        return false;
    }
    // Only checks that the array can count the bytes. Rows have a filter byte and blocks a header,
    // so tall, narrow images need more than three bytes for each pixel; reserve() makes room for
    // them.
    const int64_t raw = rawBytes(w, h);
    if (slackBytes + raw + (raw / kBlockBytes + 1) * kBlockHeaderBytes > kMaxArrayLength) {
        return false;
    }
    pixels = argb;
    width = w;
    height = h;
    output.reset(newArray<signed char>(slackBytes + 3 * w * h));
    return true;
}

signed char* PngEncoder::encode() {
    if (pixels == nullptr) {
        return nullptr;
    }
    position = 0;
    makeCRCTable();
    for (const unsigned char byte : kSignature) {
        addByte(static_cast<signed char>(byte));
    }
    startChunk('I', 'H', 'D', 'R');
    addInt(width);
    addInt(height);
    for (const signed char byte : {kDepth, kTrueColour}) {
        addByte(byte);
    }
    for (int32_t i = 0; i < 3; i++) {
        addByte(0);  // compression, filter, interlace
    }
    endChunk();
    startChunk('I', 'D', 'A', 'T');
    addImgData();
    endChunk();
    startChunk('I', 'E', 'N', 'D');
    endChunk();
    return output;
}

uint32_t PngEncoder::getCRC(int32_t from, int32_t to) {
    uint32_t crc = 0xFFFFFFFF;
    for (int32_t i = from; i < to; i++) {
        crc = crcTable[(crc ^ static_cast<uint32_t>(output[i])) & 0xFF] ^ (crc >> 8);
    }
    return ~crc;
}

uint32_t
PngEncoder::updateAdler(uint32_t adler, const signed char* data, int32_t offset, int32_t length) {
    uint32_t low = adler & 0xFFFF;
    uint32_t high = adler >> 16;
    for (int32_t start = 0; start < length; start += kAdlerRun) {
        const int32_t end = std::min(length, start + kAdlerRun);
        for (int32_t i = start; i < end; i++) {
            low += static_cast<unsigned char>(data[offset + i]);
            high += low;  // below 65521 + 3800 * (65521 + 3800 * 255): fits 32 bits
        }
        low %= adlerModulus;
        high %= adlerModulus;
    }
    return high << 16 | low;
}

void PngEncoder::addPixelRows(signed char* raw) const {
    const uint32_t* pixel = pixels;
    for (int32_t y = 0; y < height; y++) {
        *raw++ = 0;  // no filter
        for (int32_t x = 0; x < width; x++, pixel++) {
            *raw++ = byteOf(*pixel, 16);
            *raw++ = byteOf(*pixel, 8);
            *raw++ = byteOf(*pixel, 0);
        }
    }
}

void PngEncoder::addImgData() {
    const auto total = static_cast<int32_t>(rawBytes(width, height));
    const Array<signed char> raw(newArray<signed char>(total));
    addPixelRows(raw);
    addByte(0x78);
    addByte(0x01);
    uint32_t adler = 1;
    for (int32_t start = 0; start < total; start += kBlockBytes) {
        const int32_t n = std::min(kBlockBytes, total - start);
        addBlock(raw + start, n, start + n == total);
        adler = updateAdler(adler, raw, start, n);
    }
    addInt(static_cast<int32_t>(adler));
}

/// One stored block: last or not, length and its complement, least significant byte first.
void PngEncoder::addBlock(const signed char* data, int32_t length, bool isLast) {
    const auto announced = static_cast<uint32_t>(length);
    addByte(isLast ? 1 : 0);
    for (const uint32_t word : {announced, ~announced}) {
        addByte(byteOf(word, 0));
        addByte(byteOf(word, 8));
    }
    reserve(length);
    std::copy(data, data + length, output + position);
    position += length;
}

void PngEncoder::addByte(signed char byte) {
    reserve(1);
    output[position] = byte;
    position++;
}

void PngEncoder::addInt(int32_t value) {
    for (int32_t shift = 24; shift >= 0; shift -= 8) {
        addByte(byteOf(static_cast<uint32_t>(value), shift));
    }
}

void PngEncoder::startChunk(signed char a, signed char b, signed char c, signed char d) {
    chunkStart = position;
    addInt(0);
    for (const signed char letter : {a, b, c, d}) {
        addByte(letter);
    }
}

void PngEncoder::endChunk() {
    const int32_t end = position;
    position = chunkStart;
    addInt(end - 8 - chunkStart);
    position = end;
    addInt(static_cast<int32_t>(getCRC(chunkStart + 4, end)));
}

void PngEncoder::makeCRCTable() {
    for (uint32_t n = 0; n < kCrcEntries; n++) {
        uint32_t crc = n;
        for (int32_t bit = 0; bit < 8; bit++) {
            crc = (crc & 1) != 0 ? kCrcPolynomial ^ (crc >> 1) : crc >> 1;
        }
        crcTable[n] = crc;
    }
}

/// Makes room for more bytes after the ones written.
void PngEncoder::reserve(int32_t bytes) {
    const int32_t needed = position + bytes;
    if (needed <= length(output)) {
        return;
    }
    const int32_t doubled = std::min(2 * length(output), kMaxArrayLength);
    auto* larger = newArray<signed char>(std::max(needed, doubled));
    std::copy_n(output.get(), position, larger);
    output.reset(larger);
}
