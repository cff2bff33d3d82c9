// SPDX-License-Identifier: MIT
// The phone's display as a window.
#pragma once

#include "Host.h"
#include "OwnSize.h"
#include "PictureScaler.h"
#include "Problem.h"
#include "WindowMemory.h"
#include "WindowSizes.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

struct SDL_Surface;
struct SDL_Window;

class SdlWindow {
public:
    SdlWindow() = default;
    SdlWindow(const SdlWindow&) = delete;
    SdlWindow& operator=(const SdlWindow&) = delete;
    ~SdlWindow();

    /// Opens the window: as large as the user left it in an earlier run, else as large as the
    /// phone, and never larger than the screen has room for.
    /// @param settingsFolder  where its size is kept; empty: nowhere
    /// @param onFullScreen  true: it fills the screen
    Problem open(const std::string& settingsFolder, bool onFullScreen);

    /// Fills the screen, or has its own size again.
    void toggleFullScreen();

    enum class Change { kLarger, kSmaller, kUsual };

    /// One step. A window that fills the screen stays as it is.
    void changeSize(Change change);

    /// The window system has changed the size.
    void sizeChanged();

    /// The window system has maximised the window.
    void maximised();

    /// Stores the size for the next run if the user has changed it. Of a window that is maximised
    /// or fills the screen, that is the size before.
    void rememberSize() const;

    /// Draws the rows that have changed since the last call; the first one gets them all.
    void present(HostFrame& frame, const HostFrame::Rows& changed);

    /// The window was resized or uncovered: draws the last picture again.
    void redraw();

    /// The display's pixel at a place in the window, as WindowLayout::at().
    /// @param xShare, yShare  0 at the left and upper edge, 1 at the right and lower one
    DisplayPoint toDisplay(double xShare, double yShare, WindowPart part) const;

    int32_t widthUnits() const;  // in the mouse's units
    int32_t heightUnits() const;

    /// Microseconds from one refresh of the display to the next.
    int64_t refreshUs() const;

    /// True if the user has minimised the window.
    bool isIcon() const;

    /// The window's name for the desktop's dialogs; empty: not known (on Wayland).
    std::string portalName() const;

    /// Takes the window off the screen.
    void hide();

    /// Puts the window in front of all others, also one that is an icon.
    void raise();

    /// Sets the text of the title bar if it has changed. UTF-8.
    void setTitle(const std::string& text);

    /// Gives the window its icon, if the folder has one.
    void setIcon(const std::string& iconFolder);

private:
    bool hasOwnSize() const;
    void pixelSize(int32_t& width, int32_t& height) const;
    bool isDrawnOn(const SDL_Surface& surface) const;
    bool drawOn(SDL_Surface& surface);
    bool drawChangesOn(SDL_Surface& surface, const HostFrame::Rows& changed);

    SDL_Window* window = nullptr;
    std::unique_ptr<WindowMemory> memory;
    WindowSizes::Size opened;
    OwnSize ownSize;
    std::string title;
    PictureScaler scaler;
    std::vector<uint16_t> picture;  // presented last: the upper row of each equal pair

    // The surface that holds the picture, and its size then; not owned. Null: none holds it whole.
    const SDL_Surface* drawn = nullptr;
    int32_t drawnWidth = 0;
    int32_t drawnHeight = 0;
};
