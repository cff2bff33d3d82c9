// SPDX-License-Identifier: MIT
// The program's one canvas: its 240 x 320 picture, one scheduler tick for each frame, touches
// turned into events.
#pragma once

#include "GnoCanvas.h"
#include "RowMarks.h"

#include <cstdint>

class AppImage;
class CanvasOverlay;

namespace Osp::Base {
class String;
}

class OrmCanvas : public GnoCanvas {
public:
    static constexpr int32_t kWidthPx = 240;
    static constexpr int32_t kHeightPx = 320;

    static constexpr int32_t kKeyUp = -1;
    static constexpr int32_t kKeyDown = -2;
    static constexpr int32_t kKeyLeft = -3;
    static constexpr int32_t kKeyRight = -4;
    static constexpr int32_t kKeyMiddle = -5;
    static constexpr int32_t kKeyLeftSoft = -6;
    static constexpr int32_t kKeyRightSoft = -7;

    OrmCanvas();
    ~OrmCanvas() override;

    void hideNotify() override;
    void showNotify() override;

    /// @param keyCode  one of the codes above. Does nothing while the program is paused
    void keyPressed(int32_t keyCode) override;
    void keyReleased(int32_t keyCode) override;
    void paint(GnoGraphics* g) override;

    /// Paints only the rows in which something was painted since the last call; the first call
    /// paints all of them.
    /// @param g  its surface must still hold the result of the last call
    void paintChanges(GnoGraphics* g);

    /// Only stores the place of the press.
    void pointerPressed(int32_t x, int32_t y) override;

    /// Turns each 100 pixels of horizontal movement into a left or right key.
    void pointerDragged(int32_t x, int32_t y) override;
    void pointerReleased(int32_t x, int32_t y) override;
    void sizeChanged(int32_t w, int32_t h) override;

    /// One tick of the scheduler: delivers at most one event, even if more are due.
    virtual void run();

    /// Paints nothing: the display is never turned.
    virtual void paintWRMessage(GnoGraphics* /*g*/) {}

    AppImage* getScreen() const { return screen; }

    static void static_ctor();

    static CanvasOverlay* overlay;        // the question, not owned; shown by showIsSilentPopup
    static bool wrongRes;                 // the display is landscape
    static bool showIsSilentPopup;        // the silent-mode question stands on the screen
    static bool silentPopupShown;         // it was raised since the last resume that was not silent
    static bool safeToShowIsSilentPopup;  // a screen allows it to be raised

private:
    void dynamic_ctor();
    void dynamic_dtor();
    void paintPicture(GnoGraphics* g, Osp::Graphics::RowMarks& rows);
    void paintOverlay(GnoGraphics* g, Osp::Graphics::RowMarks& rows);
    void copyScreenTo(GnoGraphics* g, Osp::Graphics::RowMarks& rows);
    void makeScreen();
    static void schedSwipe(Osp::Base::String* key);

    AppImage* screen = nullptr;                  // owned
    Osp::Graphics::RowMarks painted{kHeightPx};  // of the screen, since paintChanges()
    int32_t lastX = -1;                          // of the press in progress; -1: none
    int32_t lastY = -1;
};
