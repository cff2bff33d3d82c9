// SPDX-License-Identifier: MIT
// A stream into a file replaces what was there and writes everything by the time it is closed.
#include "ArrFunc.h"
#include "FileOutputStream.h"
#include "OspBase.h"
#include "TestFolders.h"
#include "TestHost.h"

#include <gtest/gtest.h>

namespace {

class FileOutputStreams : public testing::Test {
protected:
    FileOutputStreams() {
        host.mapHome(folders);
        for (int32_t i = 0; i < length(bytes); i++) {
            bytes[i] = static_cast<signed char>('a' + i);
        }
    }

    ~FileOutputStreams() override { deleteArrFunc(bytes); }

    TestFolders folders;
    TestHost host;
    signed char* bytes = newArray<signed char>(4);
};

}  // namespace

TEST_F(FileOutputStreams, startWithAnEmptyFileWhereOneExists) {
    folders.write("home/a.bin", "something longer");
    {
        const FileOutputStream stream("/Home/a.bin");
        EXPECT_EQ("", folders.read("home/a.bin"));
    }
    EXPECT_TRUE(folders.has("home/a.bin"));
}

TEST_F(FileOutputStreams, removeTheOldFileFirst) {
    folders.write("home/a.bin", "old");
    host.failNth("File.Construct", 1);
    const FileOutputStream stream("/Home/a.bin");
    EXPECT_FALSE(folders.has("home/a.bin"));
}

TEST_F(FileOutputStreams, writeBytesArraysAndRanges) {
    FileOutputStream stream("/Home/a.bin");
    stream.write('x');
    stream.write(bytes);
    stream.write(bytes, 2, 100);
    stream.write(bytes, 4, 1);
    stream.write('y');
    stream.flush();
    EXPECT_EQ("xabcdcdy", folders.read("home/a.bin"));
}

TEST_F(FileOutputStreams, closingWritesWhatIsLeftAndEndsTheStream) {
    FileOutputStream stream("/Home/a.bin");
    stream.write('x');
    stream.close();
    EXPECT_EQ("x", folders.read("home/a.bin"));
    stream.write('y');
    stream.flush();
    EXPECT_EQ("x", folders.read("home/a.bin"));
}

TEST_F(FileOutputStreams, oneThatDidNotOpenTakesNothing) {
    FileOutputStream stream("/Home/missing/a.bin");
    stream.write('x');
    stream.write(bytes);
    stream.flush();
    stream.close();
    EXPECT_FALSE(folders.has("home/missing"));
}
