// SPDX-License-Identifier: MIT
#include "FileOps.h"

#include "Integer.h"
#include "OspIo.h"
#include "OspSystem.h"

#include <algorithm>
#include <memory>

using Osp::Base::String;
using Osp::Io::Directory;
using Osp::Io::DirEnumerator;
using Osp::Io::File;
using Osp::System::RuntimeInfo;

namespace {

constexpr int32_t kDigits = 5;
constexpr int32_t kHighestNumber = 99999;

int32_t lowWord(const char* key) {
    int64_t bytes = 0;
    if (RuntimeInfo::GetValue(key, bytes) != E_SUCCESS) {
        return -1;
    }
    return static_cast<int32_t>(static_cast<uint32_t>(bytes));
}

/// The number after the prefix, or -1 if the name is not one of ours. A sixth digit is not read.
int32_t numberOf(const String& name, const String& prefix, const String& suffix) {
    if (!name.StartsWith(prefix, 0) || !name.EndsWith(suffix)) {
        return -1;
    }
    String digits = name.SubString(prefix.GetLength(), kDigits);
    if (digits.GetLength() < kDigits) {
        return -1;
    }
    for (int32_t i = 0; i < kDigits; i++) {
        if (digits[i] < u'0' || digits[i] > u'9') {
            return -1;
        }
    }
    return Integer::parseInt(&digits);
}

bool openOrMake(Directory& directory, const String& folder) {
    if (directory.Construct(folder) == E_SUCCESS) {
        return true;
    }
    const String withoutSlash = folder.SubString(0, folder.GetLength() - 1);
    return Directory::Create(withoutSlash, false) == E_SUCCESS &&
           directory.Construct(folder) == E_SUCCESS;
}

}  // namespace

String* FileOps::URI_MEM_CARD_ROOT;

void FileOps::static_ctor() {
    URI_MEM_CARD_ROOT = new String("/Storagecard/");
}

void FileOps::static_dtor() {
    delete URI_MEM_CARD_ROOT;
    URI_MEM_CARD_ROOT = nullptr;
}

bool FileOps::exists(const String& path) {
    return File::IsFileExist(path);
}

bool FileOps::exists(String* folder, String* name) {
    return exists(*folder + *name);
}

bool FileOps::deleteFile(const String& path) {
    return File::MakeWay(path) == E_SUCCESS;
}

bool FileOps::deleteFile(String* folder, String* name) {
    return deleteFile(*folder + *name);
}

bool FileOps::makeWay(const String& path) {
    const result r = File::MakeWay(path);
    return r == E_SUCCESS || r == E_FILE_NOT_FOUND;
}

bool FileOps::mkdir(const String& path) {
    return File::IsFileExist(path) || Directory::Create(path, false) == E_SUCCESS;
}

bool FileOps::copy(const String& source, const String& target) {
    return File::Copy(source, target, false) == E_SUCCESS;
}

bool FileOps::copyKeeping(const String& source, const String& target) {
    return File::CopyKeeping(source, target) == E_SUCCESS;
}

bool FileOps::copyToFree(const String& source, const String& target, bool& isTaken) {
    const result r = File::Copy(source, target, true);
    isTaken = r == E_FILE_ALREADY_EXIST;
    return r == E_SUCCESS;
}

int32_t FileOps::getAvailMemCard() {
    return lowWord("AvailableExternalStorage");
}

int32_t FileOps::getAvailPhone() {
    return lowWord("AvailableInternalStorage");
}

String*
FileOps::getNextAvailableName(const String& folder, const String& prefix, const String& suffix) {
    Directory directory;
    if (!openOrMake(directory, folder)) {
        return nullptr;
    }
    const std::unique_ptr<DirEnumerator> entries(directory.ReadN());
    if (entries == nullptr) {
        return nullptr;
    }
    int32_t highest = -1;
    while (entries->MoveNext() == E_SUCCESS) {
        highest =
            std::max(highest, numberOf(entries->GetCurrentDirEntry().GetName(), prefix, suffix));
    }
    auto* name = new String(prefix);
    name->Append(std::min(highest + 1, kHighestNumber));
    while (name->GetLength() <= prefix.GetLength() + kDigits - 1) {
        name->Insert(u'0', prefix.GetLength());
    }
    name->Append(suffix);
    if (highest == kHighestNumber) {
        // Deliberate: the bare name, without its folder, so nothing is deleted; the old sound is
        // moved aside when the new one is copied.
        File::Remove(*name);
    }
    return name;
}
