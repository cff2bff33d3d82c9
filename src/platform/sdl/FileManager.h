// The desktop's file manager.
#pragma once

#include <string>

class FileManager {
public:
    /// Shows a folder in a window of its own, which outlives this program. Does not wait for it.
    /// @param folder  an absolute path
    /// @returns false if the machine has no program for that (xdg-open)
    static bool show(const std::string& folder);
};
