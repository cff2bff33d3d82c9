// SPDX-License-Identifier: MIT
// The desktop's file manager.
#pragma once

#include <string>

class FileManager {
public:
    /// Shows a folder in a window of its own, which outlives this program. Waits for xdg-open,
    /// which on some desktops lasts as long as that window: not for the event thread.
    /// @param folder  an absolute path
    /// @returns false if the machine has no xdg-open, or that says that it failed
    static bool show(const std::string& folder);
};
