// SPDX-License-Identifier: MIT
// The one safe way to put a user's file onto the disk: the target is the old file or the whole new
// one at any moment, also after a power cut, and nothing that was there before is deleted.
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
// Code that makes and renames the file in another way calls syncFolderOf(target) after the rename:
// until then a power cut can bring back the old name. Every operation that fails leaves the reason
// in errno.
#pragma once

#include "Problem.h"

#include <cstddef>
#include <string>
#include <sys/types.h>

class SafeFile {
public:
    /// Follows the symbolic links that the path itself is made of, also where the last one leads to
    /// nothing yet. Returns the path where the links go in a circle.
    static std::string realTarget(const std::string& path);

    /// Makes a new file to write to in the folder of the target, under a name that nothing has:
    /// nothing is deleted. It may be read and written by whom the target may; where that is
    /// missing, by everybody, less what the user's mask takes away.
    /// @param fresh  its path, to be renamed or deleted; untouched on failure
    /// @returns a file descriptor for finish(), -1 on failure
    static int createBeside(const std::string& target, std::string& fresh);

    /// Gives an open file the permissions of another file, if that is there. A file system without
    /// permissions refuses, and loses nothing by that.
    static void keepMode(int fd, const std::string& old);

    /// For names that only this program uses. Makes a new file to write to, less what the user's
    /// mask takes away. An ordinary file that lies there is deleted: it was left by a program that
    /// was killed. Anything else that lies there is moved aside.
    /// @returns a file descriptor for finish(), -1 on failure
    static int create(const std::string& path);

    /// Writes every byte to a file, a pipe or a device, however many calls it takes.
    static bool writeAll(int fd, const void* bytes, size_t count);

    /// Waits until every byte is on the disk. Pipes, devices and file systems that cannot do that
    /// count as synced.
    static bool sync(int fd);

    /// Puts every byte onto the disk and closes the descriptor, also on failure.
    static bool finish(int fd);

    /// Renames over whatever has the name, and syncs the folder. False: from was not renamed, or
    /// the folder could not be synced; the new file has its name then, but may lose it in a power
    /// cut.
    static bool replace(const std::string& from, const std::string& to);

    /// Type of a rename in one step: true on success, else errno says why it failed.
    using Step = bool (*)(const std::string& from, const std::string& to);

    /// Renames to a name that nothing has; errno is EEXIST if something has it. In one step where
    /// the file system has such a step. Elsewhere an empty file (an empty folder for a folder)
    /// takes the name first and is then renamed over: something that appears meanwhile is never
    /// lost, unless it replaces that empty file, and a power cut in between leaves the empty file.
    /// @param inOneStep  in place of atOnce(), for tests
    /// @param overEmpty  in place of over(), for tests
    static bool renameToFree(const std::string& from,
                             const std::string& to,
                             Step inOneStep = atOnce,
                             Step overEmpty = over);

    /// Renames in one step to a name that nothing has. Fails also where there is no such step.
    static bool atOnce(const std::string& from, const std::string& to);

    /// Renames, and replaces what has the name.
    static bool over(const std::string& from, const std::string& to);

    /// Puts the names in the folder of this file onto the disk. File systems that cannot do that,
    /// and folders that may not be read, count as synced.
    static bool syncFolderOf(const std::string& path);

    /// Makes a folder and those that it lies in, as far as they are missing, and puts each new name
    /// onto the disk. Folders that are there stay as they are.
    /// @param mode  of the last folder, less what the user's mask takes away; the others may be
    /// read
    ///              by everybody
    static bool makeFolders(const std::string& folder, mode_t mode = kUsualFolder);

    static constexpr mode_t kUsualFolder = 0777;

    /// Renames whatever lies there (a link itself, not what it leads to) to the first free name of
    /// "PATH.aside-1", "PATH.aside-2" and so on. True if nothing lies there afterwards.
    /// @param newName  where it lies now; empty if nothing was moved. May be null.
    static bool moveAside(const std::string& path, std::string* newName = nullptr);

    /// What a path leads to if it is no ordinary file, for a sentence: "is a folder", "is a pipe".
    /// None for ordinary files, and if it cannot be found out. Opens nothing: a pipe would wait for
    /// its other end.
    static Problem whyNotOrdinary(const std::string& path);

    /// What errno says, in words.
    static std::string lastError();
};
