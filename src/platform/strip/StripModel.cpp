// SPDX-License-Identifier: MIT
#include "StripModel.h"

#include "HostMessage.h"
#include "HostWords.h"
#include "ScreenNames.h"
#include "StripLayout.h"

#include <algorithm>
#include <utility>

using Kind = StripWish::Kind;

static_assert(StripModel::kWidthPx == StripLayout::kWidthPx);
static_assert(StripModel::kHeightPx == StripLayout::kHeightPx);
static_assert(StripModel::kSheetHeightPx == StripLayout::kSheetHeightPx);
static_assert(StripModel::kEffects * StripLayout::kHeadWidthPx == StripLayout::kWidthPx);
static_assert(StripLayout::kSaveWidthPx + (StripLayout::kKeys - 1) * StripLayout::kKeyWidthPx ==
              StripLayout::kWidthPx);

namespace {

constexpr int32_t kGuessedCharacterPx = 7;

}  // namespace

bool StripButton::canBeWished() const {
    return isEnabled || wish.kind == Kind::kSave || wish.kind == Kind::kOpen;
}

bool StripButton::isSameAs(const StripButton& other) const {
    return wish == other.wish && place == other.place;
}

bool StripButton::operator==(const StripButton& other) const {
    return wish == other.wish && name == other.name && isEnabled == other.isEnabled &&
           isLit == other.isLit && place.x == other.place.x && place.y == other.place.y &&
           place.w == other.place.w && place.h == other.place.h;
}

StripModel::StripModel()
    : widthOf([](const std::string& utf8) {
        return static_cast<int32_t>(utf8.size()) * kGuessedCharacterPx;
    }) {}

void StripModel::setTextWidth(TextRows::Width width) {
    widthOf = std::move(width);
    lookAgain();
}

/// Breaks the texts into rows again, and counts a new version of the picture.
void StripModel::lookAgain() {
    const StripMessages::Message* message = messages.shown();
    const std::string line = message != nullptr ? message->text : lineWithoutMessage();
    telling = message != nullptr || (showsLevel() && mute);
    shownLines = TextRows::wrap(line, firstLinePx(), StripLayout::kLinePx,
                                telling ? StripLayout::kMaxLines : 1, widthOf);
    rows.clear();
    if (openSheet == Sheet::kHelp) {
        for (const std::string& paragraph : paragraphs) {
            const std::vector<std::string> more =
                TextRows::wrap(paragraph, StripLayout::kSheetTextPx, StripLayout::kSheetTextPx,
                               paragraph.size(), widthOf);
            if (!rows.empty()) {
                rows.emplace_back();
            }
            rows.insert(rows.end(), more.begin(), more.end());
        }
    }
    changes++;
}

void StripModel::setScreen(const ScreenTexts& texts, int32_t currentEffect, bool offersSave) {
    const bool wasRecording = isRecordingScreen();
    if (texts.screen != screen) {
        assign(hint, std::string());  // what the mouse points at has another meaning now
    }
    assign(code, texts.language);
    assign(screen, texts.screen);
    assign(questioned, texts.isQuestion);
    assign(effect, currentEffect);
    assign(canSave, offersSave);
    if (isRecordingScreen() && !wasRecording) {
        reading = {};
        mute = false;
        messages.closeSeen();  // messages about the take before would cover the level
        openSheet = Sheet::kNone;
        lookAgain();
    }
}

void StripModel::setCanOpen(bool offersOpen) {
    assign(canOpen, offersOpen);
}

void StripModel::setEffectNames(const std::vector<std::string>& names) {
    assign(effectNames, names);
}

void StripModel::setMicrophones(const std::vector<std::string>& names, int32_t current) {
    assign(microphones, names);
    assign(microphone, current);
}

void StripModel::setMicrophoneName(const std::string& name) {
    assign(microphoneName, name);
}

