#include "StripModel.h"

#include "HostWords.h"
#include "StripLayout.h"

#include <algorithm>
#include <utility>

using Kind = StripWish::Kind;

static_assert(StripModel::kWidthPx == StripLayout::kWidthPx);
static_assert(StripModel::kHeightPx == StripLayout::kHeightPx);
static_assert(StripModel::kSheetHeightPx == StripLayout::kSheetHeightPx);
static_assert(StripModel::kEffects * StripLayout::kHeadWidthPx == StripLayout::kWidthPx);
static_assert(StripLayout::kKeys * StripLayout::kKeyWidthPx == StripLayout::kWidthPx);

namespace {

constexpr int32_t kGuessedCharacterPx = 7;

bool isIn(const ScreenPlace& place, int32_t x, int32_t y) {
    return x >= place.x && x < place.x + place.w && y >= place.y && y < place.y + place.h;
}

StripWish wishFor(Kind kind, int32_t index = 0) {
    StripWish wish;
    wish.kind = kind;
    wish.index = index;
    return wish;
}

}  // namespace

bool StripButton::canBeWished() const {
    return isEnabled || wish.kind == Kind::kSave || wish.kind == Kind::kOpen;
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

template <typename T>
void StripModel::assign(T& field, const T& value) {
    if (!(field == value)) {
        field = value;
        lookAgain();
    }
}

/// Something of the picture has changed: its texts are laid out again.
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
        assign(hint, std::string());  // what was pointed at means something else, or nothing
    }
    assign(code, texts.language);
    assign(screen, texts.screen);
    assign(questioned, texts.isQuestion);
    assign(effect, currentEffect);
    assign(canSave, offersSave);
    if (isRecordingScreen() && !wasRecording) {
        reading = {};
        mute = false;
        messages.closeAll();  // of the take before; they would cover the level
        openSheet = Sheet::kNone;
        lookAgain();
    }
}

void StripModel::setCanOpen(bool offersOpen) {
    assign(canOpen, offersOpen);
}

void StripModel::setEffectNames(std::vector<std::string> names) {
    assign(effectNames, names);
}

void StripModel::setMicrophones(std::vector<std::string> names, int32_t current) {
    assign(microphones, names);
    assign(microphone, current);
}

void StripModel::setMicrophoneName(std::string name) {
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

void StripModel::tell(std::string text, StripWish action, std::string actionWord, int64_t nowMs) {
    messages.tell({std::move(text), std::move(action), std::move(actionWord)}, nowMs);
    lookAgain();
}

bool StripModel::tick(int64_t nowMs) {
    const bool isOther = messages.tick(nowMs);
    if (isOther) {
        lookAgain();
    }
    return isOther;
}

void StripModel::showMicrophones() {
    firstChoice = 0;
    openSheet = Sheet::kMicrophones;
    lookAgain();
}

void StripModel::showHelp(std::vector<std::string> text) {
    paragraphs = std::move(text);
    openSheet = Sheet::kHelp;
    lookAgain();
}

std::string StripModel::sheetTitle() const {
    return openSheet == Sheet::kHelp ? HostWords::text("help", code)
                                     : word(StripText::kChooseMicrophone);
}

bool StripModel::isRecordingScreen() const {
    return screen == "Recording";
}

bool StripModel::showsHeads() const {
    return screen == "Play" && !questioned && shownLines.size() <= 1;
}

bool StripModel::showsLevel() const {
    return isRecordingScreen();
}

std::string StripModel::lineWithoutMessage() const {
    if (showsLevel() && mute) {
        return microphoneName.empty()
                   ? HostWords::text("microphoneSilent", code)
                   : StripTexts::sentence(StripText::kNoSoundFrom, code, {microphoneName});
    }
    if (!hint.empty()) {
        return hint;
    }
    return showsLevel() || screen == "Record" ? microphoneName : "";
}

/// Seconds and action stand at the right end of the first row.
int32_t StripModel::firstLinePx() const {
    int32_t width = StripLayout::kLinePx;
    if (showsLevel()) {
        width -= StripLayout::kSecondsWidthPx;
    }
    const StripMessages::Message* message = messages.shown();
    if (message != nullptr && message->action) {
        width -=
            widthOf(message->actionWord) + 2 * StripLayout::kActionPadPx + StripLayout::kMarginPx;
    }
    return width;
}

StripButton StripModel::action() const {
    StripButton button;
    const StripMessages::Message* message = messages.shown();
    if (message == nullptr || !message->action) {
        return button;
    }
    const int32_t width = widthOf(message->actionWord) + 2 * StripLayout::kActionPadPx;
    const int32_t right = showsLevel() ? StripLayout::kSecondsWidthPx : 0;
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
        head.wish = wishFor(Kind::kEffect, i);
        head.name = at < effectNames.size() ? effectNames[at] : std::to_string(i + 1);
        head.place = StripLayout::head(i);
        head.isLit = i == effect;
        all.push_back(head);
    }
}

