// SPDX-License-Identifier: MIT
#include "SdlWindow.h"

#include "PngIcon.h"
#include "X11Window.h"

#include <SDL.h>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int64_t kUsPerSecond = 1000000;
constexpr int32_t kUsualRefreshHz = 60;
constexpr int32_t kPictureRows = HostFrame::kHeightPx / HostFrame::kCanvasFactor;

// If the desktop sets no scale, a display of at least this density gets a window of twice the usual
// size.
constexpr float kFineDpi = 180.0F;

/// The screen that the window is on; the first one before there is a window.
int screenOf(SDL_Window* window) {
    return window != nullptr ? std::max(SDL_GetWindowDisplayIndex(window), 0) : 0;
}

/// The part of a screen that windows may use; none if that is not known.
WindowSizes::Size roomOfScreen(int screen) {
    SDL_Rect room;
    return SDL_GetDisplayUsableBounds(screen, &room) == 0 ? WindowSizes::Size{room.w, room.h}
                                                          : WindowSizes::Size{};
}

/// How much larger than on a usual screen the window is to be: what the desktop says, or 2 on a
/// fine display.
double scaleOfDesktop(int screen, WindowSizes::Size room) {
    const char* driver = SDL_GetCurrentVideoDriver();
    const std::string driverName = driver != nullptr ? driver : "";
    const char* gdkScale = std::getenv("GDK_SCALE");
    const double told = WindowSizes::desktopScale(
        driverName == "wayland", driverName == "x11" ? X11Window::resource("Xft.dpi") : "",
        gdkScale != nullptr ? gdkScale : "");
    if (told > 0) {
        return told;
    }
    float dpi = 0;
    const WindowSizes::Size fine = WindowSizes::usual(2, {});
    const bool isFine = SDL_GetDisplayDPI(screen, nullptr, &dpi, nullptr) == 0 && dpi >= kFineDpi;
    return isFine && room.width >= fine.width && room.height > fine.height ? 2 : 1;
}

/// The upper row of each equal pair of the display's rows.
const HostFrame::Rows& upperRows() {
    static const HostFrame::Rows rows = [] {
        HostFrame::Rows upper;
        for (size_t y = 0; y < upper.size(); y += HostFrame::kCanvasFactor) {
            upper.set(y);
        }
        return upper;
    }();
    return rows;
}

/// The size of an earlier run, cut to what the screen has room for now.
WindowSizes::Size withinRoom(WindowSizes::Size remembered, WindowSizes::Size room) {
    constexpr int32_t kMinWidth = WindowSizes::kMinWidth;
    constexpr int32_t kMinHeight = WindowSizes::kMinHeight;
    return {std::clamp(remembered.width, kMinWidth, std::max(room.width, kMinWidth)),
            std::clamp(remembered.height, kMinHeight, std::max(room.height, kMinHeight))};
}

}  // namespace

SdlWindow::~SdlWindow() {
    if (window != nullptr) {
        SDL_DestroyWindow(window);
    }
}

Problem SdlWindow::open(const std::string& settingsFolder, bool onFullScreen) {
    memory = std::make_unique<WindowMemory>(settingsFolder);
    const int screen = screenOf(window);
    const WindowSizes::Size room = roomOfScreen(screen);
    const WindowSizes::Size remembered = memory->read();
    opened = remembered.isKnown() && room.isKnown()
                 ? withinRoom(remembered, room)
                 : WindowSizes::usual(scaleOfDesktop(screen, room), room);
    const uint32_t flags = SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI |
                           (onFullScreen ? SDL_WINDOW_FULLSCREEN_DESKTOP : 0);
    window = SDL_CreateWindow("Murmelo", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED,
                              opened.width, opened.height, flags);
    if (window == nullptr) {
        return std::string("no window can be opened: ") + SDL_GetError();
    }
    ownSize.sized(opened, SDL_GetTicks64());
    SDL_SetWindowMinimumSize(window, WindowSizes::kMinWidth, WindowSizes::kMinHeight);
    return Problem::none();
}

