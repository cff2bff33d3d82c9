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

std::function<Problem()> MicrophoneMemory::storing(const std::string& name) {
    return [path = path, name, shared = shared, number = ++shared->newest]() -> Problem {
        const std::lock_guard<std::mutex> lock(shared->writing);
        if (path.empty() || number != shared->newest || ReplacedFile::write(path, name + "\n")) {
            return Problem::none();
        }
        return SafeFile::lastError();
    };
}
