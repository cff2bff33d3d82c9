#include "XScreen.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace {

Display* server(void* display) {
    return static_cast<Display*>(display);
}

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

uint64_t XScreen::windowOf(const std::string& title) {
    Display* x11 = server(display);
    Window root = 0;
    Window parent = 0;
    Window* children = nullptr;
    unsigned count = 0;
    XQueryTree(x11, DefaultRootWindow(x11), &root, &parent, &children, &count);
    uint64_t found = 0;
    for (unsigned i = 0; i < count; i++) {
        char* name = nullptr;
        if (XFetchName(x11, children[i], &name) != 0 && name != nullptr) {
            found = title == name ? children[i] : found;
            XFree(name);
        }
    }
    XFree(children);
    return found;
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

void XScreen::map(uint64_t window) {
    XMapWindow(server(display), window);
    XFlush(server(display));
}

void XScreen::unmap(uint64_t window) {
    XUnmapWindow(server(display), window);
    XFlush(server(display));
}

void XScreen::resize(uint64_t window, int32_t width, int32_t height) {
    XResizeWindow(server(display), window, static_cast<unsigned>(width),
                  static_cast<unsigned>(height));
    XFlush(server(display));
}
