// SPDX-License-Identifier: MIT
#include "GlobalsMaker.h"

#include "ArrFunc.h"
#include "Fx.h"
#include "G.h"
#include "Header.h"
#include "OrmCanvas.h"
#include "PaImage.h"
#include "PaStretcher.h"
#include "Res.h"
#include "ScreenTable.h"
#include "Scroller.h"
#include "SilentQuestion.h"
#include "SkBar.h"
#include "WpMicPostProc.h"

namespace {

// In the order in which they are made.
PaImage** const kImagePainters[] = {&G::piBg,
                                    &G::piMicOverlay,
                                    &G::piMicLedFlash,
                                    &G::piWheelsOverlay,
                                    &G::piButtonsPlay,
                                    &G::piButtonsStop,
                                    &G::piButtonsRec,
                                    &G::piArrowRightBlack,
                                    &G::piArrowRightWhite,
                                    &G::piArrowLeftWhite,
                                    &G::piWheels15,
                                    &G::piWheels30,
                                    &G::piWheels45,
                                    &G::piWheels60,
                                    &G::piWheels75};
PaStretcher** const kStretchers[] = {&G::psFocusBar, &G::psSkBg, &G::psWndBg};

template <class Owned>
void discard(Owned*& owned) {
    delete owned;
    owned = nullptr;
}

}  // namespace

void GlobalsMaker::make() {
    makePainters();
    G::fntMedium = Res::addFont("/Res/bmf15.bmf");
    G::fntSmall = Res::addFont("/Res/bmf13.bmf");
    setPictures();
    G::fxs = Fx::newCatalogue();
    SkBar::init();
    Header::init();
    Scroller::init();
    ScreenTable::make();
    OrmCanvas::overlay = new SilentQuestion();
    G::fxMicPostProc = new WpMicPostProc();
    G::fxObjClip = nullptr;
}

void GlobalsMaker::makePainters() {
    for (PaImage** painter : kImagePainters) {
        *painter = new PaImage();
    }
    for (PaStretcher** painter : kStretchers) {
        *painter = new PaStretcher();
    }
}

void GlobalsMaker::setPictures() {
    G::piBg->set("/Res/background_0_0_240_320.png", true, true);
    G::piMicLedFlash->set("/Res/mic_led_0_192_83_86.png", true, false);
    G::piMicOverlay->set("/Res/mic_overlay_13_151_49_42.png", true, false);
    G::piWheelsOverlay->set("/Res/wheels_overlay_175_179_57_14.png", true, false);
    G::piButtonsPlay->set("/Res/play_154_212_35_23.png", true, false);
    G::piButtonsRec->set("/Res/record_155_213_51_27.png", true, false);
    G::piButtonsStop->set("/Res/stop_195_226_29_21.png", true, false);
    G::piArrowLeftWhite->set("/Res/arrow_left_white.png", true, false);
    G::piArrowRightWhite->set("/Res/arrow_right_white.png", true, false);
    G::piArrowRightBlack->set("/Res/arrow_right_black.png", true, false);
    G::piWheels15->set("/Res/wheels_15_176_179_64_32.png", true, false);
    G::piWheels30->set("/Res/wheels_30_176_179_64_32.png", true, false);
    G::piWheels45->set("/Res/wheels_45_176_179_64_32.png", true, false);
    G::piWheels60->set("/Res/wheels_60_176_179_64_32.png", true, false);
    G::piWheels75->set("/Res/wheels_75_176_179_64_32.png", true, false);
    G::psFocusBar->set("/Res/focus_bar_x5y5.png", true, false);
    G::psSkBg->set("/Res/footer_bg_x0y15.png", true, false);
    G::psWndBg->set("/Res/menu_bg_x16y16.png", true, false);
}

void GlobalsMaker::free() {
    freePainters();
    ScreenTable::free();
    discard(OrmCanvas::overlay);
    discard(G::fxMicPostProc);
    discard(G::fxObjClip);
    for (int32_t i = 0; i < length(G::fxs); i++) {
        delete G::fxs[i];
    }
    deleteArrFunc(G::fxs);
    G::fxs = nullptr;
}

void GlobalsMaker::freePainters() {
    for (PaImage** painter : kImagePainters) {
        discard(*painter);
    }
    for (PaStretcher** painter : kStretchers) {
        discard(*painter);
    }
}
