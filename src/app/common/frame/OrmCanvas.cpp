// SPDX-License-Identifier: MIT
#include "OrmCanvas.h"

#include "AppImage.h"
#include "Arithmetic.h"
#include "CanvasOverlay.h"
#include "Event.h"
#include "GnoGraphics.h"
#include "Orm.h"
#include "Payload.h"
#include "System.h"

#include <memory>

using Osp::Base::String;
using Osp::Graphics::RowMarks;

namespace {

constexpr int32_t kNoPress = -1;
// A longer drag counts as a key. If this were smaller, an unsteady tap would change the effect.
constexpr int32_t kSwipePx = 99;
constexpr int32_t kGreen = 0x80FF00;  // not visible in normal operation

String* keyName(int32_t keyCode) {
    switch (keyCode) {
    case OrmCanvas::kKeyUp:
        return Orm::EV_ST_KEY_UP;
    case OrmCanvas::kKeyDown:
        return Orm::EV_ST_KEY_DOWN;
    case OrmCanvas::kKeyLeft:
        return Orm::EV_ST_KEY_LEFT;
    case OrmCanvas::kKeyRight:
        return Orm::EV_ST_KEY_RIGHT;
    case OrmCanvas::kKeyMiddle:
        return Orm::EV_ST_KEY_MSK;
    case OrmCanvas::kKeyLeftSoft:
        return Orm::EV_ST_KEY_LSK;
    case OrmCanvas::kKeyRightSoft:
        return Orm::EV_ST_KEY_RSK;
    default:
        return nullptr;
    }
}

}  // namespace

CanvasOverlay* OrmCanvas::overlay;
bool OrmCanvas::wrongRes;
bool OrmCanvas::showIsSilentPopup;
bool OrmCanvas::silentPopupShown;
bool OrmCanvas::safeToShowIsSilentPopup;

void OrmCanvas::static_ctor() {
    wrongRes = false;
    showIsSilentPopup = false;
    silentPopupShown = false;
    safeToShowIsSilentPopup = false;
}

void OrmCanvas::dynamic_ctor() {
    makeScreen();
    lastX = kNoPress;
    lastY = kNoPress;
}

void OrmCanvas::makeScreen() {
    screen = new AppImage(kWidthPx, kHeightPx);
    screen->watchRows(&painted);
}

void OrmCanvas::dynamic_dtor() {
    delete screen;
    screen = nullptr;
}

OrmCanvas::OrmCanvas() {
    dynamic_ctor();
}

OrmCanvas::~OrmCanvas() {
    dynamic_dtor();
}

void OrmCanvas::run() {
    Event sysDispose(Orm::EV_T_SYS_DISPOSE, nullptr, nullptr, 0);
    const int32_t now = System::currentTimeMillis();
    if (Orm::isDisposed) {
        Orm::setReceivers(Orm::EV_T_SYS_DISPOSE);
        Orm::deliverToReceivers(&sysDispose);
    } else if (Orm::isPaused()) {
        Orm::setReceivers(Orm::EV_T_SYS_PAUSE);  // the pause itself was delivered when it began
    } else if (Orm::firstEvent != nullptr && !timeBefore(now, Orm::firstEvent->time)) {
        const std::unique_ptr<Event> head(Orm::firstEvent);
        Orm::firstEvent = head->next;
        head->detachMe();
        Orm::setReceivers(head->type);
        Orm::deliverToReceivers(head.get());
    }
}

void OrmCanvas::paint(GnoGraphics* g) {
    const RowMarks waiting = painted;
    RowMarks all(kHeightPx);
    all.markAll();
    paintPicture(g, all);
    painted = waiting;  // an overlay has marked rows, but has restored them
}

void OrmCanvas::paintChanges(GnoGraphics* g) {
    paintPicture(g, painted);
    if (wrongRes) {
        painted.markAll();  // the message may have covered all of it
    }
}

/// @param rows  the rows to copy; then their marks are cleared
void OrmCanvas::paintPicture(GnoGraphics* g, RowMarks& rows) {
    if (wrongRes) {
        paintWRMessage(g);
        return;
    }
    if (screen == nullptr) {
        g->setColor(kGreen);
        g->fillRect(0, 0, kWidthPx, kHeightPx);
        return;
    }
    if (showIsSilentPopup) {
        paintOverlay(g, rows);
    } else {
        copyScreenTo(g, rows);
    }
}

/// Paints the overlay, copies the result, and restores the canvas's own picture. Called for each
/// frame while the overlay is shown.
void OrmCanvas::paintOverlay(GnoGraphics* g, RowMarks& rows) {
    AppImage below(screen);
    overlay->paint();
    copyScreenTo(g, rows);
    screen->set(&below);  // marks all rows, for the next picture
}

void OrmCanvas::copyScreenTo(GnoGraphics* g, RowMarks& rows) {
    for (RowMarks::Run run = rows.next(0); run.count > 0; run = rows.next(run.first + run.count)) {
        g->drawRGB(screen->pixels, run.first * screen->w, screen->w, 0, run.first, screen->w,
                   run.count, false);
    }
    rows.clear();
}

void OrmCanvas::keyPressed(int32_t keyCode) {
    if (!Orm::isPaused()) {
        Orm::schedEvent(Orm::EV_T_KEY_PRESS, keyName(keyCode), nullptr, 0);
    }
}

void OrmCanvas::keyReleased(int32_t keyCode) {
    if (!Orm::isPaused()) {
        Orm::schedEvent(Orm::EV_T_KEY_RELEASE, keyName(keyCode), nullptr, 0);
    }
}

void OrmCanvas::pointerPressed(int32_t x, int32_t y) {
    lastX = x;
    lastY = y;
}

void OrmCanvas::schedSwipe(String* key) {
    Orm::schedEvent(Orm::EV_T_KEY_PRESS, key, nullptr, 0);
    Orm::schedEvent(Orm::EV_T_KEY_RELEASE, key, nullptr, 0);
}

void OrmCanvas::pointerDragged(int32_t x, int32_t /*y*/) {
    if (Orm::isPaused()) {
        return;
    }
    if (lastX == kNoPress || lastY == kNoPress) {
        lastX = kNoPress;
        lastY = kNoPress;
        return;
    }
    if (x - lastX > kSwipePx) {
        lastX = x;
        schedSwipe(Orm::EV_ST_KEY_LEFT);
    }
    if (x - lastX < -kSwipePx) {
        lastX = x;
        schedSwipe(Orm::EV_ST_KEY_RIGHT);
    }
}

void OrmCanvas::pointerReleased(int32_t x, int32_t y) {
    if (!Orm::isPaused()) {
        lastX = kNoPress;
        lastY = kNoPress;
        Orm::schedEvent(Orm::EV_T_POINTER_RELEASE, nullptr, positionToPayload(x, y), 0);
    } else if (showIsSilentPopup) {
        lastX = kNoPress;
        lastY = kNoPress;
        overlay->release(x, y);
    }
}

void OrmCanvas::hideNotify() {
    Orm::setPaused(true);
}

void OrmCanvas::showNotify() {
    if (screen == nullptr) {
        makeScreen();
        Orm::mainLoop();
        return;
    }
    if (getWidth() > getHeight()) {
        wrongRes = true;
        hideNotify();
        return;
    }
    Orm::setPaused(false);
    repaint();
}

void OrmCanvas::sizeChanged(int32_t w, int32_t h) {
    if (w > h) {
        wrongRes = true;
        hideNotify();
        repaint();
    } else if (Orm::isPaused()) {
        wrongRes = false;
        showNotify();
        repaint();
    }
}
