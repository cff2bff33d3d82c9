#include "OspIo.h"

#include "Host.h"
#include "RealPath.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <limits>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

using Osp::Base::String;

namespace Osp::Io {

namespace {

constexpr mode_t kNewFileMode = 0666;    // less what the user's mask takes away
constexpr mode_t kNewFolderMode = 0777;  // likewise
constexpr size_t kCopyBytes = 16384;

struct Mode {
    std::string_view name;
    int flags;
};

constexpr std::array<Mode, 6> kModes = {{
    {"rb", O_RDONLY},
    {"rb+", O_RDWR},
    {"r+b", O_RDWR},
    {"wb", O_WRONLY | O_CREAT | O_TRUNC},
    {"wb+", O_RDWR | O_CREAT | O_TRUNC},
    {"w+b", O_RDWR | O_CREAT | O_TRUNC},
}};

/// Closes a file descriptor when it goes out of sight.
class Descriptor {
public:
    explicit Descriptor(int fd)
        : fd(fd) {}

    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    ~Descriptor() {
        if (fd >= 0) {
            close(fd);
        }
    }

    int get() const { return fd; }

    int release() { return std::exchange(fd, -1); }

private:
    int fd;
};

/// Opens an ordinary file; -1 for everything else: a folder opens for reading as well, and a pipe
/// would wait for its other end.
int openRegular(const RealPath& path, int flags) {
    const bool writes = (flags & O_ACCMODE) != O_RDONLY;
    if (!path.isValid() || path.saysFolder() || (writes && !path.isWritable())) {
        return -1;
    }
    Descriptor fd(
        open(path.path().c_str(), flags | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, kNewFileMode));
    struct stat status = {};
    if (fd.get() < 0 || fstat(fd.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return -1;
    }
    return fd.release();
}

bool writeAll(int fd, const char* bytes, size_t count) {
    while (count > 0) {
        const ssize_t written = write(fd, bytes, count);
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            return false;
        }
        bytes += written;
        count -= static_cast<size_t>(written);
    }
    return true;
}

bool copyBytes(int source, int target) {
    std::array<char, kCopyBytes> bytes = {};
    for (;;) {
        const ssize_t count = read(source, bytes.data(), bytes.size());
        if (count == 0) {
            return true;
        }
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0 || !writeAll(target, bytes.data(), static_cast<size_t>(count))) {
            return false;
        }
    }
}

/// Makes a new file beside the target; -1 if none could be made. One program holds a home: an
/// unfinished copy that lies there already was left by a program that was killed.
int createBeside(const std::string& target, std::string& name) {
    name = target + ".part";
    unlink(name.c_str());
    return open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, kNewFileMode);
}

bool renameOver(const std::string& from, const std::string& to) {
    return !hostFails("File.Rename") && std::rename(from.c_str(), to.c_str()) == 0;
}

/// Gives a file its name unless another file has it. In one step if the file system has such a
/// step, else an empty file takes the name first; that way is not proof against somebody who
/// replaces the empty file, nor against a power cut, which leaves it.
bool renameToFree(const std::string& from, const std::string& to) {
#ifdef RENAME_NOREPLACE
    if (!hostFails("File.RenameToFree")) {
        if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
            return true;
        }
        if (errno == EEXIST) {
            return false;  // whatever else is wrong, the longer way meets it too
        }
    }
#endif
    const Descriptor empty(
        open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, kNewFileMode));
    if (empty.get() < 0) {
        return false;
    }
    if (!renameOver(from, to)) {
        unlink(to.c_str());  // nobody wants an empty sound
        return false;
    }
    return true;
}

/// All bytes on the disk before the rename: after a power cut the target is the old file or the
/// whole new one.
bool fillTemporary(int source, int temporary) {
    Descriptor target(temporary);
    return copyBytes(source, target.get()) && fsync(target.get()) == 0 &&
           close(target.release()) == 0;
}

int whenceOf(FileSeekPosition position) {
    switch (position) {
    case FILESEEKPOSITION_BEGIN:
        return SEEK_SET;
    case FILESEEKPOSITION_CURRENT:
        return SEEK_CUR;
    default:
        return SEEK_END;
    }
}

