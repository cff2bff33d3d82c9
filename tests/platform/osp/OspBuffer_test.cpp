// SPDX-License-Identifier: MIT
// A byte buffer keeps its position, limit and capacity in order.
#include "OspBuffer.h"
#include "OspIo.h"
#include "TestFolders.h"
#include "TestHost.h"

#include <gtest/gtest.h>

#include <cstring>

using Osp::Base::ByteBuffer;

namespace {

void fill(ByteBuffer& buffer, const std::string& text) {
    buffer.Construct(static_cast<int32_t>(text.size()));
    std::memcpy(buffer.GetPointer(), text.data(), text.size());
}

}  // namespace

TEST(ByteBuffer, isEmptyOfSenseButFullOfRoomAtFirst) {
    ByteBuffer buffer;
    EXPECT_EQ(0, buffer.GetCapacity());
    EXPECT_EQ(E_SUCCESS, buffer.Construct(10));
    EXPECT_EQ(10, buffer.GetCapacity());
    EXPECT_EQ(10, buffer.GetLimit());
    EXPECT_EQ(0, buffer.GetPosition());
    EXPECT_EQ(0, buffer.GetPointer()[9]);
    EXPECT_NE(E_SUCCESS, buffer.Construct(20));
}

TEST(ByteBuffer, refusesSizesThatAreNone) {
    ByteBuffer buffer;
    EXPECT_NE(E_SUCCESS, buffer.Construct(-1));
    EXPECT_NE(E_SUCCESS, buffer.Construct(INT32_MAX));
    EXPECT_EQ(E_SUCCESS, buffer.Construct(0));
}

TEST(ByteBuffer, keepsPositionLimitAndCapacityInOrder) {
    ByteBuffer buffer;
    buffer.Construct(10);
    EXPECT_NE(E_SUCCESS, buffer.SetLimit(11));
    EXPECT_NE(E_SUCCESS, buffer.SetLimit(-1));
    EXPECT_NE(E_SUCCESS, buffer.SetPosition(11));
    EXPECT_NE(E_SUCCESS, buffer.SetPosition(-1));
    EXPECT_EQ(E_SUCCESS, buffer.SetPosition(8));
    EXPECT_EQ(E_SUCCESS, buffer.SetLimit(5));
    EXPECT_EQ(5, buffer.GetPosition());
    EXPECT_NE(E_SUCCESS, buffer.SetPosition(6));
    buffer.Clear();
    EXPECT_EQ(0, buffer.GetPosition());
    EXPECT_EQ(10, buffer.GetLimit());
}

TEST(ByteBuffer, copiesWhatLiesBetweenPositionAndLimit) {
    ByteBuffer source;
    fill(source, "abcdef");
    source.SetLimit(5);
    source.SetPosition(2);
    ByteBuffer copy;
    copy.Construct(4);
    EXPECT_EQ(E_SUCCESS, copy.CopyFrom(source));
    EXPECT_EQ(3, copy.GetLimit());
    EXPECT_EQ(0, std::memcmp("cde", copy.GetPointer(), 3));
    source.SetPosition(0);
    EXPECT_NE(E_SUCCESS, copy.CopyFrom(source));
    EXPECT_EQ(3, copy.GetLimit());
}

TEST(ByteBuffer, isWrittenFromItsPositionToItsLimit) {
    const TestFolders folders;
    folders.makeFolder("home");
    TestHost host;
    host.mappedFolders.home = folders.path("home");
    Osp::Io::File file;
    file.Construct("/Home/bytes", "wb+");
    ByteBuffer buffer;
    fill(buffer, "abcdef");
    buffer.SetLimit(5);
    buffer.SetPosition(1);
    EXPECT_EQ(E_SUCCESS, file.Write(buffer));
    EXPECT_EQ(1, buffer.GetPosition());
    EXPECT_EQ("bcde", folders.read("home/bytes"));
    host.failNth("File.Write", 1);
    EXPECT_NE(E_SUCCESS, file.Write(buffer));
}
