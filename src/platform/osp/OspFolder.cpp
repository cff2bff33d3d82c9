// SPDX-License-Identifier: MIT
// Makes and lists folders.
#include "Host.h"
#include "OspIo.h"
#include "RealPath.h"
#include "SafeFile.h"

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <sys/stat.h>
#include <utility>

using Osp::Base::String;

namespace Osp::Io {

namespace {

constexpr mode_t kNewFolderMode = 0777;  // before the umask

bool isFolder(const std::string& path) {
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

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
    // The folders above the root exist; making them again fails without effect.
    for (size_t slash = folder.find('/', 1); createParentFolders && slash != std::string::npos;
         slash = folder.find('/', slash + 1)) {
        mkdir(folder.substr(0, slash).c_str(), kNewFolderMode);
    }
    if (mkdir(folder.c_str(), kNewFolderMode) != 0) {
        Host::current().tell({"noSoundFolder", {}},
                             "the folder \"" + folder +
                                 "\" cannot be made: " + SafeFile::lastError());
        return E_FAILURE;
    }
    return E_SUCCESS;
}

}  // namespace Osp::Io