void StripModel::setRecording(const LevelMeter::Reading& newest, int32_t secondsLeft, bool isMute) {
    const bool isSame = newest.peakDb == reading.peakDb && newest.meanDb == reading.meanDb &&
                        newest.isClipped == reading.isClipped;
    reading = newest;
    if (!isSame) {
        lookAgain();
    }
    assign(seconds, secondsLeft);
    assign(mute, isMute);
}

void StripModel::setLastTake(bool isThere) {
    assign(hasLastTake, isThere);
}

void StripModel::setOffersMore(bool isOffered) {
    assign(offersMore, isOffered);
}

void StripModel::tell(std::string text, StripWish action, std::string actionWord, int64_t nowMs) {
    messages.tell({std::move(text), std::move(action), std::move(actionWord)}, nowMs);
    lookAgain();
}

std::string StripModel::pathForMessage(const std::string& path) const {
    const bool isPath = !path.empty() && (path[0] == '/' || path[0] == '~');
    return isPath ? TextRows::cutPath(path, StripLayout::kMessagePathPx, widthOf) : path;
}

std::string StripModel::pathForHelp(const std::string& path) const {
    return TextRows::cutPath(path, StripLayout::kSheetTextPx, widthOf);
}

bool StripModel::tick(int64_t nowMs) {
    const bool isOther = messages.tick(nowMs);
    messages.look();
    if (isOther) {
        lookAgain();
    }
    return isOther;
}

void StripModel::showMicrophones() {
    firstChoice = 0;
    focus = kNoFocus;
    openSheet = Sheet::kMicrophones;
    lookAgain();
}

void StripModel::showHelp(std::vector<std::string> text) {
    paragraphs = std::move(text);
    focus = kNoFocus;
    openSheet = Sheet::kHelp;
    lookAgain();
}

/// A text of HostWords in the program's language.
std::string StripModel::word(const char* row) const {
    return HostWords::text(row, code);
}

std::string StripModel::sheetTitle() const {
    return openSheet == Sheet::kHelp ? word("help") : word("chooseMicrophone");
}

bool StripModel::isRecordingScreen() const {
    return screen == ScreenNames::kRecording;
}

bool StripModel::canChooseMicrophone() const {
    return !isRecordingScreen() && !questioned;
}

bool StripModel::hasAction() const {
    const StripMessages::Message* message = messages.shown();
    return message != nullptr && message->action &&
           (message->action.kind != Kind::kMicrophones || canChooseMicrophone());
}

bool StripModel::showsHeads() const {
    return screen == ScreenNames::kPlay && !questioned && shownLines.size() <= 1;
}

bool StripModel::showsLevel() const {
    return isRecordingScreen();
}

std::string StripModel::lineWithoutMessage() const {
    if (showsLevel() && mute) {
        return microphoneName.empty() ? word("microphoneSilent")
                                      : HostMessage{"noSoundFrom", {microphoneName}}.text(code);
    }
    if (!hint.empty()) {
        return hint;
    }
    return showsLevel() || screen == ScreenNames::kRecord ? microphoneName : "";
}

/// Width of the first row: the seconds and the action stand at its right end.
int32_t StripModel::firstLinePx() const {
    int32_t width = StripLayout::kLinePx;
    if (showsLevel()) {
        width -= StripLayout::kSecondsWidthPx;
    }
    if (hasAction()) {
        width -= widthOf(messages.shown()->actionWord) + 2 * StripLayout::kActionPadPx +
                 StripLayout::kMarginPx;
    }
    return width;
}

StripButton StripModel::action() const {
    StripButton button;
    if (!hasAction()) {
        return button;
    }
    const StripMessages::Message* message = messages.shown();
    const int32_t width = widthOf(message->actionWord) + 2 * StripLayout::kActionPadPx;
    const int32_t right = showsLevel() ? StripLayout::kSecondsWidthPx : 0;
    button.part = StripButton::Part::kMessage;
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
        head.part = StripButton::Part::kHeads;
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
        button.part = StripButton::Part::kKeys;
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
