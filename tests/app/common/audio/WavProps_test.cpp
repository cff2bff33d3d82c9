// SPDX-License-Identifier: MIT
// A WAV header is written and read field by field, and defects in it are ignored.
#include "AudioSupport.h"
#include "WavProps.h"

#include <gtest/gtest.h>

#include <string>

using audio::Array;
using Bytes = std::vector<signed char>;

namespace {

Bytes headerOf(WavProps props) {
    const Array<signed char> array(props.toByteArray());
    return audio::toVector(array.get());
}

uint32_t at(const Bytes& bytes, size_t off, size_t count) {
    uint32_t value = 0;
    for (size_t i = count; i > 0; i--) {
        value = value << 8 | static_cast<uint8_t>(bytes[off + i - 1]);
    }
    return value;
}

std::string textAt(const Bytes& bytes, size_t off) {
    return std::string(bytes.begin() + static_cast<int64_t>(off),
                       bytes.begin() + static_cast<int64_t>(off) + 4);
}

void expectFields(const WavProps& props, const std::vector<int32_t>& fields) {
    EXPECT_EQ(fields[0], props.getAudioFormat());
    EXPECT_EQ(fields[1], props.getChannels());
    EXPECT_EQ(fields[2], props.getSampleRate());
    EXPECT_EQ(fields[3], props.getByteRate());
    EXPECT_EQ(fields[4], props.getBlockAlign());
    EXPECT_EQ(fields[5], props.getBitsPerSample());
    EXPECT_EQ(fields[6], props.getSampleCount());
}

}  // namespace

TEST(WavProps, defaultsAreTheMicrophonesWithUnknownLength) {
    expectFields(WavProps(), {1, 1, 16000, 32000, 2, 16, -1});
}

TEST(WavProps, lengthAloneKeepsTheMicrophonesRate) {
    expectFields(WavProps(77), {1, 1, 16000, 32000, 2, 16, 77});
}

TEST(WavProps, lengthAndRateSetTheByteRate) {
    expectFields(WavProps(77, 8000), {1, 1, 8000, 16000, 2, 16, 77});
}

TEST(WavProps, copyTakesAllSevenFields) {
    const WavProps other(3, 2, 44100, 5, 6, 7, 8);
    expectFields(WavProps(&other), {3, 2, 44100, 5, 6, 7, 8});
}

TEST(WavProps, copyWithLengthTakesTheOtherSix) {
    const WavProps other(3, 2, 44100, 5, 6, 7, 8);
    expectFields(WavProps(&other, 99), {3, 2, 44100, 5, 6, 7, 99});
}

TEST(WavProps, copyWithLengthAndRateWorksTheByteRateOut) {
    const WavProps other(3, 2, 44100, 5, 6, 7, 8);
    expectFields(WavProps(&other, 99, 8000), {3, 2, 8000, 16000, 6, 7, 99});
}

TEST(WavProps, headerOfOneSampleSays38And2) {
    const Bytes header = headerOf(WavProps(1, 8000));
    ASSERT_EQ(static_cast<size_t>(WavProps::kHeaderBytes), header.size());
    EXPECT_EQ(38U, at(header, 4, 4));
    EXPECT_EQ(2U, at(header, 40, 4));
}

TEST(WavProps, headerHoldsEveryFieldAtItsPlace) {
    const Bytes header = headerOf(WavProps(0x11223, 8000));
    EXPECT_EQ("RIFF", textAt(header, 0));
    EXPECT_EQ(36U + 2U * 0x11223U, at(header, 4, 4));
    EXPECT_EQ("WAVE", textAt(header, 8));
    EXPECT_EQ("fmt ", textAt(header, 12));
    EXPECT_EQ(16U, at(header, 16, 4));
    EXPECT_EQ(1U, at(header, 20, 2));
    EXPECT_EQ(1U, at(header, 22, 2));
    EXPECT_EQ(8000U, at(header, 24, 4));
    EXPECT_EQ(16000U, at(header, 28, 4));
    EXPECT_EQ(2U, at(header, 32, 2));
    EXPECT_EQ(16U, at(header, 34, 2));
    EXPECT_EQ("data", textAt(header, 36));
    EXPECT_EQ(2U * 0x11223U, at(header, 40, 4));
}

TEST(WavProps, sizesFollowTheSampleCountWhateverTheOtherFieldsSay) {
    const Bytes header = headerOf(WavProps(1, 6, 96000, 1, 12, 32, 10));
    EXPECT_EQ(56U, at(header, 4, 4));
    EXPECT_EQ(20U, at(header, 40, 4));
}

