// SPDX-License-Identifier: MIT
// A stream over an array reads its bytes and never past its end.
#include "ArrFunc.h"
#include "BufferedInputStream.h"
#include "ByteArrayInputStream.h"
#include "HttpInputStream.h"

#include <gtest/gtest.h>

namespace {

/// The bytes 1, 2, 3 .. as a counted array, freed at the end.
class Bytes {
public:
    explicit Bytes(int32_t count)
        : array(newArray<signed char>(count)) {
        for (int32_t i = 0; i < count; i++) {
            array[i] = static_cast<signed char>(i + 1);
        }
    }

    Bytes(const Bytes&) = delete;
    Bytes& operator=(const Bytes&) = delete;

    ~Bytes() { deleteArrFunc(array); }

    signed char* array;
};

/// Counts down from a number, to see what the base class makes of read() alone.
class Countdown : public InputStream {
public:
    explicit Countdown(int32_t from)
        : next(from) {}

    using InputStream::read;

    int32_t read() override { return next > 0 ? next-- : -1; }

private:
    int32_t next;
};

}  // namespace

TEST(InputStream, theBaseClassHasNothingAndMarksNothing) {
    Countdown stream(3);
    EXPECT_EQ(0, stream.available());
    EXPECT_FALSE(stream.markSupported());
    stream.mark(10);
    EXPECT_EQ(3, stream.read());
    stream.reset();
    stream.close();
    stream.disposeBufferData();
    EXPECT_EQ(2, stream.read());
}

TEST(InputStream, readsByteByByteUntilTheEnd) {
    Countdown stream(3);
    Bytes bytes(4);
    EXPECT_EQ(3, stream.read(bytes.array));
    EXPECT_EQ(3, bytes.array[0]);
    EXPECT_EQ(1, bytes.array[2]);
    EXPECT_EQ(4, bytes.array[3]);  // as it was
    EXPECT_EQ(-1, stream.read(bytes.array));
    EXPECT_EQ(0, stream.read(bytes.array, 0, 0));
}

TEST(InputStream, skipsByReading) {
    Countdown stream(5);
    EXPECT_EQ(2, stream.skip(2));
    EXPECT_EQ(3, stream.read());
    EXPECT_EQ(0, stream.skip(-1));
    EXPECT_EQ(2, stream.skip(100));
}

TEST(InputStream, neverReadsPastTheArray) {
    Countdown stream(100);
    Bytes bytes(4);
    EXPECT_EQ(2, stream.read(bytes.array, 2, 1000));
    EXPECT_EQ(0, stream.read(bytes.array, 4, 1));
    EXPECT_EQ(0, stream.read(bytes.array, -1, 2));
    EXPECT_EQ(0, stream.read(nullptr, 0, 2));
    EXPECT_EQ(98, stream.read());
}

TEST(ByteArrayInputStream, givesBytesWithoutSignAndThenMinusOne) {
    auto* array = newArray<signed char>(2);
    array[0] = -1;
    array[1] = 0;
    ByteArrayInputStream stream(array);
    EXPECT_EQ(2, stream.available());
    EXPECT_EQ(255, stream.read());
    EXPECT_EQ(0, stream.read());
    EXPECT_EQ(-1, stream.read());
    EXPECT_EQ(-1, stream.read());
    EXPECT_EQ(0, stream.available());
    deleteArrFunc(array);
}

TEST(ByteArrayInputStream, readsOnlyItsPartOfTheArray) {
    Bytes source(10);
    ByteArrayInputStream stream(source.array, 3, 4);
    EXPECT_EQ(4, stream.available());
    Bytes target(10);
    EXPECT_EQ(4, stream.read(target.array));
    EXPECT_EQ(4, target.array[0]);
    EXPECT_EQ(7, target.array[3]);
    EXPECT_EQ(5, target.array[4]);  // as it was
    EXPECT_EQ(-1, stream.read(target.array));
}

TEST(ByteArrayInputStream, aPartBeyondTheArrayIsCut) {
    Bytes source(10);
    EXPECT_EQ(2, ByteArrayInputStream(source.array, 8, 100).available());
    EXPECT_EQ(0, ByteArrayInputStream(source.array, 11, 1).available());
    EXPECT_EQ(0, ByteArrayInputStream(source.array, -1, 5).available());
    EXPECT_EQ(0, ByteArrayInputStream(source.array, 2, -1).available());
    EXPECT_EQ(0, ByteArrayInputStream(nullptr).available());
}

TEST(ByteArrayInputStream, readsIntoTheMiddleOfAnArray) {
    Bytes source(4);
    Bytes target(4);
    ByteArrayInputStream stream(source.array);
    EXPECT_EQ(2, stream.read(target.array, 2, 100));
    EXPECT_EQ(1, target.array[2]);
    EXPECT_EQ(2, target.array[3]);
    EXPECT_EQ(3, stream.read());
}

TEST(ByteArrayInputStream, skipsToTheEndAtMost) {
    Bytes source(4);
    ByteArrayInputStream stream(source.array);
    EXPECT_EQ(0, stream.skip(-2));
    EXPECT_EQ(1, stream.skip(1));
    EXPECT_EQ(2, stream.read());
    EXPECT_EQ(2, stream.skip(100));
    EXPECT_EQ(-1, stream.read());
}

TEST(ByteArrayInputStream, markAndResetDoNothing) {
    Bytes source(4);
    ByteArrayInputStream stream(source.array);
    stream.mark(4);
    stream.read();
    stream.reset();
    EXPECT_EQ(2, stream.read());
    EXPECT_FALSE(stream.markSupported());
}

TEST(ByteArrayInputStream, isAtItsEndWhenItsDataIsGone) {
    ByteArrayInputStream stream(newArray<signed char>(4));
    stream.read();
    stream.disposeBufferData();  // the leak checker sees that the array is freed
    EXPECT_EQ(0, stream.available());
    EXPECT_EQ(-1, stream.read());
}

TEST(BufferedInputStream, passesEverythingThrough) {
    Bytes source(5);
    Bytes target(2);
    ByteArrayInputStream inner(source.array);
    BufferedInputStream stream(&inner);
    EXPECT_EQ(5, stream.available());
    EXPECT_EQ(1, stream.read());
    EXPECT_EQ(2, stream.read(target.array));
    EXPECT_EQ(3, target.array[1]);
    EXPECT_EQ(1, stream.skip(1));
    EXPECT_EQ(1, stream.read(target.array, 0, 2));
    EXPECT_EQ(-1, stream.read());
    EXPECT_FALSE(stream.markSupported());
}

TEST(HttpInputStream, fetchesNothing) {
    HttpInputStream stream;
    Bytes target(2);
    EXPECT_EQ(0, stream.available());
    EXPECT_EQ(-1, stream.read());
    EXPECT_EQ(-1, stream.read(target.array));
    EXPECT_EQ(-1, stream.read(target.array, 0, 1));
    EXPECT_EQ(1, target.array[0]);
}
