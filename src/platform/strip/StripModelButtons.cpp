// SPDX-License-Identifier: MIT
// StripModel's buttons: where each is, what a tap on it asks for, and if it can be used now.
#include "HostWords.h"
#include "StripLayout.h"
#include "StripModel.h"

#include <algorithm>

using Kind = StripWish::Kind;
using Part = StripButton::Part;

bool StripButton::canBeWished() const {
    return isEnabled || wish.kind == Kind::kSave || wish.kind == Kind::kOpen;
}

bool StripButton::isSameAs(const StripButton& other) const {
    const bool isSameName = part != Part::kSheet || name == other.name;
    return wish == other.wish && place == other.place && isSameName;
}

bool StripButton::operator==(const StripButton& other) const {
    return wish == other.wish && name == other.name && isEnabled == other.isEnabled &&
           isLit == other.isLit && place.x == other.place.x && place.y == other.place.y &&
           place.w == other.place.w && place.h == other.place.h;
}

StripButton StripModel::action() const {
    StripButton button;
    if (!hasAction()) {
        return button;
    }
    const StripMessages::Message* message = messages.shown();
    const int32_t width = widthOf(message->actionWord) + 2 * StripLayout::kActionPadPx;
    const int32_t right = showsLevel() ? StripLayout::kSecondsWidthPx : 0;
    button.part = Part::kMessage;
    button.wish = message->action;
    button.name = message->actionWord;
    button.place = {StripLayout::kWidthPx - StripLayout::kMarginPx / 2 - right - width,
                    StripLayout::kLineTopPx, width, StripLayout::kLineHeightPx};
    return button;
}

std::vector<StripButton> StripModel::buttons() const {
    std::vector<StripButton> all;
    if (const StripButton word = action(); word.wish) {
        all.push_back(word);
    }
    addHeads(all);
    addKeys(all);
    addSheet(all);
    return all;
}

void StripModel::addHeads(std::vector<StripButton>& all) const {
    for (int32_t i = 0; showsHeads() && i < kEffects; i++) {
        const auto at = static_cast<size_t>(i);
        StripButton head;
        head.part = Part::kHeads;
        head.wish = StripWish::of(Kind::kEffect, i);
        head.name = at < effectNames.size() ? effectNames[at] : std::to_string(i + 1);
        head.place = StripLayout::head(i);
        head.isLit = i == effect;
        all.push_back(head);
    }
}

void StripModel::addKeys(std::vector<StripButton>& all) const {
    struct Key {
        std::string word;
        Kind kind;
        bool isEnabled;
    };

    const Key keys[StripLayout::kKeys] = {
        {word("save"), Kind::kSave, canSave},
        {word("open"), Kind::kOpen, canOpen},
        {word("micro"), Kind::kMicrophones, canChooseMicrophone()},
        {word("sounds"), Kind::kSounds, true},
        {word("help"), Kind::kHelp, true},
    };
    int32_t index = 0;
    for (const Key& key : keys) {
        StripButton button;
        button.part = Part::kKeys;
        button.wish = StripWish::of(key.kind);
        button.name = key.word;
        button.place = StripLayout::keyOf(index);
        button.isEnabled = key.isEnabled;
        all.push_back(button);
        index++;
    }
}

void StripModel::addSheet(std::vector<StripButton>& all) const {
    if (openSheet == Sheet::kNone) {
        return;
    }
    if (openSheet == Sheet::kMicrophones) {
        addChoices(all);
    } else if (offersMore) {
        addMore(all);
    }
    StripButton close;
    close.wish = StripWish::of(Kind::kClose);
    close.name = word("close");
    close.place = StripLayout::close();
    all.push_back(close);
}

void StripModel::addMore(std::vector<StripButton>& all) const {
    struct More {
        Kind kind;
        const char* row;  // name of its text in HostWords
        bool isEnabled;
    };

    const More kinds[StripLayout::kMoreKeys] = {
        {Kind::kExport, "export", canSave},
        {Kind::kBringBack, "bringBack", hasLastTake && canOpen},
        {Kind::kForget, "forget", hasLastTake},
    };
    int32_t index = 0;
    for (const More& more : kinds) {
        StripButton button;
        button.wish = StripWish::of(more.kind);
        button.name = word(more.row);
        button.place = StripLayout::more(index);
        button.isEnabled = more.isEnabled;
        all.push_back(button);
        index++;
    }
}

/// Adds a page of the list: the system's choice, then the devices. If they do not fit, the last row
/// is a button that turns to the next page.
void StripModel::addChoices(std::vector<StripButton>& all) const {
    const auto count = static_cast<int32_t>(microphones.size()) + 1;
    const bool fits = count <= StripLayout::kMaxChoices;
    const int32_t shown = fits ? count : StripLayout::kMaxChoices - 1;
    int32_t row = 0;
    for (int32_t i = firstChoice; i < std::min(count, firstChoice + shown); i++) {
        StripButton choice;
        choice.wish = StripWish::of(Kind::kUseMicrophone, i - 1);
        choice.name = i == 0 ? word("systemsChoice") : microphones[static_cast<size_t>(i) - 1];
        choice.place = StripLayout::choice(row);
        choice.isLit = i - 1 == microphone;
        choice.isEnabled = i - 1 != absentMicrophone;
        all.push_back(choice);
        row++;
    }
    if (!fits) {
        StripButton more;
        more.wish = StripWish::of(Kind::kMicrophones,
                                  firstChoice + shown < count ? firstChoice + shown : 0);
        more.name = word("more");
        more.place = StripLayout::choice(StripLayout::kMaxChoices - 1);
        all.push_back(more);
    }
}
