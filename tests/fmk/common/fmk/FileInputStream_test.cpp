// SPDX-License-Identifier: MIT
// A stream over a file reads, skips and remembers a failure.
#include "ArrFunc.h"
#include "DataInputStream.h"
#include "FileInputStream.h"
#include "MIDlet.h"
#include "OspBase.h"
#include "TestFolders.h"
#include "TestHost.h"

#include <gtest/gtest.h>

#include <memory>

using Osp::Base::String;

namespace {

class FileInputStreams : public testing::Test {
protected:
    FileInputStreams() {
        folders.write("home/a.bin", "\xFF"
                                    "bcdefghij");
        host.mappedFolders.home = folders.path("home");
    }

    ~FileInputStreams() override { deleteArrFunc(bytes); }

    TestFolders folders;
    TestHost host;
    signed char* bytes = newArray<signed char>(8);
};

}  // namespace

TEST_F(FileInputStreams, giveBytesWithoutSignAndThenMinusOne) {
    FileInputStream stream("/Home/a.bin");
    EXPECT_EQ(10, stream.available());
    EXPECT_EQ(255, stream.read());
    EXPECT_EQ(8, stream.read(bytes));
    EXPECT_EQ('b', bytes[0]);
    EXPECT_EQ('i', bytes[7]);
    EXPECT_EQ(1, stream.available());
    EXPECT_EQ('j', stream.read());
    EXPECT_EQ(-1, stream.read());
    EXPECT_EQ(0, stream.available());
}

TEST_F(FileInputStreams, aBlockAtTheEndIsShortAndThenEmpty) {
    FileInputStream stream("/Home/a.bin");
    stream.skip(7);
    EXPECT_EQ(3, stream.read(bytes, 0, 8));
    EXPECT_EQ(0, stream.read(bytes, 0, 8));
    EXPECT_EQ('h', bytes[0]);
}

TEST_F(FileInputStreams, neverReadPastTheArray) {
    FileInputStream stream("/Home/a.bin");
    EXPECT_EQ(3, stream.read(bytes, 5, 100));
    EXPECT_EQ(0, stream.read(bytes, 8, 1));
    EXPECT_EQ(0, stream.read(bytes, -1, 4));
    EXPECT_EQ('d', stream.read());
}

TEST_F(FileInputStreams, skipToTheEndAtMostAndBack) {
    FileInputStream stream("/Home/a.bin");
    EXPECT_EQ(4, stream.skip(4));
    EXPECT_EQ('e', stream.read());
    EXPECT_EQ(-2, stream.skip(-2));
    EXPECT_EQ('d', stream.read());
    EXPECT_EQ(6, stream.skip(100));
    EXPECT_EQ(0, stream.available());
    EXPECT_EQ(0, stream.skip(-100));
    EXPECT_EQ(-1, stream.read());
}

TEST_F(FileInputStreams, resetDoesNothing) {
    FileInputStream stream("/Home/a.bin");
    stream.skip(2);
    stream.reset();
    EXPECT_EQ('c', stream.read());
}

TEST_F(FileInputStreams, oneThatDidNotOpenIsAtItsEnd) {
    FileInputStream stream("/Home/missing.bin");
    EXPECT_EQ(0, stream.available());
    EXPECT_EQ(-1, stream.read());
    EXPECT_EQ(-1, stream.read(bytes));
    EXPECT_EQ(-1, stream.read(bytes, 0, 1));
    EXPECT_EQ(0, stream.skip(3));
    EXPECT_EQ(0, bytes[0]);
    stream.close();
}

TEST_F(FileInputStreams, oneThatIsClosedIsAtItsEnd) {
    FileInputStream stream("/Home/a.bin");
    stream.close();
    EXPECT_EQ(0, stream.available());
    EXPECT_EQ(-1, stream.read());
}

TEST_F(FileInputStreams, failuresOfTheFileAreNegative) {
    FileInputStream stream("/Home/a.bin");
    host.failNth("File.Read", 1);
    EXPECT_EQ(-1, stream.read(bytes, 0, 4));
    host.failNth("File.Read", 1);
    EXPECT_EQ(-1, stream.read());
    host.failNth("File.Seek", 1);
    EXPECT_EQ(0, stream.available());
    EXPECT_EQ(255, stream.read());
    host.failNth("File.Seek", 2);  // on the way back
    EXPECT_EQ(0, stream.available());
}

TEST_F(FileInputStreams, anEndIsNoFailure) {
    FileInputStream stream("/Home/a.bin");
    stream.skip(100);
    EXPECT_EQ(0, stream.read(bytes, 0, 8));
    EXPECT_EQ(-1, stream.read());
    EXPECT_EQ(0, stream.skip(-100));
    stream.close();
    EXPECT_EQ(-1, stream.read(bytes));
    EXPECT_FALSE(stream.hasFailed());
    EXPECT_FALSE(FileInputStream("/Home/missing.bin").hasFailed());
}

TEST_F(FileInputStreams, aFailureIsRememberedWhateverCallMetIt) {
    const auto failsAt = [this](const char* operation, int32_t nth, auto call) {
        FileInputStream stream("/Home/a.bin");
        DataInputStream around(&stream);
        host.failNth(operation, nth);
        call(stream);
        EXPECT_EQ(stream.hasFailed(), around.hasFailed());
        stream.read();  // nothing fails any more, and the failure is not forgotten
        return stream.hasFailed();
    };
    EXPECT_TRUE(failsAt("File.Read", 1, [](InputStream& s) { s.read(); }));
    EXPECT_TRUE(failsAt("File.Read", 1, [this](InputStream& s) { s.read(bytes); }));
    EXPECT_TRUE(failsAt("File.Seek", 1, [](InputStream& s) { s.available(); }));
    EXPECT_TRUE(failsAt("File.Seek", 2, [](InputStream& s) { s.available(); }));
    EXPECT_TRUE(failsAt("File.Seek", 3, [](InputStream& s) { s.skip(4); }));
}

TEST_F(FileInputStreams, theMidletOpensThemByEveryFormOfAPath) {
    String path("/Home/a.bin");
    for (FileInputStream* opened :
         {MIDlet::getResourceAsStream(path), MIDlet::getResourceAsStream(&path),
          MIDlet::getResourceAsStream("/Home/a.bin")}) {
        const std::unique_ptr<FileInputStream> stream(opened);
        EXPECT_EQ(10, stream->available());
    }
    const std::unique_ptr<FileInputStream> none(
        MIDlet::getResourceAsStream(static_cast<String*>(nullptr)));
    EXPECT_EQ(-1, none->read());
}
