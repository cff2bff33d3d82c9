// SPDX-License-Identifier: MIT
// StripModel's handling of taps, the mouse and keys.
#include "HostWords.h"
#include "ScreenNames.h"
#include "StripLayout.h"
#include "StripModel.h"

#include <algorithm>

using Kind = StripWish::Kind;
using Part = StripButton::Part;

namespace {

bool isIn(const ScreenPlace& place, int32_t x, int32_t y) {
    return x >= place.x && x < place.x + place.w && y >= place.y && y < place.y + place.h;
}

}  // namespace

StripButton StripModel::buttonAt(int32_t x, int32_t y) const {
    const std::vector<StripButton> all = buttons();
    const auto hit = std::find_if(all.begin(), all.end(), [x, y](const StripButton& button) {
        return isIn(button.place, x, y) && button.canBeWished();
    });
    return hit != all.end() ? *hit : StripButton();
}

StripWish StripModel::tap(int32_t x, int32_t y) {
    const StripButton hit = buttonAt(x, y);
    const bool isInStrip = x >= 0 && x < kWidthPx && y >= 0 && y < kHeightPx;
    const bool isOnLines =
        isInStrip && y < StripLayout::kLineHeightPx * static_cast<int32_t>(shownLines.size());
    if (hit.wish) {
        return chosen(hit);
    }
    if (openSheet != Sheet::kNone || (messages.shown() != nullptr && isOnLines)) {
        return key(StripKey::kClose);
    }
    return {};
}

/// Carries out a tap on a button. Every button closes the sheet, except the one that turns the page
/// of the list.
StripWish StripModel::chosen(const StripButton& button) {
    const bool turnsPage = openSheet == Sheet::kMicrophones && button.part == Part::kSheet &&
                           button.wish.kind == Kind::kMicrophones;
    if (turnsPage) {
        assign(firstChoice, button.wish.index);
        return StripWish::of(Kind::kClose);
    }
    const bool closesOwn =
        (openSheet == Sheet::kHelp && button.wish.kind == Kind::kHelp) ||
        (openSheet == Sheet::kMicrophones && button.wish.kind == Kind::kMicrophones);
    StripWish wish = closesOwn ? StripWish::of(Kind::kClose) : button.wish;
    if (button.part == Part::kMessage) {
        messages.close();
    }
    openSheet = Sheet::kNone;
    lookAgain();
    return wish;
}

bool StripModel::covers(int32_t x, int32_t y) const {
    const bool isAcross = x >= 0 && x < kWidthPx && y >= 0;
    return openSheet != Sheet::kNone || (isAcross && y < kHeightPx);
}

void StripModel::point(int32_t x, int32_t y) {
    std::string pointed;
    for (const StripButton& button : buttons()) {
        // The action of a message needs no hint: its word says everything.
        const bool isNamed = button.part == Part::kHeads || button.part == Part::kKeys;
        if (isNamed && isIn(button.place, x, y)) {
            const char* text = hintOf(button.wish);
            pointed = text != nullptr ? text : button.name;
        }
    }
    assign(hint, pointed);
}

const char* StripModel::hintOf(const StripWish& wish) const {
    switch (wish.kind) {
    case Kind::kSave:
        return HostWords::text("saveHint", code);
    case Kind::kOpen:
        return HostWords::text("openHint", code);
    case Kind::kMicrophones:
        return HostWords::text("microHint", code);
    case Kind::kSounds:
        return HostWords::text("soundsHint", code);
    case Kind::kHelp:
        return HostWords::text("helpHint", code);
    default:
        return nullptr;
    }
}

StripWish StripModel::key(StripKey key) {
    Kind kind = Kind::kNone;
    int32_t index = 0;
    switch (key) {
    case StripKey::kClose:
        if (openSheet != Sheet::kNone) {
            closeSheet();
            return StripWish::of(Kind::kClose);
        }
        if (messages.shown() != nullptr) {
            messages.close();
            lookAgain();
            return StripWish::of(Kind::kClose);
        }
        return {};
    case StripKey::kAction: {
        const StripButton word = action();
        return word.wish ? chosen(word) : StripWish();
    }
    case StripKey::kBringBack:
        return hasLastTake && canOpen ? StripWish::of(Kind::kBringBack) : StripWish();
    case StripKey::kSave:
        kind = Kind::kSave;
        break;
    case StripKey::kOpen:
        kind = Kind::kOpen;
        break;
    case StripKey::kMicrophones:
        kind = Kind::kMicrophones;
        break;
    case StripKey::kHelp:
        kind = Kind::kHelp;
        break;
    default:
        // The keys of the effects work even while a message covers the heads.
        index = static_cast<int32_t>(key) - static_cast<int32_t>(StripKey::kEffect1);
        if (screen != ScreenNames::kPlay || questioned || index < 0 || index >= kEffects) {
            return {};
        }
        closeSheet();  // the user must see what the key changes
        return StripWish::of(Kind::kEffect, index);
    }
    for (const StripButton& button : buttons()) {
        if (button.part == Part::kKeys && button.wish.kind == kind && button.canBeWished()) {
            return chosen(button);
        }
    }
    return {};
}
