// SPDX-License-Identifier: MIT
// Finds the folders of the program's data and of the user's files, for the back ends that run on a
// computer.
#pragma once

#include "Host.h"
#include "Problem.h"

#include <cstdint>
#include <string>

class ProgramFolders {
public:
    /// Finds the folders, and makes the user's home if it is missing. If the sound folder is a
    /// symbolic link, the result holds its target. The data ("Res", "framework") lie in the folder
    /// that MURMELO_DATA names, beside the executable, or in the installed share folder; the first
    /// folder that has them is used. If the program was started by a link, the last two are also
    /// looked for beside that link.
    /// @param home    as given by the user; empty: MURMELO_HOME, the music folder (~/Music where
    /// user-dirs.dirs is missing), or the XDG data folder
    /// @param config  as given by the user; empty: the XDG configuration folder
    /// @param folders  gets the folders; its state becomes the XDG state folder
    static Problem find(const std::string& home, const std::string& config, HostFolders& folders);

    /// The folder of the window's icons: beside "Res", or beside the target of "Res" if that is a
    /// symbolic link. Empty if there is none.
    static std::string icons();

    /// Why the sound folder cannot be written or read, as one sentence that names it. No problem if
    /// it can, or does not exist yet.
    static Problem whySoundsCannotBeKept(const HostFolders& folders);

    /// A path as it is shown to the user: in it "~" stands for the folder that HOME names.
    static std::string shown(const std::string& path);

    /// Bytes that this user can still write on the disk of the sound folder; -1 if unknown.
    static int64_t freeBytes(const HostFolders& folders);
};

/// Locks a home for one running program. The lock file is removed when the program ends, so that
/// only sounds stay in the user's music folder.
class HomeLock {
public:
    HomeLock() = default;
    HomeLock(const HomeLock&) = delete;
    HomeLock& operator=(const HomeLock&) = delete;
    ~HomeLock();

    /// @returns the problem: the home cannot be written, another program holds it, or the lock's
    /// name is taken by something else
    Problem take(const std::string& home);

    /// True if the last take() has failed because another program holds the home.
    bool isHeldByAnother() const { return heldByAnother; }

private:
    /// False if the lock's name is taken by something that is not an ordinary file. Does not change
    /// errno.
    bool isOrdinary() const;

    /// False once the lock file was removed or replaced.
    bool isStillAt(const std::string& place) const;

    std::string path;
    int file = -1;
    bool isHeld = false;
    bool heldByAnother = false;
};

/// The locks of one running program: on its home, and on the sound folder if that lies elsewhere,
/// because another home may use the same folder.
class FolderLocks {
public:
    /// Takes both locks. If the sound folder lies elsewhere and is missing, it is made, so that it
    /// can be locked.
    /// @returns the problem, as HomeLock::take
    Problem take(const HostFolders& folders);

    /// True if take() has failed because another program runs with the same home.
    bool isHomeHeldByAnother() const { return home.isHeldByAnother(); }

private:
    HomeLock home;
    HomeLock sounds;
};
