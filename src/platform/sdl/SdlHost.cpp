#include "SdlHost.h"

#include "ProgramFolders.h"

#include <SDL.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <unistd.h>
#include <utility>

namespace {

constexpr int64_t kUsPerMs = 1000;
constexpr int64_t kNever = -1;

// By then a window manager has noted whether it made the window an icon.
constexpr int64_t kHiddenCheckAfterMs = 100;

/// The earlier of two times, either of which may be never.
int64_t earlier(int64_t a, int64_t b) {
    if (a == kNever || b == kNever) {
        return std::max(a, b);
    }
    return std::min(a, b);
}

void setHints() {
    // The window's pixels come ready-made: looking for a graphics processor to double them takes
    // longer than everything else up to the first picture.
    if (SDL_GetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION) == nullptr) {
        SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    }
    SDL_SetHint(SDL_HINT_APP_NAME, "Murmelo");
    SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");
    SDL_SetHint(SDL_HINT_TOUCH_MOUSE_EVENTS, "0");
    SDL_SetHint(SDL_HINT_MOUSE_TOUCH_EVENTS, "0");
}

/// Where SDL will look first for a window system: on X11, unless somebody has chosen.
bool comesToX11() {
    const char* chosen = std::getenv("SDL_VIDEODRIVER");
    const char* display = std::getenv("DISPLAY");
    return chosen != nullptr && *chosen != 0 ? SDL_strcmp(chosen, "x11") == 0
                                             : display != nullptr && *display != 0;
}

/// Keeps SDL from what this program has no use for, and what would take longer than everything else
/// up to the first picture.
void doWithoutDesktopServices() {
    // Nobody writes text: the table of accented letters need not be read. Wayland's keyboard takes
    // no empty one.
    if (comesToX11()) {
        ::setenv("XCOMPOSEFILE", "/dev/null", 1);
    }
    // Where the session has no message bus, asking for one forks a search for a program that starts
    // one.
    const char* runtimeFolder = std::getenv("XDG_RUNTIME_DIR");
    const std::string bus = (runtimeFolder != nullptr ? runtimeFolder : "") + std::string("/bus");
    if (::access(bus.c_str(), F_OK) != 0) {
        ::setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 0);  // unless the session names one
    }
}

}  // namespace

SdlHost::SdlHost(SdlOptions givenOptions)
    : options(std::move(givenOptions))
    , signals(
          [this](int signal) {
              (signal == SIGTSTP ? stopAsked : endAsked) = true;
              rouse();
          },
          [this] { return rouseAgain(); })
    , ears(audio, options.microphone, [this] { rouse(); })
    , fileEars([this] { return uptimeMs(); })
    , voice(
          audio, options.speaker, [this] { return uptimeMs(); }, [this] { rouse(); })
    , input(*this)
    , extraDoors(options.folders) {
    fileEars.setVoice(options.voice);
    extraDoors.offer(options.take);
}

SdlHost::~SdlHost() {
    rousingEvent = 0;
    window.rememberSize();
}

std::string SdlHost::open() {
    setHints();
    doWithoutDesktopServices();
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) {
        return std::string("no window can be opened: ") + SDL_GetError();
    }
    const char* driver = SDL_GetCurrentVideoDriver();
    if (driver != nullptr && SDL_strcmp(driver, "wayland") == 0) {
        SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "1");  // it has no other way
    }
    rousingEvent = SDL_RegisterEvents(1);
    return window.open(options.folders.config);
}

int64_t SdlHost::nowUs() const {
    const auto passed = std::chrono::steady_clock::now() - start;
    return std::chrono::duration_cast<std::chrono::microseconds>(passed).count();
}

int64_t SdlHost::uptimeMs() {
    return nowUs() / kUsPerMs;
}

int64_t SdlHost::ticksMs() {
    const auto sinceBoot = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(sinceBoot).count();
}

int64_t SdlHost::freePhoneBytes() {
    return ProgramFolders::freeBytes(options.folders);
}

HostMicrophone* SdlHost::microphone() {
    if (options.hearsFile) {
        return &fileEars;
    }
    return &ears;
}

bool SdlHost::pump(HostListener& listener, int64_t timeoutMs) {
    const int64_t endMs = timeoutMs < 0 ? kNever : uptimeMs() + timeoutMs;
    for (;;) {
        extraDoors.tellSaved();
        if (deliverSignals(listener) || extraDoors.deliver() || deliverSound() ||
            deliverEvent(listener) || deliverAway(listener)) {
            return true;
        }
        presentIfDue();
        if (endMs != kNever && uptimeMs() >= endMs) {
            return false;
        }
        sleep(earlier(endMs, nextDueMs()));
    }
}

bool SdlHost::deliverSignals(HostListener& listener) {
    if (endAsked.exchange(false)) {
        listener.onTerminate();
        return true;
    }
    if (toldAway && (awayReasons & kStopped) != 0) {
        std::raise(SIGSTOP);  // the program stands still in here until it is let go on
        setAway(kStopped, false);
    }
    if (stopAsked.exchange(false)) {
        setAway(kStopped, true);
    }
    return false;
}

