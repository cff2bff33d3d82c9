// Files and folders above the level of sound: what exists, what goes, what the next saved sound is
// called.
#pragma once

#include "OspBase.h"

#include <cstdint>

/// Each operation is true only when the platform reports success.
class FileOps {
public:
    using String = Osp::Base::String;

    static bool exists(const String& path);
    static bool exists(String* folder, String* name);

    /// False too if there is no such file. What is no ordinary file is not deleted but moved aside,
    /// to "NAME.aside-N".
    static bool deleteFile(const String& path);
    static bool deleteFile(String* folder, String* name);

    /// Deletes what lies at the path, or moves it aside as deleteFile does. True too if nothing
    /// lies there: the path is free then.
    static bool makeWay(const String& path);

    /// True too if the path exists. Parents are not made.
    static bool mkdir(const String& path);

    /// An existing target is overwritten.
    static bool copy(const String& source, const String& target);

    /// An existing target is moved aside, to "NAME.aside-N".
    static bool copyKeeping(const String& source, const String& target);

    /// False if there is a file of that name, whenever it came; that file stays as it is.
    /// @param isTaken  set to whether it was for such a file that the copy failed
    static bool copyToFree(const String& source, const String& target, bool& isTaken);

    /// Free bytes (the low 32 bits of what the phone says), -1 when unknown.
    static int32_t getAvailMemCard();
    static int32_t getAvailPhone();

    /// A new string, the caller's: prefix, the number after the highest one in the folder with at
    /// least five digits, suffix; null if the folder can neither be opened nor made. The count
    /// stops at 99999, which is then used again and again.
    static String*
    getNextAvailableName(const String& folder, const String& prefix, const String& suffix);

    static void setRoot() {}

    /// Always false; nobody asks.
    static bool testWrite(String* /*path*/, int32_t /*bytes*/) { return false; }

    static void static_ctor();
    static void static_dtor();

    static String* URI_MEM_CARD_ROOT;  // where a memory card would be mounted
};
