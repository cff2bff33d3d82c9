// SPDX-License-Identifier: MIT
// StripModel's handling of keys on the sheet: one button has the focus, arrows move it, and the
// middle key chooses.
#include "Host.h"
#include "StripModel.h"

#include <algorithm>

namespace {

int32_t stepOf(HostKey key) {
    switch (key) {
    case HostKey::kUp:
    case HostKey::kLeft:
        return -1;
    case HostKey::kDown:
    case HostKey::kRight:
        return 1;
    default:
        return 0;
    }
}

}  // namespace

std::vector<StripButton> StripModel::sheetButtons() const {
    std::vector<StripButton> all;
    addSheet(all);
    all.erase(std::remove_if(all.begin(), all.end(),
                             [](const StripButton& button) { return !button.canBeWished(); }),
              all.end());
    return all;
}

/// Index of the button with the focus. Until a key has moved it, that is the lit button (the
/// microphone in use), or else the one that closes the sheet.
int32_t StripModel::focusAmong(const std::vector<StripButton>& all) const {
    const auto last = static_cast<int32_t>(all.size()) - 1;
    if (focus != kNoFocus) {
        return std::min(focus, last);
    }
    const auto lit = std::find_if(all.begin(), all.end(),
                                  [](const StripButton& button) { return button.isLit; });
    return lit != all.end() ? static_cast<int32_t>(lit - all.begin()) : last;
}

StripWish StripModel::navigate(HostKey key) {
    if (openSheet == Sheet::kNone) {
        return {};
    }
    const std::vector<StripButton> all = sheetButtons();
    const int32_t at = focusAmong(all);
    if (key == HostKey::kMiddle) {
        StripWish wish = chosen(all[static_cast<size_t>(at)]);
        assign(focus, openSheet != Sheet::kNone ? 0 : kNoFocus);  // first row of the new page
        return wish;
    }
    const auto count = static_cast<int32_t>(all.size());
    if (const int32_t step = stepOf(key); step != 0) {
        assign(focus, (at + step + count) % count);
    }
    return StripWish::of(StripWish::Kind::kClose);
}

StripButton StripModel::shownFocus() const {
    if (openSheet == Sheet::kNone || focus == kNoFocus) {
        return {};
    }
    const std::vector<StripButton> all = sheetButtons();
    return all[static_cast<size_t>(focusAmong(all))];
}

ScreenTexts StripModel::sheetTexts() const {
    ScreenTexts texts;
    texts.language = code;
    if (openSheet == Sheet::kNone) {
        return texts;
    }
    texts.title = sheetTitle();
    if (openSheet == Sheet::kHelp) {
        for (const std::string& paragraph : paragraphs) {
            texts.message += (texts.message.empty() ? "" : " ") + paragraph;
        }
    }
    const std::vector<StripButton> all = sheetButtons();
    const int32_t focused = focusAmong(all);
    for (const StripButton& button : all) {
        ScreenTexts::Entry entry;
        entry.text = button.name;
        entry.place = button.place;
        entry.isFocused = static_cast<int32_t>(texts.entries.size()) == focused;
        texts.entries.push_back(entry);
    }
    return texts;
}
