// SPDX-License-Identifier: MIT
// Reads the X server's screen without the window library, and does what a window manager and a user
// do.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class XScreen {
public:
    XScreen();
    XScreen(const XScreen&) = delete;
    XScreen& operator=(const XScreen&) = delete;
    ~XScreen();

    bool isOpen() const { return display != nullptr; }

    /// 0x00RRGGBB, row by row.
    std::vector<uint32_t> pixels(int32_t x, int32_t y, int32_t width, int32_t height);

    uint32_t pixel(int32_t x, int32_t y) { return pixels(x, y, 1, 1)[0]; }

    /// The window that all others lie in.
    uint64_t root();

    /// True if a window manager runs.
    bool hasManager();

    /// The window whose title ends so, 0 if there is none.
    uint64_t windowOf(const std::string& title);

    /// Ask as a window manager does when the user closes a window or minimises it.
    void askToClose(uint64_t window);
    void noteIcon(uint64_t window);

    /// Drags a file over the window and drops it in its middle, as a file manager does. @returns
    /// true if the window has accepted it
    bool drop(uint64_t window, const std::string& path);

    int32_t widthOf(uint64_t window);
    std::string titleOf(uint64_t window);

    /// Sets the settings for all programs, as xrdb does.
    void setResources(const std::string& text);

    /// Opens a window of that place and one colour (0xFF00FF), in front of all others.
    uint64_t cover(int32_t x, int32_t y, int32_t width, int32_t height);

    /// The window's icon: width, height, then 0xAARRGGBB row by row; empty if it has none.
    std::vector<uint32_t> iconOf(uint64_t window);

    void map(uint64_t window);
    void unmap(uint64_t window);
    void resize(uint64_t window, int32_t width, int32_t height);

    /// Asks the window manager to let the window fill the screen, as its button does.
    void maximise(uint64_t window);

private:
    void* display = nullptr;
};
