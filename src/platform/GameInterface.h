// SPDX-License-Identifier: MIT
// The bridge between the phone's application and the framework. It owns the application object, the
// 240 x 320 bitmap, and the graphics that paint into it; everything from outside enters the program
// through it.
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
    /// Makes the application object, which runs every class initialiser.
    GameInterface();
    ~GameInterface() override;
    GameInterface(const GameInterface&) = delete;
    GameInterface& operator=(const GameInterface&) = delete;

    void AppInit();
    void AppPause();

    /// Resumes the program, unless the question about silence must be answered first.
    void AppResume();
    void AppQuit();

    /// Makes one frame: runs one event, writes the picture into the bitmap, and draws the bitmap
    /// doubled on the canvas.
    void AppPaint(Osp::Graphics::Canvas* canvas);

    /// Positions are in display pixels. The canvas begins at y 160 of the display, so a touch above
    /// it has a negative y on the canvas.
    void OnPointerPressed(int32_t x, int32_t y);
    void OnPointerReleased(int32_t x, int32_t y);
    void OnPointerMove(int32_t x, int32_t y);

    int32_t HandleEvent(void* /*data*/, int32_t /*event*/) { return 0; }

    static bool& Active;  // false once the user has quit: after one more frame the program ends

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

    int32_t takenCount() override { return taken; }

    bool canUseSound() override { return isAtRest(); }

    bool showEffect(int32_t index) override;
    int32_t savedCount() override;
    std::string savedName() override;
    std::vector<uint8_t> canvasPng() override;
    std::vector<uint16_t> canvasPixels() override;
    ScreenTexts texts() override;

    /// True if the host may leave the current screen, to save or to replace the take.
    static bool isAtRest();

    Murmelo* pMidlet;                   // owned
    CanvasGraphics* pGraphics;          // owned
    Osp::Graphics::Bitmap* pBitmap;     // owned
    Osp::Graphics::RowMarks drawnRows;  // rows of the bitmap that the current frame has written
    int32_t taken = 0;                  // sounds that have become the take
};