bool SdlHost::deliverSound() {
    return ears.deliver() || fileEars.deliver() || voice.deliver();
}

bool SdlHost::deliverEvent(HostListener& listener) {
    SDL_Event event;
    while (SDL_PollEvent(&event) != 0) {
        if (handle(event, listener)) {
            return true;
        }
    }
    return false;
}

bool SdlHost::handle(const SDL_Event& event, HostListener& listener) {
    switch (event.type) {
    case SDL_QUIT:
        listener.onTerminate();
        return true;
    case SDL_WINDOWEVENT:
        return handleWindow(event.window);
    case SDL_APP_WILLENTERBACKGROUND:
        setAway(kBySystem, true);
        return false;
    case SDL_APP_DIDENTERFOREGROUND:
        setAway(kBySystem, false);
        return false;
    default:
        return extraDoors.handle(event) || input.handle(event, listener, doors);
    }
}

bool SdlHost::handleWindow(const SDL_WindowEvent& event) {
    switch (event.event) {
    case SDL_WINDOWEVENT_EXPOSED:
    case SDL_WINDOWEVENT_SIZE_CHANGED:
        if (everPresented) {
            window.redraw();
        }
        break;
    case SDL_WINDOWEVENT_HIDDEN:
        hiddenCheckMs = uptimeMs() + kHiddenCheckAfterMs;
        break;
    case SDL_WINDOWEVENT_SHOWN:
        hiddenCheckMs = kNever;
        setAway(kHidden, false);
        break;
    default:
        break;
    }
    return false;
}

void SdlHost::setAway(Away reason, bool away) {
    awayReasons = away ? awayReasons | reason : awayReasons & ~static_cast<uint32_t>(reason);
}

bool SdlHost::deliverAway(HostListener& listener) {
    if (hiddenCheckMs != kNever && uptimeMs() >= hiddenCheckMs) {
        hiddenCheckMs = kNever;
        setAway(kHidden, !window.isIcon());
    }
    const bool away = awayReasons != 0;
    if (away == toldAway) {
        return false;
    }
    toldAway = away;
    if (away) {
        listener.onBackground();
    } else {
        listener.onForeground();
    }
    return true;
}

void SdlHost::frameShown(HostFrame* newest) {
    frame = newest;
    frameIsNew = newest != nullptr;
}

void SdlHost::presentIfDue() {
    if (!frameIsNew || nowUs() < nextPictureUs) {
        return;
    }
    frameIsNew = false;
    const HostFrame::Rows changed = frame->takeChanges();
    if (changed.none()) {
        nextPictureUs = nowUs() + window.refreshUs();
        return;
    }
    window.present(*frame, changed);
    pictures++;
    // In step with the display, unless it was still for a while.
    nextPictureUs = std::max(nextPictureUs + window.refreshUs(), nowUs());
    if (!everPresented) {
        everPresented = true;
        window.setIcon(options.folders.res + "/../icons");
    }
}

int64_t SdlHost::nextDueMs() {
    int64_t dueMs = earlier(fileEars.dueMs(), voice.dueMs());
    if (frameIsNew) {
        dueMs = earlier(dueMs, (nextPictureUs + kUsPerMs - 1) / kUsPerMs);
    }
    return earlier(dueMs, hiddenCheckMs);
}

/// SDL waits on the window system's own connection: nothing runs while nothing happens.
void SdlHost::sleep(int64_t untilMs) {
    const int64_t ms = untilMs == kNever ? kNever : std::max<int64_t>(untilMs - uptimeMs(), 0);
    if (ms == kNever) {
        SDL_WaitEvent(nullptr);
    } else if (ms > 0) {
        SDL_WaitEventTimeout(nullptr, static_cast<int>(std::min<int64_t>(ms, INT32_MAX)));
    }
}

void SdlHost::rouse() {
    const uint32_t type = rousingEvent;
    if (type != 0) {
        SDL_Event event{};
        event.type = type;
        SDL_PushEvent(&event);
    }
}

/// The window system can lose what rouses it when two threads use its connection at one time, and
/// nothing else may happen for hours.
bool SdlHost::rouseAgain() {
    const bool unheard = stopAsked || endAsked;
    if (unheard) {
        rouse();
    }
    return unheard;
}

void SdlHost::fromShares(double xShare, double yShare, int32_t& x, int32_t& y) const {
    window.toDisplay(xShare, yShare, x, y);
}

void SdlHost::fromMouse(int32_t mouseX, int32_t mouseY, int32_t& x, int32_t& y) const {
    // The middle of the pixel pointed at.
    window.toDisplay((mouseX + 0.5) / window.widthUnits(), (mouseY + 0.5) / window.heightUnits(), x,
                     y);
}