bool isFolder(const std::string& path) {
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

File::~File() {
    if (file != nullptr) {
        std::fclose(file);
    }
}

result File::Construct(const String& path, const char* openMode, bool /*createParentFolders*/) {
    if (hostFails("File.Construct") || file != nullptr || openMode == nullptr) {
        return E_FAILURE;
    }
    for (const Mode& mode : kModes) {
        if (mode.name != openMode) {
            continue;
        }
        Descriptor fd(openRegular(RealPath(path), mode.flags));
        if (fd.get() < 0) {
            return E_FAILURE;
        }
        file = fdopen(fd.get(), openMode);
        if (file == nullptr) {
            return E_FAILURE;
        }
        fd.release();
        return E_SUCCESS;
    }
    return E_FAILURE;
}

result File::Construct(const String& path, const char16_t* openMode, bool createParentFolders) {
    if (openMode == nullptr) {
        return Construct(path, static_cast<const char*>(nullptr), createParentFolders);
    }
    return Construct(path, String(openMode).ToUtf8().c_str(), createParentFolders);
}

int32_t File::Read(void* buffer, int32_t lengthBytes) {
    if (hostFails("File.Read") || !turnTo(Direction::kReading)) {
        return -1;
    }
    if (lengthBytes <= 0) {
        return 0;
    }
    const size_t count = std::fread(buffer, 1, static_cast<size_t>(lengthBytes), file);
    if (count == 0 && std::feof(file) == 0) {
        return -1;
    }
    return static_cast<int32_t>(count);
}

result File::Write(const void* buffer, int32_t lengthBytes) {
    if (hostFails("File.Write") || lengthBytes < 0 || !turnTo(Direction::kWriting)) {
        return E_FAILURE;
    }
    const auto count = static_cast<size_t>(lengthBytes);
    if (std::fwrite(buffer, 1, count, file) != count) {
        return E_FAILURE;
    }
    if (count > 1 && std::fflush(file) != 0) {
        return E_FAILURE;
    }
    return E_SUCCESS;
}

result File::Write(const Osp::Base::ByteBuffer& buffer) {
    return Write(buffer.GetPointer() + buffer.GetPosition(), buffer.GetRemaining());
}

result File::Seek(FileSeekPosition position, int32_t offsetBytes) {
    if (hostFails("File.Seek") || file == nullptr) {
        return E_FAILURE;
    }
    return fseeko(file, offsetBytes, whenceOf(position)) == 0 ? E_SUCCESS : E_FAILURE;
}

int32_t File::Tell() const {
    if (file == nullptr) {
        return -1;
    }
    constexpr off_t kMost = std::numeric_limits<int32_t>::max();
    return static_cast<int32_t>(std::min(ftello(file), kMost));
}

result File::Flush() {
    if (hostFails("File.Flush") || file == nullptr) {
        return E_FAILURE;
    }
    // A file that has lost bytes before never claims to be whole again.
    return std::fflush(file) == 0 && std::ferror(file) == 0 ? E_SUCCESS : E_FAILURE;
}

bool File::IsFileExist(const String& path) {
    const RealPath real(path);
    struct stat status = {};
    return real.isValid() && stat(real.path().c_str(), &status) == 0 &&
           (!real.saysFolder() || S_ISDIR(status.st_mode));
}

result File::Remove(const String& path) {
    if (hostFails("File.Remove")) {
        return E_FAILURE;
    }
    const RealPath real(path);
    if (!real.isValid() || !real.isWritable() || real.saysFolder()) {
        return E_FAILURE;
    }
    return unlink(real.path().c_str()) == 0 ? E_SUCCESS : E_FAILURE;
}

result File::Copy(const String& source, const String& target, bool failIfExists) {
    if (hostFails("File.Copy")) {
        return E_FAILURE;
    }
    const RealPath to(target);
    if (!to.isValid() || !to.isWritable() || to.saysFolder()) {
        return E_FAILURE;
    }
    const Descriptor from(openRegular(RealPath(source), O_RDONLY));
    std::string temporaryName;
    const int temporary = from.get() < 0 ? -1 : createBeside(to.path(), temporaryName);
    if (temporary < 0) {
        return E_FAILURE;
    }
    if (fillTemporary(from.get(), temporary) &&
        (failIfExists ? renameToFree(temporaryName, to.path())
                      : renameOver(temporaryName, to.path()))) {
        return E_SUCCESS;
    }
    unlink(temporaryName.c_str());
    return E_FAILURE;
}

bool File::turnTo(Direction wanted) {
    if (file == nullptr) {
        return false;
    }
    // The C library wants a seek between writing and reading.
    if (direction != wanted && direction != Direction::kNone && fseeko(file, 0, SEEK_CUR) != 0) {
        return false;
    }
    direction = wanted;
    return true;
}

result DirEnumerator::MoveNext() {
    if (index + 1 >= static_cast<int32_t>(entries.size())) {
        return E_FAILURE;
    }
    index++;
    return E_SUCCESS;
}

result Directory::Construct(const String& path) {
    realPath.clear();
    if (hostFails("Directory.Construct")) {
        return E_FAILURE;
    }
    const RealPath real(path);
    if (!real.isValid() || !isFolder(real.path())) {
        return E_FAILURE;
    }
    realPath = real.path();
    return E_SUCCESS;
}

DirEnumerator* Directory::ReadN() {
    if (hostFails("Directory.Read") || realPath.empty()) {
        return nullptr;
    }
    DIR* folder = opendir(realPath.c_str());
    if (folder == nullptr) {
        return nullptr;
    }
    std::vector<std::string> names;
    errno = 0;
    while (const dirent* entry = readdir(folder)) {
        names.emplace_back(entry->d_name);
        errno = 0;
    }
    const bool complete = errno == 0;
    closedir(folder);
    if (!complete) {
        return nullptr;
    }
    std::sort(names.begin(), names.end());
    std::vector<DirEntry> entries;
    for (const std::string& name : names) {
        if (name != "." && name != "..") {
            entries.emplace_back(String(name.c_str()));
        }
    }
    return new DirEnumerator(std::move(entries));
}

result Directory::Create(const String& path, bool createParentFolders) {
    if (hostFails("Directory.Create")) {
        return E_FAILURE;
    }
    const RealPath real(path);
    if (!real.isValid() || !real.isWritable()) {
        return E_FAILURE;
    }
    const std::string& folder = real.path();
    // Folders above the root exist: making them again fails and does no harm.
    for (size_t slash = folder.find('/', 1); createParentFolders && slash != std::string::npos;
         slash = folder.find('/', slash + 1)) {
        mkdir(folder.substr(0, slash).c_str(), kNewFolderMode);
    }
    return mkdir(folder.c_str(), kNewFolderMode) == 0 ? E_SUCCESS : E_FAILURE;
}

}  // namespace Osp::Io
