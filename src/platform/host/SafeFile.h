// SPDX-License-Identifier: MIT
// The safe way to write a user's file: at any moment, also after a power cut, the target is either
// the old file or the complete new one. No other file is deleted.
//
// How to use it:
//
//     const std::string target = SafeFile::realTarget(path);   // a link stays a link
//     std::string fresh;
//     const int fd = SafeFile::createBeside(target, fresh);    // -1: errno says why
//     ... write everything to fd ...
//     if (SafeFile::finish(fd) && SafeFile::replace(fresh, target)) { it is saved }
//     else { unlink(fresh) }
//
// Code that renames a file in another way must call syncFolderOf(target) after it: until then a
// power cut can bring back the old name. Every operation that fails leaves the reason in errno.
#pragma once

#include "Problem.h"

#include <cstddef>
#include <string>
#include <sys/types.h>

class SafeFile {
public:
    /// Follows the symbolic link at path, and the links that it leads to; the last one may lead to
    /// a file that does not exist yet. Returns path itself if the links go in a circle.
    static std::string realTarget(const std::string& path);

    /// Makes a new file for writing in the folder of the target, under a free name. It gets the
    /// target's permissions; if there is no target, the usual ones (0666 before the umask).
    /// @param fresh  its path, to be renamed or deleted; untouched on failure
    /// @returns a file descriptor for finish(), -1 on failure
    static int createBeside(const std::string& target, std::string& fresh);

    /// Gives an open file the permissions of another file, if that exists. Errors are ignored,
    /// because a file system without permissions refuses.
    static void keepMode(int fd, const std::string& old);

    /// Makes a new file for writing under a name that only this program uses (0666 before the
    /// umask). An ordinary file with that name is deleted: a program that was killed has left it.
    /// Anything else is moved aside.
    /// @returns a file descriptor for finish(), -1 on failure
    static int create(const std::string& path);

    /// Writes all bytes to a file, a pipe or a device, in as many calls as it takes.
    static bool writeAll(int fd, const void* bytes, size_t count);

    /// Waits until every byte is on the disk. True also for pipes, devices and file systems that
    /// cannot sync.
    static bool sync(int fd);

    /// Waits until every byte is on the disk, and closes the descriptor, also after an error.
    static bool finish(int fd);

    /// Renames from to to, replacing a file with that name, and syncs the folder. False if from was
    /// not renamed, or if the folder could not be synced; in that case the new file has its name,
    /// but may lose it in a power cut.
    static bool replace(const std::string& from, const std::string& to);

    /// A rename in one step: true on success, else errno says why it failed.
    using Step = bool (*)(const std::string& from, const std::string& to);

    /// Renames only if the new name is free; errno is EEXIST if it is not. In one step, if the file
    /// system can do that. Otherwise makes an empty file (for a folder, an empty folder) with the
    /// new name first, and renames over that. Then a file that another program puts in place of the
    /// empty file is lost, and a power cut in between leaves the empty file.
    /// @param inOneStep  in place of atOnce(), for tests
    /// @param overEmpty  in place of over(), for tests
    static bool renameToFree(const std::string& from,
                             const std::string& to,
                             Step inOneStep = atOnce,
                             Step overEmpty = over);

    /// Renames in one step, only if the new name is free. Also fails if the file system cannot do
    /// that.
    static bool atOnce(const std::string& from, const std::string& to);

    /// Renames, and replaces a file with the new name.
    static bool over(const std::string& from, const std::string& to);

    /// Waits until the names in the folder of this file are on the disk. True also if the file
    /// system cannot do that, or the folder must not be read.
    static bool syncFolderOf(const std::string& path);

    /// Makes a folder, and the folders above it, if they are missing, and syncs each new name to
    /// the disk. Existing folders stay as they are.
    /// @param mode  of the last folder, before the umask; the others get kUsualFolder
    static bool makeFolders(const std::string& folder, mode_t mode = kUsualFolder);

    static constexpr mode_t kUsualFolder = 0777;

    /// Renames a file or folder (a link itself, not its target) to the first free name of
    /// "PATH.aside-1", "PATH.aside-2" and so on. True if the name is free after that.
    /// @param newName  its new path; empty if nothing was moved. May be null.
    static bool moveAside(const std::string& path, std::string* newName = nullptr);

    /// What a path leads to if that is not an ordinary file, as a part of a sentence: "is a
    /// folder", "is a pipe". No problem for ordinary files, and if it cannot be found out. Does not
    /// open it: opening a pipe would wait for its writer.
    static Problem whyNotOrdinary(const std::string& path);

    /// True for an errno of the disk itself: it is full, broken or read-only. A library that writes
    /// a file may leave others, which are not the reason.
    static bool isOfDisk(int error);

    /// The text for errno.
    static std::string lastError();
};
