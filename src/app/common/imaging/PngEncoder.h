// SPDX-License-Identifier: MIT
// Writes an image as a PNG file without compression, in stored blocks.
#pragma once

#include "Array.h"
#include "ClassLife.h"

#include <cstdint>

class PngEncoder : public ClassLife {
public:
    /// Allocates the table of the checksum.
    PngEncoder();
    PngEncoder(const PngEncoder&) = delete;
    PngEncoder& operator=(const PngEncoder&) = delete;
    virtual ~PngEncoder() = default;

    /// Keeps the pointer to the pixels (not owned; they must stay valid until encode()), and
    /// allocates the output. False if there are no pixels or too many; encode() then returns null.
    /// @param argb  w * h words; alpha is dropped
    bool setImageData(const uint32_t* argb, int32_t w, int32_t h);

    /// Writes the whole file. The counted array belongs to the encoder, which keeps it until the
    /// next image; getLength() bytes of it are the file. Null without an image.
    signed char* encode();

    /// Bytes written so far.
    int32_t getLength() const { return position; }

    /// CRC-32 of the written bytes from .. to - 1.
    virtual uint32_t getCRC(int32_t from, int32_t to);

    /// Continues an Adler-32 checksum, whose first value is 1.
    virtual uint32_t
    updateAdler(uint32_t adler, const signed char* data, int32_t offset, int32_t length);

    /// A zlib stream of rows: filter byte 0, then red, green and blue of each pixel.
    virtual void addImgData();
    virtual void addByte(signed char byte);

    /// Most significant byte first.
    virtual void addInt(int32_t value);

    /// Leaves room for the length and writes the type.
    virtual void startChunk(signed char a, signed char b, signed char c, signed char d);

    /// Fills in the length and adds the checksum.
    virtual void endChunk();
    virtual void makeCRCTable();

private:
    void addBlock(const signed char* data, int32_t length, bool isLast);
    void addPixelRows(signed char* raw) const;
    void reserve(int32_t bytes);

    int32_t slackBytes = 4096;
    const uint32_t* pixels = nullptr;  // not owned
    Array<signed char> output;
    int32_t position = 0;
    int32_t width = 0;
    int32_t height = 0;
    Array<uint32_t> crcTable;
    uint32_t adlerModulus = 65521;
    int32_t chunkStart = 0;
};
