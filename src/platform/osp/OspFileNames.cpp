// SPDX-License-Identifier: MIT
// Operations on files by their names: test, remove, copy.
#include "Host.h"
#include "OrdinaryFile.h"
#include "OspIo.h"
#include "RealPath.h"
#include "SafeFile.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using Osp::Base::String;

namespace Osp::Io {

namespace {

constexpr size_t kCopyBytes = 16384;

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
        if (count < 0 || !SafeFile::writeAll(target, bytes.data(), static_cast<size_t>(count))) {
            return false;
        }
    }
}

/// The name of an unfinished copy. Only one program uses a home, so an existing file of that name
/// was left by a program that was killed.
std::string besideOf(const std::string& target) {
    return target + ".part";
}

bool renameOver(const std::string& from, const std::string& to) {
    return !hostFails("File.Rename") && SafeFile::over(from, to);
}

bool renameAtOnce(const std::string& from, const std::string& to) {
    if (hostFails("File.RenameToFree")) {
        errno = ENOSYS;  // as if the file system could not do it
        return false;
    }
    return SafeFile::atOnce(from, to);
}

/// Renames, unless another file has the new name.
result renameToFree(const std::string& from, const std::string& to) {
    if (SafeFile::renameToFree(from, to, renameAtOnce, renameOver)) {
        return E_SUCCESS;
    }
    return errno == EEXIST ? E_FILE_ALREADY_EXIST : E_FAILURE;
}

bool moveAside(const std::string& path, std::string* newName = nullptr) {
    return !hostFails("File.MoveAside") && SafeFile::moveAside(path, newName);
}

/// Renames; a file that has the new name is moved aside first.
result renameKeeping(const std::string& from, const std::string& to) {
    std::string aside;
    if (!moveAside(to, &aside)) {
        return E_FAILURE;
    }
    const result r = renameToFree(from, to);
    if (r != E_SUCCESS && !aside.empty()) {
        // Gives the old file its name back. If another program has taken the name meanwhile, the
        // old file stays aside.
        static_cast<void>(SafeFile::renameToFree(aside, to));
    }
    return r;
}

/// Syncs the names in the folder, so that after a power cut the target is the old file or the whole
/// new one.
bool syncFolderOf(const std::string& path) {
    return !hostFails("File.SyncFolder") && SafeFile::syncFolderOf(path);
}

/// Copies into a new file beside the target. rename(from, to) gives it the target's name, only once
/// all its bytes are on the disk.
template <typename Rename>
result copyBeside(const String& source, const RealPath& to, Rename rename) {
    if (!to.isValid() || !to.isWritable() || to.saysFolder()) {
        return E_FAILURE;
    }
    const Descriptor from(openOrdinary(RealPath(source), O_RDONLY));
    const std::string temporary = besideOf(to.path());
    Descriptor target(from.get() < 0 ? -1 : SafeFile::create(temporary));
    if (target.get() < 0) {
        return E_FAILURE;
    }
    result r = E_FAILURE;
    if (copyBytes(from.get(), target.get()) && SafeFile::finish(target.release())) {
        r = rename(temporary, to.path());
    }
    if (r != E_SUCCESS) {
        unlink(temporary.c_str());
        return r;
    }
    if (!syncFolderOf(to.path())) {
        return E_FAILURE;
    }
    Host::current().kept(to.path());
    return E_SUCCESS;
}

}  // namespace

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
    const RealPath real(path, LastLink::kKeep);
    struct stat status = {};
    if (!real.isValid() || !real.isWritable() || real.saysFolder() ||
        lstat(real.path().c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return E_FAILURE;
    }
    return unlink(real.path().c_str()) == 0 ? E_SUCCESS : E_FAILURE;
}

result File::MakeWay(const String& path) {
    const RealPath real(path, LastLink::kKeep);
    if (!real.isValid() || !real.isWritable() || real.saysFolder()) {
        return E_FAILURE;
    }
    struct stat status = {};
    if (lstat(real.path().c_str(), &status) != 0) {
        return errno == ENOENT ? E_FILE_NOT_FOUND : E_FAILURE;
    }
    if (S_ISREG(status.st_mode)) {
        return Remove(path);
    }
    return moveAside(real.path()) ? E_SUCCESS : E_FAILURE;
}

result File::Copy(const String& source, const String& target, bool failIfExists) {
    if (hostFails("File.Copy")) {
        return E_FAILURE;
    }
    if (failIfExists) {
        return copyBeside(source, RealPath(target, LastLink::kKeep), renameToFree);
    }
    return copyBeside(source, RealPath(target),
                      [](const std::string& from, const std::string& to) -> result {
                          return renameOver(from, to) ? E_SUCCESS : E_FAILURE;
                      });
}

result File::CopyKeeping(const String& source, const String& target) {
    if (hostFails("File.Copy")) {
        return E_FAILURE;
    }
    return copyBeside(source, RealPath(target, LastLink::kKeep), renameKeeping);
}

}  // namespace Osp::Io
