// SPDX-License-Identifier: MIT
#include "WindowMemory.h"

#include "ReplacedFile.h"

#include <filesystem>
#include <fstream>
#include <system_error>

namespace {

// Larger than any screen; also keeps products of both within 32 bits.
constexpr int32_t kLargest = 16384;

bool isSensible(const WindowMemory::Size& size) {
    return size.width > 0 && size.width <= kLargest && size.height > 0 && size.height <= kLargest;
}

}  // namespace

WindowMemory::WindowMemory(const std::string& folder)
    : path(folder.empty() ? "" : folder + "/window") {}

WindowMemory::Size WindowMemory::read() const {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        return {};  // reading a pipe would wait for its writer
    }
    std::ifstream file(path);
    Size size;
    file >> size.width >> size.height;
    return file && isSensible(size) ? size : Size{};
}

void WindowMemory::write(Size size) const {
    if (path.empty() || !isSensible(size)) {
        return;
    }
    ReplacedFile::write(path,
                        std::to_string(size.width) + " " + std::to_string(size.height) + "\n");
}
