// SPDX-License-Identifier: MIT
// Reads and changes what is on the X server's screen.
#include "XScreen.h"

#include <algorithm>
#include <chrono>
#include <initializer_list>
#include <thread>
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace {

Display* server(void* display) {
    return static_cast<Display*>(display);
}

/// The source of a drag, which offers one file.
class Drag {
public:
    Drag(Display* x11, Window target, const std::string& path)
        : x11(x11)
        , source(XCreateSimpleWindow(x11, DefaultRootWindow(x11), 0, 0, 1, 1, 0, 0, 0))
        , target(target)
        , content("file://" + path + "\r\n") {
        XSetSelectionOwner(x11, atom("XdndSelection"), source, CurrentTime);
    }

    ~Drag() { XDestroyWindow(x11, source); }

    Atom atom(const char* name) { return XInternAtom(x11, name, False); }

    /// A message to the target; its first word is always the source.
    void say(const char* message, std::initializer_list<uint64_t> words) {
        XEvent event{};
        event.xclient.type = ClientMessage;
        event.xclient.window = target;
        event.xclient.message_type = atom(message);
        event.xclient.format = 32;
        event.xclient.data.l[0] = static_cast<int64_t>(source);
        int32_t at = 1;
        for (const uint64_t word : words) {
            event.xclient.data.l[at++] = static_cast<int64_t>(word);
        }
        XSendEvent(x11, target, False, NoEventMask, &event);
        XFlush(x11);
    }

    /// Waits at most two seconds for the target's reply, and passes the file when it is asked for.
    bool hear(const char* message) {
        for (int32_t i = 0; i < 200; i++) {
            while (XPending(x11) > 0) {
                XEvent event{};
                XNextEvent(x11, &event);
                if (event.type == SelectionRequest) {
                    give(event.xselectionrequest);
                } else if (event.type == ClientMessage &&
                           event.xclient.message_type == atom(message)) {
                    return (event.xclient.data.l[1] & 1) != 0;  // accepted
                }
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return false;
    }

private:
    void give(const XSelectionRequestEvent& request) {
        XChangeProperty(x11, request.requestor, request.property, request.target, 8,
                        PropModeReplace, reinterpret_cast<const unsigned char*>(content.data()),
                        static_cast<int>(content.size()));
        XEvent event{};
        event.xselection.type = SelectionNotify;
        event.xselection.requestor = request.requestor;
        event.xselection.selection = request.selection;
        event.xselection.target = request.target;
        event.xselection.property = request.property;
        XSendEvent(x11, request.requestor, False, NoEventMask, &event);
        XFlush(x11);
    }

    Display* x11;
    Window source;
    Window target;
    std::string content;
};

}  // namespace

XScreen::XScreen()
    : display(XOpenDisplay(nullptr)) {}

XScreen::~XScreen() {
    if (display != nullptr) {
        XCloseDisplay(server(display));
    }
}

std::vector<uint32_t> XScreen::pixels(int32_t x, int32_t y, int32_t width, int32_t height) {
    std::vector<uint32_t> pixels;
    Display* x11 = server(display);
    XImage* image = XGetImage(x11, DefaultRootWindow(x11), x, y, static_cast<unsigned>(width),
                              static_cast<unsigned>(height), AllPlanes, ZPixmap);
    for (int32_t row = 0; row < height; row++) {
        for (int32_t column = 0; column < width; column++) {
            pixels.push_back(static_cast<uint32_t>(XGetPixel(image, column, row)) & 0xFFFFFF);
        }
    }
    XDestroyImage(image);
    return pixels;
}

uint64_t XScreen::root() {
    return DefaultRootWindow(server(display));
}

uint64_t XScreen::windowOf(const std::string& title) {
    Display* x11 = server(display);
    Window root = 0;
    Window parent = 0;
    Window* children = nullptr;
    unsigned count = 0;
    XQueryTree(x11, DefaultRootWindow(x11), &root, &parent, &children, &count);
    uint64_t found = 0;
    for (unsigned i = 0; i < count; i++) {
        const std::string whole = titleOf(children[i]);
        const bool isTitle = whole.size() >= title.size() &&
                             whole.compare(whole.size() - title.size(), title.size(), title) == 0;
        found = isTitle ? children[i] : found;
    }
    XFree(children);
    return found;
}

bool XScreen::hasManager() {
    Display* x11 = server(display);
    int count = 0;
    Atom* names = XListProperties(x11, DefaultRootWindow(x11), &count);
    const Atom wanted = XInternAtom(x11, "_NET_SUPPORTING_WM_CHECK", False);
    const bool isThere =
        names != nullptr && std::find(names, names + count, wanted) != names + count;
    if (names != nullptr) {
        XFree(names);
    }
    return isThere;
}

void XScreen::askToClose(uint64_t window) {
    Display* x11 = server(display);
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(x11, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<int64_t>(XInternAtom(x11, "WM_DELETE_WINDOW", False));
    XSendEvent(x11, window, False, NoEventMask, &event);
    XFlush(x11);
}

void XScreen::noteIcon(uint64_t window) {
    Display* x11 = server(display);
    const Atom name = XInternAtom(x11, "WM_STATE", False);
    const uint64_t words[2] = {IconicState, None};
    XChangeProperty(x11, window, name, name, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(words), 2);
    XFlush(x11);
}

bool XScreen::drop(uint64_t window, const std::string& path) {
    Display* x11 = server(display);
    XWindowAttributes place{};
    XGetWindowAttributes(x11, window, &place);
    const auto x = static_cast<uint64_t>(int64_t{place.x} + place.width / 2);
    const auto y = static_cast<uint64_t>(int64_t{place.y} + place.height / 2);
    constexpr uint64_t kVersion = 5;
    Drag drag(x11, window, path);
    drag.say("XdndEnter", {kVersion << 24, drag.atom("text/uri-list"), 0, 0});
    drag.say("XdndPosition", {0, x << 16 | y, CurrentTime, drag.atom("XdndActionCopy")});
    if (!drag.hear("XdndStatus")) {
        return false;
    }
    drag.say("XdndDrop", {0, CurrentTime, 0, 0});
    return drag.hear("XdndFinished");
}

std::string XScreen::titleOf(uint64_t window) {
    Display* x11 = server(display);
    Atom type = None;
    int format = 0;
    uint64_t count = 0;
    uint64_t left = 0;
    unsigned char* bytes = nullptr;
    std::string title;
    if (XGetWindowProperty(x11, window, XInternAtom(x11, "_NET_WM_NAME", False), 0, 1024, False,
                           XInternAtom(x11, "UTF8_STRING", False), &type, &format, &count, &left,
                           &bytes) == Success &&
        format == 8) {
        title.assign(reinterpret_cast<const char*>(bytes), count);
    }
    if (bytes != nullptr) {
        XFree(bytes);
    }
    char* plain = nullptr;
    if (title.empty() && XFetchName(x11, window, &plain) != 0 && plain != nullptr) {
        title = plain;
        XFree(plain);
    }
    return title;
}

void XScreen::setResources(const std::string& text) {
    Display* x11 = server(display);
    XChangeProperty(x11, DefaultRootWindow(x11), XA_RESOURCE_MANAGER, XA_STRING, 8, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(text.data()),
                    static_cast<int>(text.size()));
    XSync(x11, False);
}

uint64_t XScreen::cover(int32_t x, int32_t y, int32_t width, int32_t height) {
    Display* x11 = server(display);
    const Window window =
        XCreateSimpleWindow(x11, DefaultRootWindow(x11), x, y, static_cast<unsigned>(width),
                            static_cast<unsigned>(height), 0, 0, 0xFF00FF);
    XMapRaised(x11, window);
    XSync(x11, False);
    return window;
}

int32_t XScreen::widthOf(uint64_t window) {
    XWindowAttributes place{};
    XGetWindowAttributes(server(display), window, &place);
    return place.width;
}

std::vector<uint32_t> XScreen::iconOf(uint64_t window) {
    constexpr int64_t kMaxWords = 1 << 20;
    Display* x11 = server(display);
    Atom type = None;
    int format = 0;
    uint64_t count = 0;
    uint64_t left = 0;
    unsigned char* words = nullptr;
    std::vector<uint32_t> icon;
    if (XGetWindowProperty(x11, window, XInternAtom(x11, "_NET_WM_ICON", False), 0, kMaxWords,
                           False, XA_CARDINAL, &type, &format, &count, &left, &words) == Success &&
        format == 32) {
        // Xlib hands over words of 32 bits in elements of 64.
        const auto* elements = reinterpret_cast<const uint64_t*>(words);
        for (uint64_t i = 0; i < count; i++) {
            icon.push_back(static_cast<uint32_t>(elements[i]));
        }
    }
    if (words != nullptr) {
        XFree(words);
    }
    return icon;
}

void XScreen::map(uint64_t window) {
    XMapWindow(server(display), window);
    XFlush(server(display));
}

void XScreen::unmap(uint64_t window) {
    XUnmapWindow(server(display), window);
    XFlush(server(display));
}

void XScreen::maximise(uint64_t window) {
    constexpr int kAdd = 1;
    Display* const screen = server(display);
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(screen, "_NET_WM_STATE", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = kAdd;
    event.xclient.data.l[1] =
        static_cast<int64_t>(XInternAtom(screen, "_NET_WM_STATE_MAXIMIZED_VERT", False));
    event.xclient.data.l[2] =
        static_cast<int64_t>(XInternAtom(screen, "_NET_WM_STATE_MAXIMIZED_HORZ", False));
    XSendEvent(screen, DefaultRootWindow(screen), False,
               SubstructureRedirectMask | SubstructureNotifyMask, &event);
    XFlush(screen);
}

void XScreen::resize(uint64_t window, int32_t width, int32_t height) {
    XResizeWindow(server(display), window, static_cast<unsigned>(width),
                  static_cast<unsigned>(height));
    XFlush(server(display));
}
