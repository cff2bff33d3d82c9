// SPDX-License-Identifier: MIT
// Writes numbers and texts, most significant byte first, to another stream.
#pragma once

#include "OutputStream.h"

class DataOutputStream : public OutputStream {
public:
    /// @param out  not owned; must outlive this stream
    explicit DataOutputStream(OutputStream* out)
        : out(out) {}

    void close() override { out->close(); }

    void write(signed char byte) override { out->write(byte); }

    void write(signed char* bytes) override { out->write(bytes); }

    void write(signed char* bytes, int32_t off, int32_t len) override {
        out->write(bytes, off, len);
    }

    void flush() override { out->flush(); }

    bool hasFailed() override { return out->hasFailed(); }

    void writeBoolean(bool value);

    /// The low 8 bits.
    void writeByte(int32_t value);

    /// The low 16 bits.
    void writeShort(int32_t value);
    void writeChar(char16_t character);
    void writeInt(int32_t value);

    /// Eight bytes: the value with its sign extended, so that readLong() gets it back.
    void writeLong(int32_t value);
    void writeFloat(float value);
    void writeDouble(double value);

    /// Two bytes for each character, without a length.
    void writeChars(Osp::Base::String* text);

    /// Length in bytes (16 bits) and modified UTF-8, in one write; null writes an empty text. A
    /// text of more than 65535 bytes is cut after the last character that fits, so that everything
    /// after it can still be read.
    void writeUTF(Osp::Base::String* text);

private:
    OutputStream* out;
};
