// SPDX-License-Identifier: MIT
#include "Main.h"

#include "Bounds.h"
#include "Fx.h"
#include "G.h"
#include "Menu.h"
#include "Message.h"
#include "PaImage.h"
#include "Progress.h"
#include "Scroller.h"
#include "SkBar.h"

void Main::coverFurniture() {
    Menu::visible = false;
    SkBar::visible = false;
    Message::visible = false;
    Progress::visible = false;
}

void Main::paintBg() {
    coverFurniture();
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
