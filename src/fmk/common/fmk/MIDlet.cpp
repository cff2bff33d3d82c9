// SPDX-License-Identifier: MIT
#include "MIDlet.h"

#include "FileInputStream.h"
#include "OspBase.h"

using Osp::Base::String;

FileInputStream* MIDlet::getResourceAsStream(String& path) {
    return new FileInputStream(path);
}

FileInputStream* MIDlet::getResourceAsStream(String* path) {
    return new FileInputStream(path == nullptr ? String() : *path);
}

FileInputStream* MIDlet::getResourceAsStream(const char* path) {
    return new FileInputStream(path == nullptr ? String() : String(path));
}