void SdlWindow::toggleFullScreen() {
    const bool isFull = (SDL_GetWindowFlags(window) & SDL_WINDOW_FULLSCREEN) != 0;
    SDL_SetWindowFullscreen(window, isFull ? 0 : SDL_WINDOW_FULLSCREEN_DESKTOP);
}

void SdlWindow::changeSize(Change change) {
    constexpr uint32_t kNotByHand = SDL_WINDOW_MAXIMIZED | SDL_WINDOW_FULLSCREEN;
    if ((SDL_GetWindowFlags(window) & kNotByHand) != 0) {
        return;
    }
    const WindowSizes::Size now{widthUnits(), heightUnits()};
    const int screen = screenOf(window);
    const WindowSizes::Size room = roomOfScreen(screen);
    WindowSizes::Size size;
    switch (change) {
    case Change::kLarger:
        size = WindowSizes::larger(now, room);
        break;
    case Change::kSmaller:
        size = WindowSizes::smaller(now);
        break;
    default:
        size = WindowSizes::usual(scaleOfDesktop(screen, room), room);
        break;
    }
    if (size.width != now.width || size.height != now.height) {
        SDL_SetWindowSize(window, size.width, size.height);
    }
}

bool SdlWindow::hasOwnSize() const {
    constexpr uint32_t kOther =
        SDL_WINDOW_MAXIMIZED | SDL_WINDOW_FULLSCREEN_DESKTOP | SDL_WINDOW_MINIMIZED;
    return (SDL_GetWindowFlags(window) & kOther) == 0;
}

void SdlWindow::sizeChanged() {
    if (hasOwnSize()) {
        ownSize.sized({widthUnits(), heightUnits()}, SDL_GetTicks64());
    }
}

void SdlWindow::maximised() {
    ownSize.maximised(SDL_GetTicks64());
}

void SdlWindow::rememberSize() const {
    if (window == nullptr) {
        return;
    }
    const WindowMemory::Size size =
        hasOwnSize() ? WindowMemory::Size{widthUnits(), heightUnits()} : ownSize.size();
    if (size.width != opened.width || size.height != opened.height) {
        memory->write(size);
    }
}

void SdlWindow::present(HostFrame& frame, const HostFrame::Rows& changed) {
    picture.resize(static_cast<size_t>(HostFrame::kWidthPx) * kPictureRows);
    // With half a row as stride, the even rows follow one another without a gap.
    constexpr int32_t kStrideBytes =
        HostFrame::kWidthPx / HostFrame::kCanvasFactor * static_cast<int32_t>(sizeof(uint16_t));
    frame.composeRows(picture.data(), kStrideBytes, changed & upperRows());
    SDL_Surface* surface = SDL_GetWindowSurface(window);
    const bool isEnough =
        surface != nullptr && isDrawnOn(*surface) && drawChangesOn(*surface, changed);
    if (!isEnough) {
        redraw();
    }
}

void SdlWindow::redraw() {
    drawn = nullptr;
    SDL_Surface* surface = SDL_GetWindowSurface(window);
    const bool isDrawn = surface != nullptr && !picture.empty() && drawOn(*surface) &&
                         SDL_UpdateWindowSurface(window) == 0;
    if (isDrawn) {
        drawn = surface;
        drawnWidth = surface->w;
        drawnHeight = surface->h;
    }
}

/// True if the surface still holds the last picture, in pixels that can be written directly.
bool SdlWindow::isDrawnOn(const SDL_Surface& surface) const {
    return &surface == drawn && surface.w == drawnWidth && surface.h == drawnHeight &&
           surface.format->format == SDL_PIXELFORMAT_RGB888;
}

