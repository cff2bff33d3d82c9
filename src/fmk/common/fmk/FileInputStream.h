// SPDX-License-Identifier: MIT
// Reads a file. One that could not be opened is at its end from the start: available() returns 0,
// read() -1. If the platform reports an error, the stream has failed (see hasFailed()).
#pragma once

#include "InputStream.h"

#include <memory>

namespace Osp::Io {
class File;
}

class FileInputStream : public InputStream {
public:
    explicit FileInputStream(const Osp::Base::String& path);
    ~FileInputStream() override;

    using InputStream::read;

    /// Bytes from here to the end of the file.
    int32_t available() override;

    /// Closes the file; after that the stream is at its end.
    void close() override;
    int32_t read() override;

    /// Returns the number of bytes read, as the platform reports it: 0 at the end, negative for a
    /// failure.
    int32_t read(signed char* bytes, int32_t off, int32_t len) override;

    bool hasFailed() override { return failed; }

    /// Moves n bytes on, not beyond the end (a negative n moves back); returns the distance moved.
    int32_t skip(int32_t n) override;

private:
    int32_t readFile(void* bytes, int32_t count);

    bool failed = false;                  // a read or a look at the size failed
    std::unique_ptr<Osp::Io::File> file;  // null if not open
};
