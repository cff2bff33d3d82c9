// SPDX-License-Identifier: MIT
#include "TextsReader.h"

#include "ArrFunc.h"
#include "Bounds.h"
#include "Fx.h"
#include "G.h"
#include "Header.h"
#include "Languages.h"
#include "Menu.h"
#include "Message.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "OspBase.h"
#include "PaImage.h"
#include "PaTextArea.h"
#include "Progress.h"
#include "Res.h"
#include "ScreenTable.h"
#include "SkBar.h"
#include "Str.h"

#include <utility>

namespace {

std::string textOf(int32_t id) {
    const Osp::Base::String* text = id != Res::Null ? Res::getStr(id) : nullptr;
    return text != nullptr ? text->ToUtf8() : "";
}

ScreenTexts::Means meaningOf(int32_t id) {
    using Means = ScreenTexts::Means;
    const std::pair<int32_t, Means> meanings[] = {
        {Str::str_SK_BACK, Means::kBack},     {Str::str_SK_OK, Means::kOk},
        {Str::str_SK_PLAY, Means::kPlay},     {Str::str_SK_QUIT, Means::kQuit},
        {Str::str_SK_RECORD, Means::kRecord}, {Str::str_SK_STOP, Means::kStop},
    };
    for (const auto& [known, means] : meanings) {
        if (known == id) {
            return means;
        }
    }
    return Means::kOther;
}

ScreenPlace placeOf(Bounded* painter) {
    Bounds area;
    painter->getBounds(&area);
    return {area.x, area.y, area.w, area.h};
}

void readHeader(ScreenTexts& texts) {
    if (Header::fxName) {
        texts.title = textOf(G::fxs[G::getCurrFx()]->name);
    }
    if (Header::arrows) {
        Header::placeArrows();
        texts.arrows = {{"", placeOf(G::piArrowLeftWhite)}, {"", placeOf(G::piArrowRightWhite)}};
    }
}

void readMessage(ScreenTexts& texts) {
    const bool hasHeading = Message::paTxt2->getText() != Res::Null;
    texts.heading = hasHeading ? textOf(Message::paTxt->getText()) : "";
    texts.message = textOf(hasHeading ? Message::paTxt2->getText() : Message::paTxt->getText());
    texts.isQuestion = OrmCanvas::showIsSilentPopup;
}

void readMenu(ScreenTexts& texts) {
    for (int32_t i = 0; i < length(Menu::strIds); i++) {
        const int32_t top = Menu::firstTopPx() + i * Menu::pitchPx();
        texts.entries.push_back({textOf(Menu::strIds[i]),
                                 {Menu::kLeftPx, top, Menu::kWidthPx, Menu::pitchPx()},
                                 i == Menu::getFocusedIndex(),
                                 meaningOf(Menu::strIds[i])});
    }
}

void readSoftKeys(ScreenTexts& texts) {
    const int32_t labels[] = {SkBar::strLsk, SkBar::strMsk, SkBar::strRsk};
    const int32_t width = (SkBar::x2 - SkBar::x1 + 1) / ScreenTexts::kSoftKeys;
    for (int32_t i = 0; i < ScreenTexts::kSoftKeys; i++) {
        texts.softKeys[static_cast<size_t>(i)] = {
            textOf(labels[i]),
            {SkBar::x1 + i * width, SkBar::y1, width, SkBar::kHeightPx},
            false,
            meaningOf(labels[i])};
    }
}

}  // namespace

ScreenTexts TextsReader::read() {
    ScreenTexts texts;
    if (Orm::canvas == nullptr) {
        return texts;
    }
    texts.language = Languages::kAll[Res::getCurrLangIndex()].code;
    texts.screen = ScreenTable::currentName();
    if (G::fxs != nullptr) {
        readHeader(texts);
    }
    if (Message::isVisible()) {
        readMessage(texts);
    } else if (Menu::isVisible()) {
        readMenu(texts);
    } else if (Progress::isVisible()) {
        texts.caption = textOf(Progress::caption->getText());
        texts.progressQ10 = Progress::shownQ10;
    }
    if (SkBar::isVisible()) {
        readSoftKeys(texts);
    }
    return texts;
}

std::string TextsReader::effectName(int32_t effect) {
    const bool isThere = G::fxs != nullptr && effect >= 0 && effect < length(G::fxs);
    return isThere ? textOf(G::fxs[effect]->name) : "";
}
