// SPDX-License-Identifier: MIT
// Fuzzes the addresses of files that desktops hand over: the path that is found is a full one and
// has the address from which it can be found again; anything else is a path already, or an error.
#include "FileUri.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

constexpr size_t kMaxInputBytes = 1 << 12;
constexpr const char* kUntouched = "untouched";

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void checkThereAndBack(const std::string& path) {
    std::string again;
    require(!FileUri::toPath(FileUri::fromPath(path), again));
    require(again == path);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size > kMaxInputBytes) {
        return 0;
    }
    std::string text(data, data + size);
    text.resize(text.find('\0') != std::string::npos ? text.find('\0') : text.size());
    const std::string name = FileUri::nameIn(text);
    require(text.size() >= name.size() && (text.empty() || !name.empty()));
    require(text.compare(text.size() - name.size(), name.size(), name) == 0);
    checkThereAndBack("/" + text);
    std::string path = kUntouched;
    if (FileUri::toPath(text, path)) {
        require(path == kUntouched);
        return 0;
    }
    if (path != text) {
        require(path[0] == '/' && path.find('\0') == std::string::npos);
        checkThereAndBack(path);
    }
    return 0;
}
