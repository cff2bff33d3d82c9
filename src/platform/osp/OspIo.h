// SPDX-License-Identifier: MIT
// The phone's files and folders, mapped to real folders.
//
// "/Res/" is read-only, "/Home/" the user's data ("/Home/Murmelo/" may lie elsewhere), and the
// framework's own files are read-only. Refused: a path under no mapped root, one with ".." or an
// embedded zero in it, and below "/Home/" one that a symbolic link leads out of the root. The
// read-only files may be installed as links to anywhere.
#pragma once

#include "OspBase.h"
#include "OspBuffer.h"

#include <cstdint>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace Osp::Io {

enum FileSeekPosition { FILESEEKPOSITION_BEGIN, FILESEEKPOSITION_CURRENT, FILESEEKPOSITION_END };

class File : public Osp::Base::Object {
public:
    File() = default;
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    /// Closes the file.
    ~File() override;

    /// Opens an ordinary file; once for each object. The modes are those of the C library: "rb",
    /// "wb+". Never makes parent folders.
    result Construct(const Osp::Base::String& path,
                     const char* openMode,
                     bool createParentFolders = false);
    result Construct(const Osp::Base::String& path,
                     const char16_t* openMode,
                     bool createParentFolders = false);

    /// Returns the number of bytes read: 0 at the end, -1 if the file is not open or reading
    /// failed.
    int32_t Read(void* buffer, int32_t lengthBytes);

    /// Fails unless every byte could be written. A block is passed to the system at once, so that
    /// this call reports a full disk; single bytes are buffered until the next block or Flush().
    result Write(const void* buffer, int32_t lengthBytes);

    /// Writes the buffer's bytes from its position to its limit; neither changes.
    result Write(const Osp::Base::ByteBuffer& buffer);

    /// Why a Write() has failed.
    struct WriteError {
        int32_t number = 0;     // errno; 0: none has failed
        int64_t fileBytes = 0;  // length of the file after it
    };

    /// The error of the last Write(), of any file, that has failed since the last call of this.
    static WriteError takeWriteError();

    result Seek(FileSeekPosition position, int32_t offsetBytes);

    /// Position in bytes, -1 if the file is not open.
    int32_t Tell() const;
    result Flush();

    /// True for folders too, with or without the last "/".
    static bool IsFileExist(const Osp::Base::String& path);

    /// Removes an ordinary file; fails for a folder, a symbolic link and everything else.
    static result Remove(const Osp::Base::String& path);

    /// Makes a path free for a new file: removes an ordinary file, and renames anything else (a
    /// folder, a pipe, a symbolic link) to "NAME.aside-N". E_FILE_NOT_FOUND if there is nothing.
    static result MakeWay(const Osp::Base::String& path);

    /// Copies through a temporary file beside the target, so that a failed copy leaves no half
    /// file. On success the bytes and the name are on the disk. If only syncing the name fails, the
    /// call fails, but the copy stays.
    /// @param failIfExists  true: an existing target is not overwritten, not even one that appears
    /// meanwhile; the result is E_FILE_ALREADY_EXIST
    static result
    Copy(const Osp::Base::String& source, const Osp::Base::String& target, bool failIfExists);

    /// The same, but an existing target is first renamed to "NAME.aside-N".
    static result CopyKeeping(const Osp::Base::String& source, const Osp::Base::String& target);

private:
    enum class Direction { kNone, kReading, kWriting };

    bool turnTo(Direction wanted);
    result failWrite(int32_t number);

    static WriteError writeError;

    std::FILE* file = nullptr;
    Direction direction = Direction::kNone;
};

class DirEntry {
public:
    explicit DirEntry(const Osp::Base::String& name)
        : name(name) {}

    Osp::Base::String GetName() const { return name; }

private:
    Osp::Base::String name;
};

class DirEnumerator : public Osp::Base::Object {
public:
    explicit DirEnumerator(std::vector<DirEntry> entries)
        : entries(std::move(entries)) {}

    /// Moves to the next entry; fails after the last one.
    result MoveNext();

    DirEntry GetCurrentDirEntry() const { return entries[static_cast<size_t>(index)]; }

private:
    std::vector<DirEntry> entries;
    int32_t index = -1;
};

class Directory : public Osp::Base::Object {
public:
    /// Opens a folder; the path may end in "/". Fails for everything that is not a folder.
    result Construct(const Osp::Base::String& path);

    /// A new enumerator over the entries, sorted by name, without "." and ".."; the caller deletes
    /// it. Null on failure.
    DirEnumerator* ReadN();

    /// Fails if the folder exists already. If it cannot be made, the host tells the user why.
    static result Create(const Osp::Base::String& path, bool createParentFolders);

private:
    std::string realPath;
};

}  // namespace Osp::Io