TEST(WavProps, sixteenBitFieldsAreStoredAsTheirLowHalf) {
    const Bytes header = headerOf(WavProps(0x12345, 0x20001, 8000, 16000, 0x30002, 0x40010, 1));
    EXPECT_EQ(0x2345U, at(header, 20, 2));
    EXPECT_EQ(1U, at(header, 22, 2));
    EXPECT_EQ(2U, at(header, 32, 2));
    EXPECT_EQ(16U, at(header, 34, 2));
}

TEST(WavProps, headerOfMoreThanAMinuteIsWrittenAllTheSame) {
    const Bytes header = headerOf(WavProps(480001, 8000));
    EXPECT_EQ("RIFF", textAt(header, 0));
    EXPECT_EQ(960002U, at(header, 40, 4));
}

TEST(WavProps, headerOfUnknownLengthIsWrittenAllTheSame) {
    const Bytes header = headerOf(WavProps());
    EXPECT_EQ(34U, at(header, 4, 4));
    EXPECT_EQ(0xFFFFFFFEU, at(header, 40, 4));
}

TEST(WavProps, writingAtAnOffsetLeavesTheRestAlone) {
    const Array<signed char> array = audio::toArray(Bytes(50, 7));
    WavProps(1, 8000).toByteArray(array.get(), 3);
    EXPECT_EQ(7, array[2]);
    EXPECT_EQ('R', array[3]);
    EXPECT_EQ(2, array[43]);
    EXPECT_EQ(7, array[47]);
}

TEST(WavProps, writingWithoutRoomStaysInsideTheArray) {
    const Array<signed char> array = audio::toArray(Bytes(20, 7));
    WavProps(1, 8000).toByteArray(array.get(), 16);
    EXPECT_EQ(7, array[15]);
    EXPECT_EQ('R', array[16]);
    EXPECT_EQ('F', array[19]);
    WavProps(1, 8000).toByteArray(array.get(), -42);
    EXPECT_EQ(0, array[0]);  // the last two bytes of the header: the upper half of 2
    EXPECT_EQ(0, array[1]);
    EXPECT_EQ(7, array[2]);
}

TEST(WavProps, headerWrittenAndReadIsTheSame) {
    const Array<signed char> array(WavProps(480000, 8000).toByteArray());
    expectFields(WavProps(array.get()), {1, 1, 8000, 16000, 2, 16, 480000});
}

TEST(WavProps, malformedTextsAndFmtSizeAreForgiven) {
    Bytes header = headerOf(WavProps(5, 8000));
    header[0] = 'X';
    header[9] = 'X';
    header[13] = 'X';
    header[16] = 18;
    header[37] = 'X';
    expectFields(WavProps(audio::toArray(header).get()), {1, 1, 8000, 16000, 2, 16, 5});
}

TEST(WavProps, fieldsOfTwoBytesAreReadUnsigned) {
    Bytes header = headerOf(WavProps(5, 8000));
    header[20] = header[21] = -1;
    header[34] = header[35] = -1;
    expectFields(WavProps(audio::toArray(header).get()), {65535, 1, 8000, 16000, 2, 65535, 5});
}

TEST(WavProps, oddDataSizeDropsTheHalfSample) {
    Bytes header = headerOf(WavProps(5, 8000));
    header[40] = 11;
    EXPECT_EQ(5, WavProps(audio::toArray(header).get()).getSampleCount());
}

TEST(WavProps, negativeDataSizeIsANegativeCountRoundedDown) {
    Bytes header = headerOf(WavProps(5, 8000));
    header[40] = header[41] = header[42] = header[43] = -1;
    EXPECT_EQ(-1, WavProps(audio::toArray(header).get()).getSampleCount());
}

TEST(WavProps, riffSizeIsNeverRead) {
    Bytes header = headerOf(WavProps(5, 8000));
    header[4] = header[5] = header[6] = header[7] = -1;
    expectFields(WavProps(audio::toArray(header).get()), {1, 1, 8000, 16000, 2, 16, 5});
}

TEST(WavProps, shortHeaderReadsAsIfZerosFollowed) {
    Bytes header = headerOf(WavProps(5, 8000));
    header.resize(26);
    expectFields(WavProps(audio::toArray(header).get()), {1, 1, 8000, 0, 0, 0, 0});
}
