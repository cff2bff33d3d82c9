// SPDX-License-Identifier: MIT
// Streams that wrap other streams pass on every call and its result.
#include "BufferedInputStream.h"
#include "DataInputStream.h"
#include "OutputStream.h"

#include <gtest/gtest.h>

namespace {

using Notes = std::vector<std::string>;

/// Records every call and returns numbers of its own.
class Noting : public InputStream {
public:
    int32_t available() override {
        notes.emplace_back("available");
        return 11;
    }

    void close() override { notes.emplace_back("close"); }

    void mark(int32_t readLimit) override { notes.push_back("mark " + std::to_string(readLimit)); }

    bool markSupported() override {
        notes.emplace_back("markSupported");
        return true;
    }

    int32_t read() override {
        notes.emplace_back("read");
        return 12;
    }

    int32_t read(signed char*) override {
        notes.emplace_back("read array");
        return 13;
    }

    int32_t read(signed char*, int32_t off, int32_t len) override {
        notes.push_back("read " + std::to_string(off) + " " + std::to_string(len));
        return 14;
    }

    void reset() override { notes.emplace_back("reset"); }

    int32_t skip(int32_t n) override {
        notes.push_back("skip " + std::to_string(n));
        return 15;
    }

    void disposeBufferData() override { notes.emplace_back("dispose"); }

    Notes notes;
};

void expectHandsEverythingOn(InputStream& outer, const Noting& inner) {
    signed char byte = 0;
    EXPECT_EQ(11, outer.available());
    outer.close();
    outer.mark(7);
    EXPECT_TRUE(outer.markSupported());
    EXPECT_EQ(12, outer.read());
    EXPECT_EQ(13, outer.read(&byte));
    EXPECT_EQ(14, outer.read(&byte, 2, 3));
    outer.reset();
    EXPECT_EQ(15, outer.skip(9));
    outer.disposeBufferData();
    EXPECT_EQ((Notes{"available", "close", "mark 7", "markSupported", "read", "read array",
                     "read 2 3", "reset", "skip 9", "dispose"}),
              inner.notes);
}

/// A stream with only what every stream must have.
class Plain : public OutputStream {
public:
    using OutputStream::write;

    void write(signed char byte) override { written.push_back(byte); }

    std::vector<int32_t> written;
};

}  // namespace

TEST(Wrappers, aBufferedStreamHandsEverythingOn) {
    Noting inner;
    BufferedInputStream outer(&inner);
    expectHandsEverythingOn(outer, inner);
}

TEST(Wrappers, aDataStreamHandsEverythingOn) {
    Noting inner;
    DataInputStream outer(&inner);
    expectHandsEverythingOn(outer, inner);
}

TEST(Wrappers, aPlainOutputHasNothingToCloseOrFlushAndNeverFails) {
    Plain out;
    out.write(3);
    out.close();
    out.flush();
    EXPECT_FALSE(out.hasFailed());
    EXPECT_EQ(std::vector<int32_t>{3}, out.written);
}
