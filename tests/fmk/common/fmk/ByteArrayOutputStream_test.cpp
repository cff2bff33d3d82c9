// SPDX-License-Identifier: MIT
// A stream into an array grows as it must and keeps every byte.
#include "ArrFunc.h"
#include "ByteArrayOutputStream.h"

#include <gtest/gtest.h>

namespace {

/// Keeps the last byte, to see what the base class makes of write(byte) alone.
class Counter : public OutputStream {
public:
    using OutputStream::write;

    void write(signed char byte) override {
        last = byte;
        count++;
    }

    signed char last = 0;
    int32_t count = 0;
};

}  // namespace

TEST(OutputStream, writesArraysByteByByteAndNeverPastTheirEnd) {
    Counter stream;
    auto* bytes = newArray<signed char>(3);
    bytes[2] = 7;
    stream.write(bytes);
    EXPECT_EQ(3, stream.count);
    EXPECT_EQ(7, stream.last);
    stream.write(bytes, 1, 100);
    EXPECT_EQ(5, stream.count);
    stream.write(bytes, 3, 1);
    stream.write(bytes, -1, 1);
    stream.write(nullptr);
    EXPECT_EQ(5, stream.count);
    deleteArrFunc(bytes);
}

TEST(ByteArrayOutputStream, after33SingleBytesItHasRoomFor64) {
    ByteArrayOutputStream stream;
    EXPECT_EQ(32, stream.capacity());
    for (int32_t i = 0; i < 32; i++) {
        stream.write(static_cast<signed char>(i));
    }
    EXPECT_EQ(32, stream.capacity());
    stream.write(32);
    EXPECT_EQ(64, stream.capacity());
    auto* bytes = stream.toByteArray();
    ASSERT_EQ(33, length(bytes));
    for (int32_t i = 0; i < 33; i++) {
        EXPECT_EQ(i, bytes[i]);
    }
    deleteArrFunc(bytes);
}

TEST(ByteArrayOutputStream, growsToTheNeedWhenDoublingIsNotEnough) {
    ByteArrayOutputStream stream(4);
    auto* bytes = newArray<signed char>(9);
    stream.write(1);
    stream.write(bytes);
    EXPECT_EQ(10, stream.capacity());
    EXPECT_EQ(10, stream.size());
    deleteArrFunc(bytes);
}

TEST(ByteArrayOutputStream, growsFromNothing) {
    ByteArrayOutputStream stream(0);
    stream.write(5);
    EXPECT_EQ(1, stream.capacity());
    EXPECT_EQ(1, stream.size());
}

TEST(ByteArrayOutputStream, afterClosingNothingMoreIsWritten) {
    ByteArrayOutputStream stream;
    stream.write(1);
    stream.close();
    stream.write(2);
    auto* bytes = stream.toByteArray();
    EXPECT_EQ(1, length(bytes));
    stream.write(bytes);
    EXPECT_EQ(1, stream.size());
    deleteArrFunc(bytes);
}

TEST(ByteArrayOutputStream, startsAgainWhenReset) {
    ByteArrayOutputStream stream;
    stream.write(1);
    stream.reset();
    EXPECT_EQ(0, stream.size());
    stream.write(2);
    auto* bytes = stream.toByteArray();
    ASSERT_EQ(1, length(bytes));
    EXPECT_EQ(2, bytes[0]);
    deleteArrFunc(bytes);
}

TEST(ByteArrayOutputStream, writesRangesOfAnArrayAndNeverPastItsEnd) {
    auto* bytes = newArray<signed char>(4);
    bytes[3] = 9;
    ByteArrayOutputStream stream;
    stream.write(bytes, 3, 100);
    stream.write(bytes, 4, 1);
    stream.write(bytes, -2, 4);
    auto* copy = stream.toByteArray();
    ASSERT_EQ(1, length(copy));
    EXPECT_EQ(9, copy[0]);
    deleteArrFunc(copy);
    deleteArrFunc(bytes);
}

TEST(ByteArrayOutputStream, takesNoMoreThanAnArrayCanHold) {
    auto* block = newArray<signed char>(kMaxArrayLength - 1);
    ByteArrayOutputStream stream;
    stream.write(block);
    stream.write(block);  // does not fit: left out whole
    EXPECT_EQ(kMaxArrayLength - 1, stream.size());
    stream.write(1);
    stream.write(2);
    EXPECT_EQ(kMaxArrayLength, stream.size());
    EXPECT_EQ(kMaxArrayLength, stream.capacity());
    deleteArrFunc(block);
}
