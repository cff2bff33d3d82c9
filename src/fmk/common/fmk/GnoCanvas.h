// SPDX-License-Identifier: MIT
// A full-screen canvas: receives everything that the phone reports, and ignores what no subclass
// overrides.
#pragma once

#include "GnoObject.h"

namespace Osp::Graphics {
class Canvas;
}
class GnoGraphics;

class GnoCanvas : public GnoObject {
public:
    virtual void hideNotify() {}

    virtual void showNotify() {}

    virtual void keyPressed(int32_t /*keyCode*/) {}

    virtual void keyReleased(int32_t /*keyCode*/) {}

    virtual void keyRepeated(int32_t /*keyCode*/) {}

    virtual void paint(GnoGraphics* /*graphics*/) {}

    virtual void pointerPressed(int32_t /*x*/, int32_t /*y*/) {}

    virtual void pointerDragged(int32_t /*x*/, int32_t /*y*/) {}

    virtual void pointerReleased(int32_t /*x*/, int32_t /*y*/) {}

    virtual void sizeChanged(int32_t /*w*/, int32_t /*h*/) {}

    virtual void processEvent(int32_t /*type*/, int32_t /*value*/) {}

    /// @param platformCanvas  not owned
    void SetCanvas(Osp::Graphics::Canvas* platformCanvas) { canvas = platformCanvas; }

    /// Deliberate: both return 0 on every display, so a canvas takes itself for square, never for
    /// landscape.
    int32_t getWidth() const { return 0; }

    int32_t getHeight() const { return 0; }

    /// Does nothing: the host shows each frame anyway.
    void repaint() {}

    void repaint(int32_t /*x*/, int32_t /*y*/, int32_t /*w*/, int32_t /*h*/) {}

    void serviceRepaints() {}

    /// True if there is a platform canvas to be shown on.
    bool isShown() const { return canvas != nullptr; }

    /// One bit for each of the key codes -1 .. -9 (1, 2, 4 .. 256), 0 for any other.
    int32_t getGameAction(int32_t keyCode) const {
        return keyCode >= kLastActionKey && keyCode <= -1 ? 1 << (-keyCode - 1) : 0;
    }

protected:
    Osp::Graphics::Canvas* canvas = nullptr;

private:
    static constexpr int32_t kLastActionKey = -9;
};
