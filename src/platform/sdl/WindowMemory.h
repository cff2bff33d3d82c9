// SPDX-License-Identifier: MIT
// The size that the user gave the window, kept from one run to the next.
#pragma once

#include <cstdint>
#include <string>

class WindowMemory {
public:
    /// In the window system's units; 0 x 0 is none.
    struct Size {
        int32_t width = 0;
        int32_t height = 0;

        bool isKnown() const { return width > 0 && height > 0; }
    };

    /// @param folder  of the settings; empty: nothing is kept
    explicit WindowMemory(const std::string& folder);

    /// The size that was kept last; 0 x 0 if there is none, or it is unusable.
    Size read() const;

    /// Keeps the size for the next run. If that is impossible, the next window is as large as this
    /// one was at its start.
    void write(Size size) const;

private:
    std::string path;  // empty: none
};
