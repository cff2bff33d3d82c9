// SPDX-License-Identifier: MIT
#include "GameInterface.h"

#include "AppImage.h"
#include "Arithmetic.h"
#include "Assembly.h"
#include "CanvasGraphics.h"
#include "FileOps.h"
#include "G.h"
#include "Murmelo.h"
#include "Options.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "OspGraphics.h"
#include "Play.h"
#include "PngEncoder.h"
#include "Recording.h"
#include "Save.h"
#include "ScreenTable.h"
#include "SilentQuestion.h"
#include "SkBar.h"
#include "State.h"
#include "Str.h"
#include "TakeJob.h"
#include "TextsReader.h"

using Osp::Graphics::Bitmap;
using Osp::Graphics::BufferInfo;
using Osp::Graphics::Canvas;

namespace {

constexpr int32_t kWidthPx = OrmCanvas::kWidthPx;
constexpr int32_t kHeightPx = OrmCanvas::kHeightPx;
constexpr int32_t kFactor = HostFrame::kCanvasFactor;
constexpr int32_t kTopPx = HostFrame::kCanvasTopPx;
static_assert(kFactor == 2, "the two shifts below halve");
static_assert(kFactor * kWidthPx == HostFrame::kWidthPx);
static_assert(kTopPx + kFactor * kHeightPx == HostFrame::kHeightPx);
static_assert(kFactor * SkBar::kHeightPx == HostFrame::kSoftKeysHeightPx);

static_assert(HostMicrophone::kLongestTakeSamples ==
              HostMicrophone::kRateHz / 1000 * Recording::kTakeMaxMs);

constexpr bool isCode(HostKey key, int32_t keyCode) {
    return static_cast<int32_t>(key) == keyCode;
}

static_assert(isCode(HostKey::kUp, OrmCanvas::kKeyUp));
static_assert(isCode(HostKey::kDown, OrmCanvas::kKeyDown));
static_assert(isCode(HostKey::kLeft, OrmCanvas::kKeyLeft));
static_assert(isCode(HostKey::kRight, OrmCanvas::kKeyRight));
static_assert(isCode(HostKey::kMiddle, OrmCanvas::kKeyMiddle));
static_assert(isCode(HostKey::kLeftSoft, OrmCanvas::kKeyLeftSoft));
static_assert(isCode(HostKey::kRightSoft, OrmCanvas::kKeyRightSoft));

// Deliberate: wider than the display's 480 pixels. The fill is cut to the display, so all of it is
// covered.
constexpr int32_t kFillWidthPx = 640;
constexpr int32_t kFillHeightPx = 800;

int32_t canvasX(int32_t displayX) {
    return displayX >> 1;
}

int32_t canvasY(int32_t displayY) {
    return wrapSub(displayY, kTopPx) >> 1;
}

}  // namespace

bool& GameInterface::Active = OrmMidlet::active;  // kept there, where the screens can use it

GameInterface::GameInterface()
    : drawnRows(kHeightPx) {
    Active = true;  // for a second start in one process
    Assembly::install();
    pMidlet = new Murmelo();
    pBitmap = new Bitmap();
    pBitmap->Construct({kWidthPx, kHeightPx}, Osp::Graphics::BITMAP_PIXEL_FORMAT_RGB565);
    BufferInfo info;
    pBitmap->Lock(info, -1);
    pGraphics = new CanvasGraphics(info.pPixels, kWidthPx, kHeightPx);
    pGraphics->watchRows(&drawnRows);
    pBitmap->Unlock();
    Host::current().setDoors(this);
}

GameInterface::~GameInterface() {
    Host::current().setDoors(nullptr);
    delete pGraphics;
    delete pBitmap;
    delete pMidlet;  // already null after AppQuit
}

void GameInterface::AppInit() {
    pMidlet->onInit();
}

void GameInterface::AppPause() {
    Orm::canvas->hideNotify();
}

void GameInterface::AppResume() {
    SilentQuestion::resume();
}

void GameInterface::AppQuit() {
    if (pMidlet != nullptr) {
        pMidlet->onShutDown();
        delete pMidlet;
        pMidlet = nullptr;
    }
}

void GameInterface::AppPaint(Canvas* canvas) {
    if (Orm::canvas == nullptr) {
        return;
    }
    Orm::canvas->run();
    BufferInfo info;
    pBitmap->Lock(info, -1);
    pGraphics->SetCanvas(canvas);
    Orm::canvas->paintChanges(pGraphics);
    pBitmap->Unlock(drawnRows);
    drawnRows.clear();
    canvas->FillRectangle(*Murmelo::pBkgColor, {0, 0, kFillWidthPx, kFillHeightPx});
    canvas->DrawBitmap({0, kTopPx, kFactor * kWidthPx, kFactor * kHeightPx}, *pBitmap,
                       {0, 0, kWidthPx, kHeightPx});
}

