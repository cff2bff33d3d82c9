#include "WindowMemory.h"

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
    std::ifstream file(path);
    Size size;
    file >> size.width >> size.height;
    return file && isSensible(size) ? size : Size{};
}

void WindowMemory::write(Size size) const {
    if (path.empty() || !isSensible(size)) {
        return;
    }
    std::error_code error;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path(), error);
    const std::string fresh = path + ".new";
    std::ofstream file(fresh);
    file << size.width << " " << size.height << "\n";
    file.close();
    if (file) {
        std::filesystem::rename(fresh, path, error);  // the old size or the new one, never half
    }
    if (!file || error) {
        std::filesystem::remove(fresh, error);
    }
}
