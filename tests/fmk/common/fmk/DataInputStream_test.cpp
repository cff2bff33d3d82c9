// SPDX-License-Identifier: MIT
// Numbers and texts are read from bytes, and damaged texts are refused.
#include "ByteSource.h"
#include "DataInputStream.h"
#include "OspBase.h"

#include <gtest/gtest.h>

#include <memory>

using Osp::Base::String;

namespace {

/// What readUTF() makes of the bytes; "null" where it refuses them.
String utf(std::initializer_list<int32_t> bytes) {
    ByteSource source(bytes);
    DataInputStream in(&source);
    const std::unique_ptr<String> text(in.readUTF());
    return text == nullptr ? String("null") : *text;
}

/// Hands over at most two bytes in one call, as a slow file may.
class Dripping : public ByteSource {
public:
    using ByteSource::ByteSource;
    using ByteSource::read;

    int32_t read(signed char* target, int32_t off, int32_t len) override {
        return ByteSource::read(target, off, len < 2 ? len : 2);
    }
};

}  // namespace

TEST(DataInputStream, readsNumbersMostSignificantByteFirst) {
    ByteSource source = {0x80, 0xFE, 0xFF, 0xFE, 0x80, 0x01, 0x20, 0xAC, 0x80, 0x00, 0x00, 0x01};
    DataInputStream in(&source);
    EXPECT_EQ(-128, in.readByte());
    EXPECT_EQ(0xFE, in.readUnsignedByte());
    EXPECT_EQ(-2, in.readShort());
    EXPECT_EQ(0x8001, in.readUnsignedShort());
    EXPECT_EQ(u'\u20AC', in.readChar());
    EXPECT_EQ(-2147483647, in.readInt());
    EXPECT_EQ(0, in.available());
}

TEST(DataInputStream, everyByteButZeroIsTrue) {
    ByteSource source = {0, 1, 0x80};
    DataInputStream in(&source);
    EXPECT_FALSE(in.readBoolean());
    EXPECT_TRUE(in.readBoolean());
    EXPECT_TRUE(in.readBoolean());
}

TEST(DataInputStream, aLongIsTheSecondOfTwoWords) {
    ByteSource source = {1, 2, 3, 4, 0xFF, 0xFF, 0xFF, 0xFE, 9};
    DataInputStream in(&source);
    EXPECT_EQ(-2, in.readLong());
    EXPECT_EQ(9, in.read());
}

TEST(DataInputStream, readsFloatingPointByItsBits) {
    ByteSource source = {0x3F, 0xC0, 0, 0, 0xC0, 0x04, 0, 0, 0, 0, 0, 0};
    DataInputStream in(&source);
    EXPECT_EQ(1.5F, in.readFloat());
    EXPECT_EQ(-2.5, in.readDouble());
}

TEST(DataInputStream, bytesMissingAtTheEndCountAsZero) {
    ByteSource source = {0x12, 0x34};
    DataInputStream in(&source);
    EXPECT_EQ(0x12340000, in.readInt());
    EXPECT_EQ(0, in.readInt());
    EXPECT_EQ(0, in.readByte());
    EXPECT_EQ(0, in.readUnsignedByte());
    EXPECT_EQ(0, in.readShort());
    EXPECT_FALSE(in.readBoolean());
    EXPECT_EQ(0.0, in.readDouble());
    EXPECT_EQ(-1, in.read());
}

TEST(DataInputStream, readsFullyInSeveralPieces) {
    Dripping source = {1, 2, 3, 4, 5, 6};
    DataInputStream in(&source);
    auto* bytes = newArray<signed char>(5);
    in.readFully(bytes);
    EXPECT_EQ(1, bytes[0]);
    EXPECT_EQ(5, bytes[4]);
    EXPECT_EQ(6, in.read());
    deleteArrFunc(bytes);
}

TEST(DataInputStream, readingFullyEndsWithTheStreamAndWithTheArray) {
    ByteSource source = {1, 2, 3};
    DataInputStream in(&source);
    auto* bytes = newArray<signed char>(4);
    in.readFully(bytes, 3, 100);
    EXPECT_EQ(1, bytes[3]);
    in.readFully(bytes, 0, 3);
    EXPECT_EQ(2, bytes[0]);
    EXPECT_EQ(3, bytes[1]);
    EXPECT_EQ(0, bytes[2]);
    deleteArrFunc(bytes);
}

