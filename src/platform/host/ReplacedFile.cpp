#include "ReplacedFile.h"

#include "SafeFile.h"

#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr mode_t kPermissionBits = 07777;

/// The new file may be read and written by whom the old one was made for.
void keepMode(int fd, const std::string& old) {
    struct stat facts = {};
    if (::stat(old.c_str(), &facts) == 0) {
        // A file system without permissions loses nothing by refusing.
        static_cast<void>(::fchmod(fd, facts.st_mode & kPermissionBits) == 0);
    }
}

}  // namespace

bool ReplacedFile::write(const std::string& path, const std::string& text) {
    const std::string target = SafeFile::realTarget(path);
    std::error_code ignored;
    fs::create_directories(fs::path(target).parent_path(), ignored);
    const std::string fresh = target + ".new";
    const int fd = SafeFile::create(fresh);
    if (fd < 0) {
        return false;
    }
    keepMode(fd, target);
    const bool written = SafeFile::writeAll(fd, text.data(), text.size());
    if (SafeFile::finish(fd) && written && SafeFile::replace(fresh, target)) {
        return true;
    }
    ::unlink(fresh.c_str());
    return false;
}
