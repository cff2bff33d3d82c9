// SPDX-License-Identifier: MIT
#include "DataInputStream.h"

#include "Arithmetic.h"
#include "ArrFunc.h"
#include "Bits.h"
#include "OspBase.h"

#include <algorithm>

using Osp::Base::String;

namespace {

/// Steps through the encoded bytes of a text.
class Utf8Reader {
public:
    Utf8Reader(const signed char* bytes, int32_t count)
        : bytes(bytes)
        , count(count) {}

    bool atEnd() const { return position >= count; }

    /// The next character, or -1 if the bytes are damaged.
    int32_t next() {
        const int32_t lead = nextByte();
        switch (lead >> 4) {
        case 12:
        case 13:
            return withContinuations(lead & 0x1F, 1);
        case 14:
            return withContinuations(lead & 0x0F, 2);
        default:
            return lead < 0x80 ? lead : -1;
        }
    }

private:
    int32_t nextByte() { return static_cast<unsigned char>(bytes[position++]); }

    int32_t withContinuations(int32_t character, int32_t more) {
        for (int32_t i = 0; i < more; i++) {
            const int32_t byte = atEnd() ? 0 : nextByte();
            if ((byte & 0xC0) != 0x80) {
                return -1;
            }
            character = character << 6 | (byte & 0x3F);
        }
        return character;
    }

    const signed char* bytes;
    int32_t count;
    int32_t position = 0;
};

/// Deliberate: characters above U+00FF lose their high byte, and a character whose low byte is 0
/// ends the text: names in fonts are Latin-1.
String* decode(const signed char* bytes, int32_t count) {
    auto* text = new String();
    Utf8Reader reader(bytes, count);
    bool terminated = false;
    while (!reader.atEnd()) {
        const int32_t character = reader.next();
        if (character < 0) {
            delete text;
            return nullptr;
        }
        const auto low = static_cast<char16_t>(character & 0xFF);
        terminated = terminated || low == 0;
        if (!terminated) {
            text->Append(low);
        }
    }
    return text;
}

}  // namespace

bool DataInputStream::readBoolean() {
    return readUnsignedByte() != 0;
}

signed char DataInputStream::readByte() {
    return static_cast<signed char>(readUnsignedByte());
}

int32_t DataInputStream::readUnsignedByte() {
    return std::max(read(), 0);
}

int16_t DataInputStream::readShort() {
    return static_cast<int16_t>(readUnsignedShort());
}

int32_t DataInputStream::readUnsignedShort() {
    const int32_t high = readUnsignedByte();
    return high << 8 | readUnsignedByte();
}

char16_t DataInputStream::readChar() {
    return static_cast<char16_t>(readUnsignedShort());
}

int32_t DataInputStream::readInt() {
    const int32_t high = readUnsignedShort();
    return wrapShl(high, 16) | readUnsignedShort();
}

int32_t DataInputStream::readLong() {
    // Deliberate: a long has 32 bits here, so of the eight bytes in the stream the last four count.
    readInt();
    return readInt();
}

float DataInputStream::readFloat() {
    return bitsAs<float>(readInt());
}

double DataInputStream::readDouble() {
    const auto high = static_cast<uint32_t>(readInt());
    const auto low = static_cast<uint32_t>(readInt());
    return bitsAs<double>(uint64_t{high} << 32 | low);
}

void DataInputStream::readFully(signed char* bytes) {
    readFully(bytes, 0, length(bytes));
}

void DataInputStream::readFully(signed char* bytes, int32_t off, int32_t len) {
    readUpTo(bytes, off, len);
}

String* DataInputStream::readUTF() {
    const int32_t high = read();
    const int32_t low = read();
    if (high < 0 || low < 0) {
        return nullptr;
    }
    const int32_t count = high << 8 | low;
    auto* bytes = newArray<signed char>(count);
    String* text = readUpTo(bytes, 0, count) == count ? decode(bytes, count) : nullptr;
    deleteArrFunc(bytes);
    return text;
}

int32_t DataInputStream::readUpTo(signed char* bytes, int32_t off, int32_t len) {
    const int32_t wanted = elementsInRange(bytes, off, len);
    int32_t got = 0;
    while (got < wanted) {
        const int32_t more = read(bytes, off + got, wanted - got);
        if (more <= 0) {
            break;
        }
        got += more;
    }
    return got;
}
