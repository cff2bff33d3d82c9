// SPDX-License-Identifier: MIT
// Reports errors before there is a window: on standard error, and in a box too if the program was
// started from a desktop (--from-desktop).
#pragma once

#include <string>

class StartErrors {
public:
    /// The program was started from a desktop: from now on errors are shown in a box too.
    void setFromDesktop() { inBox = true; }

    /// @param message  one sentence
    /// @returns the program's exit status
    int tell(const std::string& message) const;

    /// Shows the sentence in a box and waits until the user has closed it. Where there can be no
    /// box, the desktop shows it as a notice instead.
    static void showBox(const std::string& message);

private:
    bool inBox = false;
};
