// SPDX-License-Identifier: MIT
// The desktop's file manager.
#pragma once

#include <string>

class FileManager {
public:
    /// Shows a folder in a window of its own, which stays when this program ends. Waits for
    /// xdg-open, which on some desktops ends only with that window: never call it on the event
    /// thread.
    /// @param folder  an absolute path
    /// @returns false if the machine has no xdg-open, or xdg-open reports an error
    static bool show(const std::string& folder);

    /// Shows the folder of a file, with the file marked where the desktop's file manager can do
    /// that; else as show().
    /// @param path  absolute
    static bool showFile(const std::string& path);
};
