// SPDX-License-Identifier: MIT
#include "MicrophoneMemory.h"

#include "ReplacedFile.h"
#include "SafeFile.h"

#include <filesystem>
#include <fstream>
#include <system_error>

namespace {

constexpr size_t kMaxBytes = 1000;  // of a name

}  // namespace

MicrophoneMemory::MicrophoneMemory(const std::string& folder)
    : path(folder.empty() ? "" : folder + "/microphone") {}

std::string MicrophoneMemory::read() const {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        return "";  // reading a pipe would wait for its writer
    }
    std::ifstream file(path);
    std::string name;
    std::getline(file, name);
    return name.size() <= kMaxBytes ? name : "";
}

Problem MicrophoneMemory::write(const std::string& name) const {
    if (path.empty() || ReplacedFile::write(path, name + "\n")) {
        return Problem::none();
    }
    return SafeFile::lastError();
}
