// SPDX-License-Identifier: MIT
// Numbers and texts are written as bytes that read back the same.
#include "ByteSource.h"
#include "DataInputStream.h"
#include "DataOutputStream.h"
#include "OspBase.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

using Osp::Base::String;

namespace {

using Bytes = std::vector<int32_t>;

Bytes utf(const String& text) {
    ByteArrayOutputStream bytes;
    DataOutputStream out(&bytes);
    String copy(text);
    out.writeUTF(&copy);
    return bytesOf(bytes);
}

/// Counts the calls that reach the wrapped stream.
class Calls : public OutputStream {
public:
    void close() override { closed++; }

    void write(signed char /*byte*/) override { bytes++; }

    void write(signed char* /*bytes*/) override { arrays++; }

    void write(signed char* /*bytes*/, int32_t /*off*/, int32_t /*len*/) override { ranges++; }

    void flush() override { flushed++; }

    int32_t closed = 0;
    int32_t bytes = 0;
    int32_t arrays = 0;
    int32_t ranges = 0;
    int32_t flushed = 0;
};

}  // namespace

TEST(DataOutputStream, writesNumbersMostSignificantByteFirst) {
    ByteArrayOutputStream bytes;
    DataOutputStream out(&bytes);
    out.writeByte(-2);
    out.writeShort(-2);
    out.writeChar(u'\u20AC');
    out.writeInt(-2147483647);
    out.writeBoolean(true);
    out.writeBoolean(false);
    EXPECT_EQ((Bytes{0xFE, 0xFF, 0xFE, 0x20, 0xAC, 0x80, 0, 0, 1, 1, 0}), bytesOf(bytes));
}

TEST(DataOutputStream, failsWhenTheWrappedStreamHasFailed) {
    class Lossy : public ByteArrayOutputStream {
    public:
        bool hasFailed() override { return failed; }

        bool failed = false;
    };

    Lossy bytes;
    DataOutputStream out(&bytes);
    EXPECT_FALSE(out.hasFailed());
    bytes.failed = true;
    EXPECT_TRUE(out.hasFailed());
}

TEST(DataOutputStream, writesFloatingPointByItsBits) {
    ByteArrayOutputStream bytes;
    DataOutputStream out(&bytes);
    out.writeFloat(1.5F);
    out.writeDouble(-2.5);
    EXPECT_EQ((Bytes{0x3F, 0xC0, 0, 0, 0xC0, 0x04, 0, 0, 0, 0, 0, 0}), bytesOf(bytes));
}

TEST(DataOutputStream, aLongTakesEightBytesWithItsSign) {
    ByteArrayOutputStream bytes;
    DataOutputStream out(&bytes);
    out.writeLong(-2);
    out.writeLong(3);
    EXPECT_EQ((Bytes{255, 255, 255, 255, 255, 255, 255, 254, 0, 0, 0, 0, 0, 0, 0, 3}),
              bytesOf(bytes));
}

TEST(DataOutputStream, whatItWritesReadsBackTheSame) {
    ByteArrayOutputStream bytes;
    DataOutputStream out(&bytes);
    constexpr int32_t kSmallest = std::numeric_limits<int32_t>::min();
    out.writeInt(kSmallest);
    out.writeLong(kSmallest);
    out.writeShort(-32768);
    out.writeDouble(0.1);
    ByteArrayInputStream source(bytes.toByteArray());
    DataInputStream in(&source);
    EXPECT_EQ(kSmallest, in.readInt());
    EXPECT_EQ(kSmallest, in.readLong());
    EXPECT_EQ(-32768, in.readShort());
    EXPECT_EQ(0.1, in.readDouble());
    EXPECT_EQ(0, in.available());
    source.disposeBufferData();
}

TEST(DataOutputStream, writesCharactersWithoutALength) {
    ByteArrayOutputStream bytes;
    DataOutputStream out(&bytes);
    String text(u"a\u20AC");
    out.writeChars(&text);
    out.writeChars(nullptr);
    EXPECT_EQ((Bytes{0, 'a', 0x20, 0xAC}), bytesOf(bytes));
}

TEST(DataOutputStream, anEmptyTextIsTwoZeroBytes) {
    EXPECT_EQ((Bytes{0, 0}), utf(String()));
    ByteArrayOutputStream bytes;
    DataOutputStream(&bytes).writeUTF(nullptr);
    EXPECT_EQ((Bytes{0, 0}), bytesOf(bytes));
}

TEST(DataOutputStream, eAcuteTakesTwoBytes) {
    EXPECT_EQ((Bytes{0, 2, 0xC3, 0xA9}), utf(String(u"\u00E9")));
}

TEST(DataOutputStream, theFormOfACharacterChangesAtTheRightPlaces) {
    EXPECT_EQ((Bytes{0, 1, 0x01}), utf(String(u"\u0001")));
    EXPECT_EQ((Bytes{0, 1, 0x7F}), utf(String(u"\u007F")));
    EXPECT_EQ((Bytes{0, 2, 0xC2, 0x80}), utf(String(u"\u0080")));
    EXPECT_EQ((Bytes{0, 2, 0xDF, 0xBF}), utf(String(u"\u07FF")));
    EXPECT_EQ((Bytes{0, 3, 0xE0, 0xA0, 0x80}), utf(String(u"\u0800")));
    EXPECT_EQ((Bytes{0, 3, 0xEF, 0xBF, 0xBF}), utf(String(u"\uFFFF")));
    EXPECT_EQ((Bytes{0, 2, 0xC0, 0x80}), utf(String(char16_t{0})));
}

TEST(DataOutputStream, aTextGoesToTheStreamInOneWrite) {
    Calls calls;
    DataOutputStream out(&calls);
    String text("several characters");
    out.writeUTF(&text);
    EXPECT_EQ(1, calls.ranges + calls.arrays);
    EXPECT_EQ(0, calls.bytes);
}

TEST(DataOutputStream, forwardsThePlainOperations) {
    Calls calls;
    DataOutputStream out(&calls);
    out.write(1);
    out.write(nullptr);
    out.write(nullptr, 0, 0);
    out.flush();
    out.close();
    EXPECT_EQ(1, calls.bytes);
    EXPECT_EQ(1, calls.arrays);
    EXPECT_EQ(1, calls.ranges);
    EXPECT_EQ(1, calls.flushed);
    EXPECT_EQ(1, calls.closed);
}

TEST(DataOutputStream, aTextTooLongForItsLengthIsCutAfterAWholeCharacter) {
    String text;
    for (int32_t i = 0; i < 30000; i++) {
        text.Append(u'\u20AC');  // 90000 bytes
    }
    const Bytes bytes = utf(text);
    ASSERT_EQ(2U + 65535U, bytes.size());  // 21845 characters of three bytes
    EXPECT_EQ(0xFF, bytes[0]);
    EXPECT_EQ(0xFF, bytes[1]);
    text.Insert(u'a', 0);
    EXPECT_EQ(2U + 65533U, utf(text).size());  // one byte and 21844 times three
}