bool SdlWindow::drawChangesOn(SDL_Surface& surface, const HostFrame::Rows& changed) {
    if (SDL_LockSurface(&surface) != 0) {
        return false;
    }
    const std::vector<PicturePlace> places =
        scaler.drawChanged(picture.data(), static_cast<uint32_t*>(surface.pixels),
                           surface.pitch / static_cast<int32_t>(sizeof(uint32_t)), changed);
    SDL_UnlockSurface(&surface);
    std::vector<SDL_Rect> rectangles;
    rectangles.reserve(places.size());
    for (const PicturePlace& place : places) {
        rectangles.push_back({place.x, place.y, place.width, place.height});
    }
    return rectangles.empty() ||
           SDL_UpdateWindowSurfaceRects(window, rectangles.data(),
                                        static_cast<int>(rectangles.size())) == 0;
}

bool SdlWindow::drawOn(SDL_Surface& surface) {
    SDL_Surface* target = &surface;
    if (surface.format->format != SDL_PIXELFORMAT_RGB888) {
        target =
            SDL_CreateRGBSurfaceWithFormat(0, surface.w, surface.h, 32, SDL_PIXELFORMAT_RGB888);
    }
    if (target == nullptr || SDL_LockSurface(target) != 0) {
        return false;
    }
    scaler.draw(picture.data(), static_cast<uint32_t*>(target->pixels),
                target->pitch / static_cast<int32_t>(sizeof(uint32_t)), target->w, target->h);
    SDL_UnlockSurface(target);
    bool isDrawn = true;
    if (target != &surface) {
        isDrawn = SDL_BlitSurface(target, nullptr, &surface, nullptr) == 0;
        SDL_FreeSurface(target);
    }
    return isDrawn;
}

void SdlWindow::pixelSize(int32_t& width, int32_t& height) const {
    SDL_GetWindowSizeInPixels(window, &width, &height);
}

DisplayPoint SdlWindow::toDisplay(double xShare, double yShare, WindowPart part) const {
    int32_t width = 0;
    int32_t height = 0;
    pixelSize(width, height);
    return WindowLayout(width, height).at(xShare * width, yShare * height, part);
}

int32_t SdlWindow::widthUnits() const {
    int32_t width = 0;
    SDL_GetWindowSize(window, &width, nullptr);
    return std::max(width, 1);
}

int32_t SdlWindow::heightUnits() const {
    int32_t height = 0;
    SDL_GetWindowSize(window, nullptr, &height);
    return std::max(height, 1);
}

int64_t SdlWindow::refreshUs() const {
    SDL_DisplayMode mode;
    const int display = SDL_GetWindowDisplayIndex(window);
    const bool known =
        display >= 0 && SDL_GetCurrentDisplayMode(display, &mode) == 0 && mode.refresh_rate > 0;
    return kUsPerSecond / (known ? mode.refresh_rate : kUsualRefreshHz);
}

bool SdlWindow::isIcon() const {
    return X11Window::isIcon(window);
}

std::string SdlWindow::portalName() const {
    return X11Window::portalName(window);
}

void SdlWindow::hide() {
    if (window != nullptr) {
        SDL_HideWindow(window);
    }
}

void SdlWindow::raise() {
    if (isIcon()) {
        SDL_RestoreWindow(window);
    }
    SDL_RaiseWindow(window);
    const char* driver = SDL_GetCurrentVideoDriver();
    if (driver != nullptr && SDL_strcmp(driver, "wayland") == 0) {
        // Most Wayland desktops let no program raise itself; they mark the window instead.
        SDL_FlashWindow(window, SDL_FLASH_UNTIL_FOCUSED);
    }
}

void SdlWindow::setTitle(const std::string& text) {
    if (text != title) {
        title = text;
        SDL_SetWindowTitle(window, text.c_str());
    }
}

void SdlWindow::setIcon(const std::string& iconFolder) {
    PngIcon icon;
    if (!icon.read(iconFolder + "/murmelo-64.png")) {
        return;
    }
    SDL_Surface* surface = SDL_CreateRGBSurfaceWithFormatFrom(
        icon.pixels.data(), icon.width, icon.height, 32, icon.width * PngIcon::kPixelBytes,
        SDL_PIXELFORMAT_RGBA32);
    if (surface != nullptr) {
        SDL_SetWindowIcon(window, surface);
        SDL_FreeSurface(surface);
    }
}
