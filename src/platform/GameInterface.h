// SPDX-License-Identifier: MIT
// The bridge between the phone's application and the framework: owns the application object, the
// 240 x 320 bitmap and the graphics that paint into it, and is the only way from outside into the
// program.
#pragma once

#include "Host.h"
#include "RowMarks.h"

#include <cstdint>

class CanvasGraphics;
class Murmelo;

namespace Osp::Graphics {
class Bitmap;
class Canvas;
}  // namespace Osp::Graphics

class GameInterface : private HostDoors {
public:
    /// Makes the application object; every class initialiser runs here.
    GameInterface();
    ~GameInterface() override;
    GameInterface(const GameInterface&) = delete;
    GameInterface& operator=(const GameInterface&) = delete;

    void AppInit();
    void AppPause();

    /// Resumes, unless the phone is silent and the question about it is shown or raised now.
    void AppResume();
    void AppQuit();

    /// One frame: a tick, the picture into the bitmap, the bitmap doubled onto the display.
    void AppPaint(Osp::Graphics::Canvas* canvas);

    /// Positions in display pixels. The canvas lies doubled at y 160, so a touch above it has a
    /// negative y there.
    void OnPointerPressed(int32_t x, int32_t y);
    void OnPointerReleased(int32_t x, int32_t y);
    void OnPointerMove(int32_t x, int32_t y);

    int32_t HandleEvent(void* /*data*/, int32_t /*event*/) { return 0; }

    static bool& Active;  // cleared when the user quits: one more frame, then the program ends

private:
    std::string screenName() override;
    int32_t currentEffect() override;
    std::string effectName(int32_t effect) override;
    bool navigate(HostKey key) override;
    static bool answerByKey(HostKey key);
    bool stopRecording() override;
    bool saveSound() override;
    bool canSave() override;
    bool useSound(const int16_t* samples, int32_t count) override;
    bool useTake(const int16_t* samples, int32_t count) override;

    bool canUseSound() override { return isAtRest(); }

    bool showEffect(int32_t index) override;
    int32_t savedCount() override;
    std::string savedName() override;
    std::vector<uint8_t> canvasPng() override;
    std::vector<uint16_t> canvasPixels() override;
    ScreenTexts texts() override;

    /// True if the host may leave the current screen (to save, or to replace the take).
    static bool isAtRest();

    Murmelo* pMidlet;                   // owned
    CanvasGraphics* pGraphics;          // owned
    Osp::Graphics::Bitmap* pBitmap;     // owned
    Osp::Graphics::RowMarks drawnRows;  // of the bitmap, in the frame that is being painted
};
