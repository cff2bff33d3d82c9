// SPDX-License-Identifier: MIT
#include "OspIo.h"

#include "Host.h"
#include "OrdinaryFile.h"
#include "RealPath.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <limits>
#include <string_view>
#include <sys/stat.h>
#include <utility>

using Osp::Base::String;

namespace Osp::Io {

namespace {

constexpr mode_t kNewFileMode = 0666;  // before the umask

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

/// True if these flags of open() ask for writing.
bool isWriting(int flags) {
    return (flags & O_ACCMODE) != O_RDONLY;
}

}  // namespace

int openOrdinary(const RealPath& path, int flags) {
    const bool writes = isWriting(flags);
    if (!path.isValid() || path.saysFolder() || (writes && !path.isWritable())) {
        return -1;
    }
    // Below the writable roots the path has been resolved already; a link that appears at its end
    // is not followed.
    const int links = path.isWritable() ? O_NOFOLLOW : 0;
    Descriptor fd(open(path.path().c_str(), flags | links | O_CLOEXEC | O_NONBLOCK, kNewFileMode));
    struct stat status = {};
    if (fd.get() < 0 || fstat(fd.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return -1;
    }
    return fd.release();
}

File::WriteError File::writeError;

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
        // For writing, a link is not followed: that would change a file with another name.
        const RealPath real(path, isWriting(mode.flags) ? LastLink::kKeep : LastLink::kFollow);
        Descriptor fd(openOrdinary(real, mode.flags));
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
    if (hostFails("File.Write")) {
        return failWrite(ENOSPC);
    }
    if (lengthBytes < 0) {
        return failWrite(EINVAL);
    }
    if (!turnTo(Direction::kWriting)) {
        return failWrite(errno);
    }
    const auto count = static_cast<size_t>(lengthBytes);
    if (std::fwrite(buffer, 1, count, file) != count || (count > 1 && std::fflush(file) != 0)) {
        return failWrite(errno);
    }
    return E_SUCCESS;
}

result File::failWrite(int32_t number) {
    struct stat status = {};
    const bool isKnown = file != nullptr && fstat(fileno(file), &status) == 0;
    writeError = {number, isKnown ? static_cast<int64_t>(status.st_size) : 0};
    return E_FAILURE;
}

File::WriteError File::takeWriteError() {
    return std::exchange(writeError, {});
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
    constexpr off_t kMax = std::numeric_limits<int32_t>::max();
    return static_cast<int32_t>(std::min(ftello(file), kMax));
}

result File::Flush() {
    if (hostFails("File.Flush") || file == nullptr) {
        return E_FAILURE;
    }
    // ferror() too: after a failed write the file is incomplete, even if this flush succeeds.
    return std::fflush(file) == 0 && std::ferror(file) == 0 ? E_SUCCESS : E_FAILURE;
}

bool File::turnTo(Direction wanted) {
    if (file == nullptr) {
        errno = EBADF;
        return false;
    }
    // The C library demands a seek between writing and reading.
    if (direction != wanted && direction != Direction::kNone && fseeko(file, 0, SEEK_CUR) != 0) {
        return false;
    }
    direction = wanted;
    return true;
}

}  // namespace Osp::Io
