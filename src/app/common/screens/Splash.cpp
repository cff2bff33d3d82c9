// SPDX-License-Identifier: MIT
#include "Splash.h"

#include "AppImage.h"
#include "Bounds.h"
#include "Event.h"
#include "FileInputStream.h"
#include "FileOps.h"
#include "G.h"
#include "ImageOps.h"
#include "Main.h"
#include "MessageAndQuit.h"
#include "MIDlet.h"
#include "Murmelo.h"
#include "Orm.h"
#include "OspBase.h"
#include "Pooled.h"
#include "Res.h"
#include "SkBar.h"

#include <memory>

namespace {

constexpr int32_t kShownMs = 3000;
constexpr int32_t kWidthPx = 240;
constexpr int32_t kTopHeightPx = 248;
constexpr int32_t kBottomHeightPx = 72;
constexpr int32_t kUnknown = -1;
constexpr int32_t kTooLittleBytes = 1024;

}  // namespace

void Splash::onEnter() {
    // If the program is paused now, the rest is done after the resume.
    waitsForResume = Orm::isPaused();
    if (!waitsForResume) {
        begin();
    }
}

void Splash::begin() {
    SkBar::setStr(Res::Null, Res::Null, Res::Null);  // the bar is not painted below the pictures
    Main::coverFurniture();
    paintPicture("/Res/splash_top.png", kTopHeightPx, 0);
    paintPicture("/Res/splash_eu.png", kBottomHeightPx, kTopHeightPx);
    Orm::flush();
    if (!enoughStorage()) {
        return;
    }
    G::setDirTones();
    G::setMrmFolderUri(G::uriWavFolder);
    if (!FileOps::mkdir(*G::getMrmFolderUri())) {
        MessageAndQuit::enter(MessageAndQuit::kNotSupported);
        return;
    }
    Murmelo::deleteTempFiles();
    Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, kShownMs);
}

void Splash::paintPicture(const char* path, int32_t h, int32_t y) {
    const std::unique_ptr<InputStream> stream(MIDlet::getResourceAsStream(path));
    const std::unique_ptr<AppImage> image(Orm::loadImage(stream.get()));
    if (image != nullptr) {
        const PooledBounds area(Bounds::alloc(0, y, kWidthPx, h));
        ImageOps::blend(G::scr, image.get(), 0, y, area, nullptr);
    }
    stream->close();
}

/// Returns false if sounds cannot be kept; then it has shown the fatal message.
bool Splash::enoughStorage() {
    const int32_t card = FileOps::getAvailMemCard();
    const int32_t phone = FileOps::getAvailPhone();
    if (card == kUnknown && phone == kUnknown) {
        MessageAndQuit::enter(MessageAndQuit::kNotSupported);
        return false;
    }
    if (card <= kTooLittleBytes && phone <= kTooLittleBytes) {
        MessageAndQuit::enter(MessageAndQuit::kStorageLow);
        return false;
    }
    return true;
}

void Splash::onEvent(Event* event) {
    if (waitsForResume) {
        if (event->type == Orm::EV_T_SYS_RESUME) {
            waitsForResume = false;
            begin();
        }
        return;
    }
    const bool middleKey =
        event->type == Orm::EV_T_KEY_PRESS && event->subType == Orm::EV_ST_KEY_MSK;
    if (middleKey || event->type == Orm::EV_T_UPDATE) {
        State::setState(G::stateOptions, true, true);
    }
}
