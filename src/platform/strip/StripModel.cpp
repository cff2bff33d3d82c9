// SPDX-License-Identifier: MIT
#include "StripModel.h"

#include "HostMessage.h"
#include "HostWords.h"
#include "ScreenNames.h"
#include "StripLayout.h"

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

/// True for screens that appear without a key of the user's. No sheet may stay over them.
bool mustBeSeen(const std::string& screen) {
    return screen == ScreenNames::kRecording || screen == ScreenNames::kProcess ||
           screen == ScreenNames::kLastMessage;
}

}  // namespace

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
    telling = message != nullptr || (showsLevel() && (mute || !whyUnheard.empty()));
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
    if ((texts.screen != screen && mustBeSeen(texts.screen)) || (texts.isQuestion && !questioned)) {
        closeSheet();
    }
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
        whyUnheard.clear();
        messages.closeSeen();  // messages about the take before would cover the level
        lookAgain();
    }
}

void StripModel::closeSheet() {
    assign(openSheet, Sheet::kNone);
}

void StripModel::setCanOpen(bool offersOpen) {
    assign(canOpen, offersOpen);
}

void StripModel::setEffectNames(const std::vector<std::string>& names) {
    assign(effectNames, names);
}

void StripModel::setMicrophones(const std::vector<std::string>& names,
                                int32_t current,
                                int32_t absent) {
    if (openSheet == Sheet::kMicrophones && names != microphones) {
        assign(focus, kNoFocus);  // the focused row may be another device now
    }
    assign(microphones, names);
    assign(microphone, current);
    assign(absentMicrophone, absent);
    const auto rows = static_cast<int32_t>(names.size()) + 1;  // with "Default microphone"
    if (firstChoice >= rows || rows <= StripLayout::kMaxChoices) {
        assign(firstChoice, 0);  // its page is gone
    }
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

void StripModel::setWhyUnheard(const std::string& text) {
    assign(whyUnheard, text);
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
    if (showsLevel() && !whyUnheard.empty()) {
        return whyUnheard;
    }
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
