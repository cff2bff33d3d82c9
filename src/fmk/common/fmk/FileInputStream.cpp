// SPDX-License-Identifier: MIT
#include "FileInputStream.h"

#include "ArrFunc.h"
#include "OspIo.h"

#include <algorithm>

using Osp::Io::File;

FileInputStream::FileInputStream(const Osp::Base::String& path)
    : file(std::make_unique<File>()) {
    if (file->Construct(path, "rb") != E_SUCCESS) {
        file.reset();
    }
}

FileInputStream::~FileInputStream() = default;

int32_t FileInputStream::available() {
    if (file == nullptr) {
        return 0;
    }
    const int32_t position = file->Tell();
    if (position < 0 || file->Seek(Osp::Io::FILESEEKPOSITION_END, 0) != E_SUCCESS) {
        failed = true;
        return 0;
    }
    const int32_t end = file->Tell();
    if (end < 0 || file->Seek(Osp::Io::FILESEEKPOSITION_BEGIN, position) != E_SUCCESS) {
        failed = true;
        return 0;
    }
    return std::max(end - position, 0);
}

void FileInputStream::close() {
    file.reset();
}

int32_t FileInputStream::read() {
    unsigned char byte = 0;
    return file != nullptr && readFile(&byte, 1) == 1 ? byte : -1;
}

int32_t FileInputStream::read(signed char* bytes, int32_t off, int32_t len) {
    if (file == nullptr) {
        return -1;
    }
    const int32_t count = elementsInRange(bytes, off, len);
    return count > 0 ? readFile(bytes + off, count) : 0;
}

int32_t FileInputStream::readFile(void* bytes, int32_t count) {
    const int32_t got = file->Read(bytes, count);
    failed = failed || got < 0;
    return got;
}

int32_t FileInputStream::skip(int32_t n) {
    if (file == nullptr) {
        return 0;
    }
    const int32_t before = file->Tell();
    const int32_t distance = n > 0 ? std::min(n, available()) : n;
    if (file->Seek(Osp::Io::FILESEEKPOSITION_CURRENT, distance) != E_SUCCESS) {
        failed = failed || n > 0;  // back to before the start of the file is no failure
        return 0;
    }
    return file->Tell() - before;
}