TEST(DataInputStream, forwardsThePlainOperations) {
    ByteSource source = {1, 2, 3, 4, 5};
    DataInputStream in(&source);
    EXPECT_EQ(5, in.available());
    EXPECT_EQ(2, in.skipBytes(2));
    EXPECT_EQ(1, in.skip(1));
    auto* bytes = newArray<signed char>(4);
    EXPECT_EQ(2, in.read(bytes));
    EXPECT_EQ(-1, in.read(bytes, 0, 1));
    EXPECT_EQ(0, in.skipBytes(1));
    EXPECT_FALSE(in.markSupported());
    deleteArrFunc(bytes);
}

TEST(DataInputStream, readsTextsOfOneTwoAndThreeByteForms) {
    EXPECT_EQ(String(), utf({0, 0}));
    EXPECT_EQ(String("Az"), utf({0, 2, 'A', 'z'}));
    const String eAcute = utf({0, 2, 0xC3, 0xA9});
    ASSERT_EQ(1, eAcute.GetLength());
    EXPECT_EQ(0xE9, eAcute[0]);
    EXPECT_EQ(String("a"), utf({0, 3, 0xE0, 0x81, 0xA1}));  // longer than needed, still an a
}

TEST(DataInputStream, charactersKeepTheirLowEightBits) {
    EXPECT_EQ(String(u"\u00AC"), utf({0, 3, 0xE2, 0x82, 0xAC}));  // U+20AC
    EXPECT_EQ(String("S"), utf({0, 2, 0xC5, 0x93}));              // U+0153
}

TEST(DataInputStream, aCharacterWithLowByteZeroEndsTheText) {
    EXPECT_EQ(String("a"), utf({0, 4, 'a', 0xC0, 0x80, 'b'}));
    EXPECT_EQ(String("a"), utf({0, 4, 'a', 0xC4, 0x80, 'b'}));  // U+0100
    EXPECT_EQ(String("a"), utf({0, 3, 'a', 0, 'b'}));
}

TEST(DataInputStream, everyLeadByteOutsideTheThreeFormsIsRefused) {
    for (int32_t lead = 0x80; lead <= 0xFF; lead++) {
        const bool known = lead >= 0xC0 && lead < 0xF0;
        if (!known) {
            EXPECT_EQ(String("null"), utf({0, 4, lead, 0x80, 0x80, 0x80})) << lead;
        }
    }
}

TEST(DataInputStream, damageAfterATerminatorIsStillDamage) {
    EXPECT_EQ(String("null"), utf({0, 2, 0, 0xFF}));
}

TEST(DataInputStream, sequencesCutShortAreRefused) {
    EXPECT_EQ(String("null"), utf({0, 1, 0xC3, 0xA9}));
    EXPECT_EQ(String("null"), utf({0, 2, 0xE2, 0x82, 0xAC}));
    EXPECT_EQ(String("null"), utf({0, 1, 0xE2, 0x82, 0xAC}));
}

TEST(DataInputStream, continuationsOfAnyOtherFormAreRefused) {
    EXPECT_EQ(String("null"), utf({0, 2, 0xC3, 0x29}));
    EXPECT_EQ(String("null"), utf({0, 2, 0xC3, 0xC3}));
    EXPECT_EQ(String("null"), utf({0, 3, 0xE2, 0x82, 0x2C}));
    EXPECT_EQ(String("null"), utf({0, 3, 0xE2, 0x02, 0xAC}));
}

TEST(DataInputStream, aTextWhoseStreamEndsEarlyIsNull) {
    EXPECT_EQ(String("null"), utf({}));
    EXPECT_EQ(String("null"), utf({0}));
    EXPECT_EQ(String("null"), utf({0, 3, 'a', 'b'}));
    EXPECT_EQ(String("null"), utf({0xFF, 0xFF, 'a'}));
}

TEST(DataInputStream, aTextTakesJustItsBytesFromTheStream) {
    Dripping source = {0, 3, 'a', 'b', 'c', 7};
    DataInputStream in(&source);
    const std::unique_ptr<String> text(in.readUTF());
    ASSERT_NE(nullptr, text);
    EXPECT_EQ(String("abc"), *text);
    EXPECT_EQ(7, in.read());
}
