// SPDX-License-Identifier: MIT
// The folders of the program's data and of the user's files, for the back ends that run on a
// computer.
#pragma once

#include "Host.h"
#include "Problem.h"

#include <cstdint>
#include <string>

class ProgramFolders {
public:
    /// Finds the folders and makes the user's home if it is not there. A sound folder that is a
    /// symbolic link is followed once, here, wherever it leads. The data ("Res",
    /// "framework") lie in the folder that MURMELO_DATA names, beside the executable, or in the
    /// installed share folder; the first that has them is taken. Where the program was started by a
    /// link to it, the last two are sought beside that link as well.
    /// @param home    as given by the user; empty: MURMELO_HOME, the music folder (~/Music where
    /// user-dirs.dirs is missing), or the XDG data folder
    /// @param config  as given by the user; empty: the XDG configuration folder
    /// @param folders  its state is the XDG state folder
    static Problem find(const std::string& home, const std::string& config, HostFolders& folders);

    /// The folder of the window's icons: beside the folder of the pictures, or beside where that
    /// leads to if it is a symbolic link. Empty if there is none.
    static std::string icons();

    /// Why the sound folder cannot be written or read, as one sentence that names it; none if it
    /// can, or is still to be made.
    static Problem whySoundsCannotBeKept(const HostFolders& folders);

    /// A path as the user knows it: below the folder that HOME names it begins with "~".
    static std::string shown(const std::string& path);

    /// Bytes that this user can still write where the sounds lie, or will lie once their folder is
    /// made; -1 if unknown.
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

    /// @returns what is wrong: the home cannot be written, another program holds it, or something
    /// else has the name of the lock
    Problem take(const std::string& home);

    /// True if the last take() has found another program that holds it.
    bool isHeldByAnother() const { return heldByAnother; }

private:
    /// False if something that is no ordinary file has the name of the lock. Leaves errno alone.
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
    /// Makes a sound folder that lies elsewhere if it is missing, so that it can be locked too.
    /// @returns what is wrong, as HomeLock::take
    Problem take(const HostFolders& folders);

    /// True if take() has found another program that runs in the same home.
    bool isHomeHeldByAnother() const { return home.isHeldByAnother(); }

private:
    HomeLock home;
    HomeLock sounds;
};
