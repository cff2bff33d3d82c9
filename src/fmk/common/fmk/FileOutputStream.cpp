// SPDX-License-Identifier: MIT
#include "FileOutputStream.h"

#include "ArrFunc.h"
#include "OspIo.h"

using Osp::Io::File;

FileOutputStream::FileOutputStream(const Osp::Base::String& path)
    : file(std::make_unique<File>()) {
    File::MakeWay(path);
    if (file->Construct(path, "wb+") != E_SUCCESS) {
        file.reset();
        failed = true;
    }
}

FileOutputStream::~FileOutputStream() = default;

void FileOutputStream::close() {
    file.reset();
}

void FileOutputStream::write(signed char byte) {
    if (file == nullptr || file->Write(&byte, 1) != E_SUCCESS) {
        failed = true;
    }
}

void FileOutputStream::write(signed char* bytes, int32_t off, int32_t len) {
    const int32_t count = elementsInRange(bytes, off, len);
    if (count > 0 && (file == nullptr || file->Write(bytes + off, count) != E_SUCCESS)) {
        failed = true;
    }
}

void FileOutputStream::flush() {
    if (file != nullptr && file->Flush() != E_SUCCESS) {
        failed = true;
    }
}