void StripModel::addKeys(std::vector<StripButton>& all) const {
    struct Key {
        Kind kind;
        std::string word;
        bool isEnabled;
    };

    const bool isFree = !isRecordingScreen() && !questioned;
    const Key keys[StripLayout::kKeys] = {
        {Kind::kSave, HostWords::text("save", code), canSave},
        {Kind::kOpen, HostWords::text("open", code), canOpen},
        {Kind::kMicrophones, word(StripText::kMicro), isFree},
        {Kind::kSounds, HostWords::text("sounds", code), true},
        {Kind::kHelp, HostWords::text("help", code), true},
    };
    int32_t index = 0;
    for (const Key& key : keys) {
        StripButton button;
        button.wish = wishFor(key.kind);
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
    }
    StripButton close;
    close.wish = wishFor(Kind::kClose);
    close.name = HostWords::text("close", code);
    close.place = StripLayout::close();
    all.push_back(close);
}

/// The system's choice, then the devices; what does not fit comes after a tap on the last row.
void StripModel::addChoices(std::vector<StripButton>& all) const {
    const auto count = static_cast<int32_t>(microphones.size()) + 1;
    const bool fits = count <= StripLayout::kMaxChoices;
    const int32_t shown = fits ? count : StripLayout::kMaxChoices - 1;
    int32_t row = 0;
    for (int32_t i = firstChoice; i < std::min(count, firstChoice + shown); i++) {
        StripButton choice;
        choice.wish = wishFor(Kind::kUseMicrophone, i - 1);
        choice.name =
            i == 0 ? word(StripText::kSystemsChoice) : microphones[static_cast<size_t>(i) - 1];
        choice.place = StripLayout::choice(row);
        choice.isLit = i - 1 == microphone;
        all.push_back(choice);
        row++;
    }
    if (!fits) {
        StripButton more;
        more.wish =
            wishFor(Kind::kMicrophones, firstChoice + shown < count ? firstChoice + shown : 0);
        more.name = word(StripText::kMore);
        more.place = StripLayout::choice(StripLayout::kMaxChoices - 1);
        all.push_back(more);
    }
}

StripWish StripModel::tap(int32_t x, int32_t y) {
    const std::vector<StripButton> all = buttons();
    const auto hit = std::find_if(all.begin(), all.end(), [x, y](const StripButton& button) {
        return isIn(button.place, x, y) && button.canBeWished();
    });
    const bool isInStrip = x >= 0 && x < kWidthPx && y >= 0 && y < kHeightPx;
    const bool isOnLines =
        isInStrip && y < StripLayout::kLineHeightPx * static_cast<int32_t>(shownLines.size());
    if (hit != all.end()) {
        return chosen(*hit);
    }
    if (openSheet != Sheet::kNone || (messages.shown() != nullptr && isOnLines)) {
        return key(StripKey::kClose);
    }
    return {};
}

/// Only the list itself keeps the sheet open: what else is tapped takes its place.
StripWish StripModel::chosen(const StripButton& button) {
    const bool turnsPage = openSheet == Sheet::kMicrophones && button.place.y >= kHeightPx &&
                           button.wish.kind == Kind::kMicrophones;
    if (turnsPage) {
        assign(firstChoice, button.wish.index);
        return wishFor(Kind::kClose);
    }
    const bool closesOwn =
        (openSheet == Sheet::kHelp && button.wish.kind == Kind::kHelp) ||
        (openSheet == Sheet::kMicrophones && button.wish.kind == Kind::kMicrophones);
    const StripWish wish = closesOwn ? wishFor(Kind::kClose) : button.wish;
    if (button.place.y < StripLayout::kLineHeightPx) {  // the action of a message
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
        // The action of a message shows its word as it is.
        const bool isNamed =
            button.place.y >= StripLayout::kHeadsTopPx && button.place.y < kHeightPx;
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
        return StripTexts::text(StripText::kSaveHint, code);
    case Kind::kOpen:
        return StripTexts::text(StripText::kOpenHint, code);
    case Kind::kMicrophones:
        return StripTexts::text(StripText::kMicroHint, code);
    case Kind::kSounds:
        return StripTexts::text(StripText::kSoundsHint, code);
    case Kind::kHelp:
        return StripTexts::text(StripText::kHelpHint, code);
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
            assign(openSheet, Sheet::kNone);
            return wishFor(Kind::kClose);
        }
        if (messages.shown() != nullptr) {
            messages.close();
            lookAgain();
            return wishFor(Kind::kClose);
        }
        return {};
    case StripKey::kBringBack:
        return hasLastTake && canOpen ? wishFor(Kind::kBringBack) : StripWish();
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
        // A message may cover the heads; their keys hold all the same.
        index = static_cast<int32_t>(key) - static_cast<int32_t>(StripKey::kEffect1);
        return screen == "Play" && !questioned && index >= 0 && index < kEffects
                   ? wishFor(Kind::kEffect, index)
                   : StripWish();
    }
    for (const StripButton& button : buttons()) {
        if (button.wish.kind == kind && button.canBeWished() &&
            button.place.y >= StripLayout::kKeysTopPx && button.place.y < kHeightPx) {
            return chosen(button);
        }
    }
    return {};
}
