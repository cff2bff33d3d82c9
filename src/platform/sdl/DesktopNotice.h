// SPDX-License-Identifier: MIT
// A message by the desktop's own notifications, over the session bus.
#pragma once

#include <string>

class DesktopNotice {
public:
    /// Shows an urgent notice, which stays until the user closes it. Returns as soon as it is
    /// shown.
    /// @param title, text  UTF-8 without markup; of other bytes only a sign is shown
    /// @returns false if there is no desktop that shows notices
    static bool show(const std::string& title, const std::string& text);
};
