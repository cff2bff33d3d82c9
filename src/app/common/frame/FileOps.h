// SPDX-License-Identifier: MIT
// Operations on files and folders: tests, deletes, copies, and finds the name of the next saved
// sound.
#pragma once

#include "OspBase.h"

#include <cstdint>

/// Each operation returns true only if the platform reports success.
class FileOps {
public:
    using String = Osp::Base::String;

    static bool exists(const String& path);
    static bool exists(String* folder, String* name);

    /// False too if there is no such file. Anything but an ordinary file is not deleted but renamed
    /// to "NAME.aside-N".
    static bool deleteFile(const String& path);
    static bool deleteFile(String* folder, String* name);

    /// Deletes the file at path, or moves it aside as deleteFile does. Returns true if the path is
    /// free after that, also if nothing was there.
    static bool makeWay(const String& path);

    /// True too if the path exists. Parents are not made.
    static bool mkdir(const String& path);

    /// An existing target is overwritten.
    static bool copy(const String& source, const String& target);

    /// An existing target is moved aside, to "NAME.aside-N".
    static bool copyKeeping(const String& source, const String& target);

    /// Copies only if the target does not exist. False if there is such a file, even one that
    /// appears during the copy; that file is not changed.
    /// @param isTaken  set to true if the copy failed because of such a file, else to false
    static bool copyToFree(const String& source, const String& target, bool& isTaken);

    /// Free bytes (the low 32 bits of what the phone reports), -1 if unknown.
    static int32_t getAvailMemCard();
    static int32_t getAvailPhone();

    /// A new string, the caller's: prefix, the number after the highest one in the folder with at
    /// least five digits, suffix; null if the folder can neither be opened nor made. 99999 is the
    /// highest number: after it, the same name is returned each time.
    static String*
    getNextAvailableName(const String& folder, const String& prefix, const String& suffix);

    static void setRoot() {}

    /// Always false; has no caller.
    static bool testWrite(String* /*path*/, int32_t /*bytes*/) { return false; }

    static void static_ctor();
    static void static_dtor();

    static String* URI_MEM_CARD_ROOT;  // where a memory card would be mounted
};
