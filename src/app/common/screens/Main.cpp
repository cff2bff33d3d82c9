#include "Main.h"

#include "Bounds.h"
#include "Chrome.h"
#include "Fx.h"
#include "G.h"
#include "PaImage.h"
#include "Scroller.h"

void Main::paintBg() {
    Chrome::cover();
    paintBg(G::scrB, nullptr);
}

void Main::paintBg(Bounded* clip, PixProps* props) {
    G::piBg->paintOn(G::scr, 0, 0, clip, props);
}

void Main::paintBgAndFx(Bounded* clip) {
    paintBg(clip, nullptr);
    G::fxs[G::getCurrFx()]->image->paintOn(G::scr, 0, 0, clip, nullptr);
}

void Main::paintBgAndFx() {
    paintBg();
    Scroller::paint(false);
}
