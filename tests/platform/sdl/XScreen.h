// SPDX-License-Identifier: MIT
// A look at the X server's screen, past the window library.
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

    /// Whether a window manager has begun its work.
    bool hasManager();

    /// The window whose title ends so, 0 if there is none.
    uint64_t windowOf(const std::string& title);

    /// As a window manager does when the user closes a window, or makes it an icon.
    void askToClose(uint64_t window);
    void noteIcon(uint64_t window);

    /// As a file manager does: drags a file over the window and lets go in its middle. @returns
    /// whether the window took it
    bool drop(uint64_t window, const std::string& path);

    int32_t widthOf(uint64_t window);
    std::string titleOf(uint64_t window);

    /// The settings for all programs, as xrdb sets them.
    void setResources(const std::string& text);

    /// Opens a window of that place and one colour (0xFF00FF), in front of all others.
    uint64_t cover(int32_t x, int32_t y, int32_t width, int32_t height);

    /// The picture that it has in lists and bars: width, height, then 0xAARRGGBB row by row; empty
    /// if it has none.
    std::vector<uint32_t> iconOf(uint64_t window);

    void map(uint64_t window);
    void unmap(uint64_t window);
    void resize(uint64_t window, int32_t width, int32_t height);

private:
    void* display = nullptr;
};
