#include "SilentQuestion.h"

#include "AudioDev.h"
#include "Bounds.h"
#include "Event.h"
#include "G.h"
#include "Message.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "OspSystem.h"
#include "PaStretcher.h"
#include "Payload.h"
#include "Res.h"
#include "SkBar.h"
#include "Str.h"

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
    // First, because a screen may give its work up at a pause and leave other soft keys.
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
        return;  // it still stands: answers are taken only while the scheduler is paused
    }
    Orm::canvas->showNotify();
    if (!silent) {
        withdraw();
    }
}

/// The phone is no longer silent: nothing is left to ask.
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
    SkBar::setStr(Str::str_SK_YES, Res::Null, Str::str_SK_NO);
    SkBar::paint(true);
    Message::setText(Str::str_SILENT_DEVICE, G::fntMedium);
    // Other words may stand under the box, and would be read through a single glass.
    G::psWndBg->paintOn(G::scr, 0, 0, G::scrB, nullptr);
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
