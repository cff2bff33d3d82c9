// SPDX-License-Identifier: MIT
#include "SilentQuestion.h"

#include "AppImage.h"
#include "AudioDev.h"
#include "Bounds.h"
#include "Event.h"
#include "G.h"
#include "ImageOps.h"
#include "Message.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "OspSystem.h"
#include "Payload.h"
#include "Res.h"
#include "SkBar.h"
#include "Str.h"

namespace {

constexpr uint32_t kDarkArgb = 0xEB000000;

}  // namespace

bool SilentQuestion::isPhoneSilent() {
    bool silent = false;
    Osp::System::SettingInfo::GetValue("SilentMode", silent);
    return silent;
}

void SilentQuestion::offer() {
    if (!OrmCanvas::silentPopupShown && isPhoneSilent()) {
        raise();
    }
    OrmCanvas::safeToShowIsSilentPopup = true;
}

void SilentQuestion::raise() {
    OrmCanvas::showIsSilentPopup = true;
    // The pause comes first, because at a pause a screen may end its work and set other soft keys.
    Orm::setPaused(true);
    SkBar::save();
    OrmCanvas::silentPopupShown = true;
}

void SilentQuestion::resume() {
    const bool silent = isPhoneSilent();
    if (silent && OrmCanvas::safeToShowIsSilentPopup && !OrmCanvas::silentPopupShown) {
        raise();
        return;  // paused until the question is answered
    }
    if (silent && OrmCanvas::showIsSilentPopup) {
        return;  // the question is still shown: it works only while the scheduler is paused
    }
    Orm::canvas->showNotify();
    if (!silent) {
        withdraw();
    }
}

/// The phone is no longer silent: removes the question.
void SilentQuestion::withdraw() {
    OrmCanvas::silentPopupShown = false;
    AudioDev::isSilent = false;
    if (OrmCanvas::showIsSilentPopup) {
        OrmCanvas::showIsSilentPopup = false;
        SkBar::restore();
        SkBar::paint(true);
    }
}

void SilentQuestion::paint() {
    // Darkens the picture, so that words on it cannot be read through the glass or beside it.
    ImageOps::blend(G::scr, kDarkArgb, 0, 0, G::scr->w, SkBar::y1, G::scrB, nullptr);
    SkBar::setStr(Str::str_SK_YES, Res::Null, Str::str_SK_NO);
    SkBar::paint(true);
    Message::setText(Str::str_SILENT_DEVICE, G::fntMedium);
    Message::paint();
    Orm::flush();
}

void SilentQuestion::release(int32_t x, int32_t y) {
    Event touch(Orm::EV_T_POINTER_RELEASE, nullptr, positionToPayload(x, y), 0);
    const int32_t answer = SkBar::update(&touch, true);
    if (answer != Str::str_SK_YES && answer != Str::str_SK_NO) {
        return;
    }
    AudioDev::isSilent = answer == Str::str_SK_NO;
    OrmCanvas::showIsSilentPopup = false;
    SkBar::restore();
    Orm::canvas->showNotify();
}
