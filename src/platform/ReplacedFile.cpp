#include "ReplacedFile.h"

#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr mode_t kNewFileMode = 0666;  // less what the user's mask takes away

/// A file of its own, whatever lay there: a pipe would wait for its other end. Null where none can
/// be made.
std::FILE* openNew(const std::string& path) {
    std::error_code error;
    fs::remove(path, error);
    const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFileMode);
    return fd >= 0 ? ::fdopen(fd, "wb") : nullptr;
}

bool writeWhole(const std::string& path, const std::string& text) {
    std::FILE* file = openNew(path);
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
