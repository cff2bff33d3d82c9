// SPDX-License-Identifier: MIT
#include "DataOutputStream.h"

#include "ArrFunc.h"
#include "Bits.h"
#include "OspBase.h"

using Osp::Base::String;

namespace {

constexpr int32_t kMaxUtfBytes = 0xFFFF;  // the largest length that 16 bits hold
constexpr int32_t kUtfLengthBytes = 2;

int32_t encodedBytes(char16_t character) {
    if (character >= 1 && character <= 0x7F) {
        return 1;
    }
    return character <= 0x7FF ? 2 : 3;  // 0 takes two, so that no text holds a zero byte
}

/// Fills an array, which has room for everything, from its start.
class Utf8Writer {
public:
    explicit Utf8Writer(signed char* bytes)
        : bytes(bytes) {}

    void put(int32_t byte) { bytes[position++] = static_cast<signed char>(byte); }

    void putCharacter(char16_t character) {
        switch (encodedBytes(character)) {
        case 1:
            put(character);
            return;
        case 2:
            put(0xC0 | (character >> 6 & 0x1F));
            break;
        default:
            put(0xE0 | character >> 12);
            put(0x80 | (character >> 6 & 0x3F));
            break;
        }
        put(0x80 | (character & 0x3F));
    }

private:
    signed char* bytes;
    int32_t position = 0;
};

}  // namespace

void DataOutputStream::writeBoolean(bool value) {
    writeByte(value ? 1 : 0);
}

void DataOutputStream::writeByte(int32_t value) {
    out->write(static_cast<signed char>(value));
}

void DataOutputStream::writeShort(int32_t value) {
    writeByte(value >> 8);
    writeByte(value);
}

void DataOutputStream::writeChar(char16_t character) {
    writeShort(character);
}

void DataOutputStream::writeInt(int32_t value) {
    writeShort(value >> 16);
    writeShort(value);
}

void DataOutputStream::writeLong(int32_t value) {
    writeInt(value < 0 ? -1 : 0);
    writeInt(value);
}

void DataOutputStream::writeFloat(float value) {
    writeInt(bitsAs<int32_t>(value));
}

void DataOutputStream::writeDouble(double value) {
    const auto bits = bitsAs<uint64_t>(value);
    writeInt(static_cast<int32_t>(bits >> 32));
    writeInt(static_cast<int32_t>(bits & 0xFFFFFFFF));
}

void DataOutputStream::writeChars(String* text) {
    for (int32_t i = 0; text != nullptr && i < text->GetLength(); i++) {
        writeChar((*text)[i]);
    }
}

void DataOutputStream::writeUTF(String* text) {
    const int32_t available = text == nullptr ? 0 : text->GetLength();
    int32_t bytes = 0;
    int32_t characters = 0;
    while (characters < available && bytes + encodedBytes((*text)[characters]) <= kMaxUtfBytes) {
        bytes += encodedBytes((*text)[characters]);
        characters++;
    }
    auto* block = newArray<signed char>(kUtfLengthBytes + bytes);
    Utf8Writer writer(block);
    writer.put(bytes >> 8);
    writer.put(bytes);
    for (int32_t i = 0; i < characters; i++) {
        writer.putCharacter((*text)[i]);
    }
    out->write(block, 0, length(block));
    deleteArrFunc(block);
}
