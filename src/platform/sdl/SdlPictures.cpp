// SPDX-License-Identifier: MIT
#include "SdlPictures.h"

#include "DueTime.h"
#include "ProgramFolders.h"
#include "WindowTitle.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int64_t kUsPerMs = 1000;

}  // namespace

SdlPictures::SdlPictures(
    SdlWindow& window, SdlStrip& strip, Speech& speech, const TakeKeeper& takes, Clock nowUs)
    : window(window)
    , strip(strip)
    , speech(speech)
    , takes(takes)
    , nowUs(std::move(nowUs)) {}

void SdlPictures::show(HostFrame* newest) {
    frame = strip.strip().frameOver(newest);
    frameIsNew = newest != nullptr;
}

void SdlPictures::redraw() {
    if (pictures > 0) {
        window.redraw();
    }
}

bool SdlPictures::isDue() {
    if (frame == nullptr || nowUs() < nextPictureUs) {
        return false;
    }
    const int64_t stripMs = strip.strip().dueMs();
    const bool isStripDue = stripMs != DueTime::kNever && nowUs() / kUsPerMs >= stripMs;
    if (frameIsNew || isStripDue || strip.strip().isNew()) {
        strip.strip().feed().setLastTake(takes.isThere(), takes.isPrograms());
        strip.look();
    }
    return frameIsNew || strip.strip().isNew();
}

void SdlPictures::presentIfDue(HostDoors* doors) {
    if (!isDue()) {
        return;
    }
    frameIsNew = false;
    const HostFrame::Rows changed = frame->takeChanges();
    if (changed.none()) {
        nextPictureUs = nowUs() + window.refreshUs();
        return;
    }
    window.present(*frame, changed);
    if (doors != nullptr) {
        const ScreenTexts texts = doors->texts();
        window.setTitle(WindowTitle::of(texts));
        speak(texts);
    }
    // One refresh after the last picture, so that pictures keep in step with the display; after a
    // pause, now.
    nextPictureUs = std::max(nextPictureUs + window.refreshUs(), nowUs());
    if (pictures++ == 0) {
        window.setIcon(ProgramFolders::icons());
    }
}

void SdlPictures::speak(const ScreenTexts& texts) {
    if (!speech.isStarted()) {
        return;
    }
    std::string message;
    const StripModel& model = strip.strip().model();
    if (model.isTelling()) {
        for (const std::string& row : model.lines()) {
            message += (message.empty() ? "" : " ") + row;
        }
    }
    if (const StripButton action = model.action(); action.wish) {
        message += " " + action.name;
    }
    const bool isCovered = strip.strip().coversPicture();
    speech.say(spoken.change(isCovered ? model.sheetTexts() : texts, message), texts.language);
}

int64_t SdlPictures::dueMs() {
    if (frame == nullptr) {
        return DueTime::kNever;
    }
    const int64_t nextMs = (nextPictureUs + kUsPerMs - 1) / kUsPerMs;
    const int64_t stripMs = strip.strip().dueMs();
    const bool isNew = frameIsNew || strip.strip().isNew();
    // Nothing is due before the next refresh.
    return DueTime::earlier(isNew ? nextMs : DueTime::kNever,
                            stripMs != DueTime::kNever ? std::max(stripMs, nextMs) : stripMs);
}
