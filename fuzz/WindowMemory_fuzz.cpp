// SPDX-License-Identifier: MIT
// Fuzzes the stored size of the window: it is usable or none, and a size that is written can be
// read again.
#include "TestFolders.h"
#include "WindowMemory.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

constexpr size_t kMaxInputBytes = 1 << 12;
constexpr int32_t kLargest = 16384;

bool isSensible(int32_t edge) {
    return edge > 0 && edge <= kLargest;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size > kMaxInputBytes) {
        return 0;
    }
    static const TestFolders folders;
    folders.write("window", std::string(data, data + size));
    const WindowMemory memory(folders.path("."));
    const WindowMemory::Size kept = memory.read();
    if (!kept.isKnown()) {
        return 0;
    }
    if (!isSensible(kept.width) || !isSensible(kept.height)) {
        std::abort();
    }
    memory.write(kept);
    const WindowMemory::Size again = memory.read();
    if (again.width != kept.width || again.height != kept.height) {
        std::abort();
    }
    return 0;
}
