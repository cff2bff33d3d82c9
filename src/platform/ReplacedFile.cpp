#include "ReplacedFile.h"

#include <cstdio>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

bool writeWhole(const std::string& path, const std::string& text) {
    std::FILE* file = std::fopen(path.c_str(), "wbe");
    if (file == nullptr) {
        return false;
    }
    bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    written = std::fflush(file) == 0 && written;
    written = ::fsync(::fileno(file)) == 0 && written;
    return std::fclose(file) == 0 && written;
}

}  // namespace

bool ReplacedFile::write(const std::string& path, const std::string& text) {
    std::error_code error;
    fs::create_directories(fs::path(path).parent_path(), error);
    const std::string fresh = path + ".new";
    bool replaced = writeWhole(fresh, text);
    if (replaced) {
        fs::rename(fresh, path, error);
        replaced = !error;
    }
    if (!replaced) {
        fs::remove(fresh, error);
    }
    return replaced;
}
