// SPDX-License-Identifier: MIT
// The phone's files and folders, mapped to real folders.
//
// "/Res/" is read-only, "/Home/" the user's data ("/Home/Murmelo/" may lie elsewhere), and the
// framework's own files are read-only. A path under no mapped root, with a ".." in it, or with an
// embedded zero, fails, and below "/Home/" one through a symbolic link that leads out. The
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

    /// Modes as the C library's: "rb", "wb+". Opens ordinary files only, once for each object.
    /// Parent folders are never made.
    result Construct(const Osp::Base::String& path,
                     const char* openMode,
                     bool createParentFolders = false);
    result Construct(const Osp::Base::String& path,
                     const char16_t* openMode,
                     bool createParentFolders = false);

    /// Bytes read: 0 at the end, -1 if the file is not open or the read failed.
    int32_t Read(void* buffer, int32_t lengthBytes);

    /// Fails if not every byte could be written. A block is passed to the system at once, so that a
    /// full disk is reported by the same call; single bytes collect until the next block or
    /// Flush().
    result Write(const void* buffer, int32_t lengthBytes);

    /// Writes what lies between the buffer's position and its limit; neither moves.
    result Write(const Osp::Base::ByteBuffer& buffer);

    /// What a Write() could not write.
    struct WriteError {
        int32_t number = 0;     // the system's; 0: nothing failed
        int64_t fileBytes = 0;  // what the file holds all the same
    };

    /// Of the last failed Write() of any file since the last call of this.
    static WriteError takeWriteError();

    result Seek(FileSeekPosition position, int32_t offsetBytes);

    /// Position in bytes, -1 if the file is not open.
    int32_t Tell() const;
    result Flush();

    /// True for folders too, with or without the last "/".
    static bool IsFileExist(const Osp::Base::String& path);

    /// Removes an ordinary file; fails for a folder, a symbolic link and everything else.
    static result Remove(const Osp::Base::String& path);

    /// Makes a path free for a new file: an ordinary file is removed, anything else (a folder, a
    /// pipe, a symbolic link, whatever it leads to) is moved aside to "NAME.aside-N".
    /// E_FILE_NOT_FOUND if nothing lies there.
    static result MakeWay(const Osp::Base::String& path);

    /// Copies through a temporary file beside the target, so that a failed copy leaves no half
    /// file. On success the bytes and the name are on the disk. If only the name could not be put
    /// there, the copy fails but stays.
    /// @param failIfExists  a file of that name is never overwritten, not even one that appears
    ///                      while the copy is made: E_FILE_ALREADY_EXIST
    static result
    Copy(const Osp::Base::String& source, const Osp::Base::String& target, bool failIfExists);

    /// The same in the place of an existing target, which is first moved aside to "NAME.aside-N".
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
    /// With or without the last "/"; fails for everything that is no folder.
    result Construct(const Osp::Base::String& path);

    /// A new enumerator over the entries, sorted by name, without "." and ".."; the caller deletes
    /// it. Null on failure.
    DirEnumerator* ReadN();

    /// Fails if the folder exists already. The host says why a folder cannot be made.
    static result Create(const Osp::Base::String& path, bool createParentFolders);

private:
    std::string realPath;
};

}  // namespace Osp::Io