void GameInterface::OnPointerPressed(int32_t x, int32_t y) {
    if (Orm::canvas != nullptr) {
        Orm::canvas->pointerPressed(canvasX(x), canvasY(y));
    }
}

void GameInterface::OnPointerReleased(int32_t x, int32_t y) {
    if (Orm::canvas != nullptr) {
        Orm::canvas->pointerReleased(canvasX(x), canvasY(y));
    }
}

void GameInterface::OnPointerMove(int32_t x, int32_t y) {
    if (Orm::canvas != nullptr) {
        Orm::canvas->pointerDragged(canvasX(x), canvasY(y));
    }
}

std::string GameInterface::screenName() {
    return ScreenTable::currentName();
}

int32_t GameInterface::currentEffect() {
    return G::getCurrFx();
}

std::string GameInterface::effectName(int32_t effect) {
    return TextsReader::effectName(effect);
}

bool GameInterface::navigate(HostKey key) {
    if (Orm::canvas == nullptr) {
        return false;
    }
    if (OrmCanvas::showIsSilentPopup) {
        return answerByKey(key);
    }
    Orm::canvas->keyPressed(static_cast<int32_t>(key));
    Orm::canvas->keyReleased(static_cast<int32_t>(key));
    return true;
}

bool GameInterface::isAtRest() {
    if (Orm::canvas == nullptr || Orm::isPaused() || Orm::isDisposed) {
        return false;
    }
    const bool inMenu = State::currState == G::stateOptions &&
                        static_cast<Options*>(G::stateOptions)->isMenuShown();
    return inMenu || State::currState == G::statePlay;
}

bool GameInterface::stopRecording() {
    const bool offered = Orm::canvas != nullptr && !Orm::isPaused() && !Orm::isDisposed &&
                         State::currState == G::stateRecording && SkBar::strMsk == Str::str_SK_STOP;
    return offered && navigate(HostKey::kMiddle);
}

bool GameInterface::canSave() {
    return isAtRest() && FileOps::exists(G::takePath());
}

bool GameInterface::saveSound() {
    if (!canSave()) {
        return false;
    }
    State::setState(G::stateSave, true, true);
    return true;
}

bool GameInterface::useSound(const int16_t* samples, int32_t count) {
    if (!isAtRest() || count < 1) {
        return false;
    }
    taken++;
    TakeJob::use(samples, count);
    return true;
}

bool GameInterface::useTake(const int16_t* samples, int32_t count) {
    if (!isAtRest() || count < 1) {
        return false;
    }
    taken++;
    TakeJob::bringBack(samples, count);
    return true;
}

bool GameInterface::showEffect(int32_t index) {
    if (!isAtRest() || State::currState != G::statePlay || index < 0 || index >= length(G::fxs)) {
        return false;
    }
    Play::show(index);
    return true;
}

/// While the question about silence is shown, the canvas accepts only touches on the soft keys. So
/// a key that means a soft key is delivered as a touch.
bool GameInterface::answerByKey(HostKey key) {
    if (key != HostKey::kLeftSoft && key != HostKey::kRightSoft) {
        return false;
    }
    const auto* softKey = key == HostKey::kLeftSoft ? Orm::EV_ST_KEY_LSK : Orm::EV_ST_KEY_RSK;
    Orm::canvas->pointerReleased(SkBar::middleXOf(softKey), SkBar::middleY());
    return true;
}

int32_t GameInterface::savedCount() {
    return G::stateSave != nullptr ? static_cast<Save*>(G::stateSave)->getSavedCount() : 0;
}

std::string GameInterface::savedName() {
    const Osp::Base::String* name =
        G::stateSave != nullptr ? static_cast<Save*>(G::stateSave)->getSavedName() : nullptr;
    return name != nullptr ? name->ToUtf8() : "";
}

std::vector<uint8_t> GameInterface::canvasPng() {
    if (Orm::canvas == nullptr) {
        return {};
    }
    const AppImage* screen = Orm::getScreen();
    PngEncoder encoder;
    if (!encoder.setImageData(screen->pixels, screen->w, screen->h)) {
        return {};
    }
    const auto* bytes = reinterpret_cast<const uint8_t*>(encoder.encode());
    return {bytes, bytes + encoder.getLength()};
}

std::vector<uint16_t> GameInterface::canvasPixels() {
    if (Orm::canvas == nullptr || OrmCanvas::wrongRes) {
        return {};
    }
    std::vector<uint16_t> pixels(static_cast<size_t>(kWidthPx) * kHeightPx);
    CanvasGraphics graphics(reinterpret_cast<unsigned char*>(pixels.data()), kWidthPx, kHeightPx);
    Orm::canvas->paint(&graphics);
    return pixels;
}

ScreenTexts GameInterface::texts() {
    return TextsReader::read();
}
