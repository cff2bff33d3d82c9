// SPDX-License-Identifier: MIT
// Writes a file from its start; replaces a file that was there before. If the file cannot be
// opened, everything written is lost, and the stream has failed.
#pragma once

#include "OutputStream.h"

#include <memory>

namespace Osp::Io {
class File;
}

class FileOutputStream : public OutputStream {
public:
    explicit FileOutputStream(const Osp::Base::String& path);
    ~FileOutputStream() override;

    using OutputStream::write;

    void close() override;
    void write(signed char byte) override;
    void write(signed char* bytes, int32_t off, int32_t len) override;
    void flush() override;

    bool hasFailed() override { return failed; }

private:
    bool failed = false;                  // a byte was lost
    std::unique_ptr<Osp::Io::File> file;  // null if not open
};
