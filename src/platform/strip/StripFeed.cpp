// SPDX-License-Identifier: MIT
#include "StripFeed.h"

#include "HostMessage.h"
#include "HostWords.h"
#include "ScreenNames.h"

#include <utility>

namespace {

constexpr int32_t kTakeSeconds = HostMicrophone::kLongestTakeSamples / HostMicrophone::kRateHz;

/// Seconds until the longest take is full; rounded up, so that 0 appears only at the end.
int32_t secondsLeft(int32_t heardSamples) {
    const int32_t left = HostMicrophone::kLongestTakeSamples - heardSamples;
    const int32_t seconds = (left + HostMicrophone::kRateHz - 1) / HostMicrophone::kRateHz;
    return seconds > 0 ? seconds : 0;
}

}  // namespace

void StripFeed::setDoors(HostDoors* offered) {
    doors = offered;
    language.clear();
    screen.clear();
    recording = false;
    nextLevelMs = DueTime::kNever;
    savedBefore = 0;
    takenBefore = 0;
    hadTake = false;
}

void StripFeed::nameMicrophone() {
    microphoneName = microphone != nullptr ? microphone->deviceName() : "";
    model.setMicrophoneName(microphoneName);
}

void StripFeed::setLastTake(bool isThere, bool isPrograms) {
    offersLastTake = isThere && isPrograms;
    model.setLastTake(isThere);
}

void StripFeed::setSoundFolder(std::string path, std::string shown) {
    folder = std::move(path);
    shownFolder = std::move(shown);
}

void StripFeed::look(int64_t nowMs) {
    if (doors != nullptr) {
        lookAtScreen(nowMs);
        tellSaved(nowMs);
        tellTakeGone(nowMs);
    }
    model.tick(nowMs);
}

int64_t StripFeed::dueMs() const {
    return DueTime::earlier(model.dueMs(), recording ? nextLevelMs : DueTime::kNever);
}

void StripFeed::lookAtScreen(int64_t nowMs) {
    const ScreenTexts texts = doors->texts();
    const bool isRecording = texts.screen == ScreenNames::kRecording;
    if (recording && !isRecording) {
        endRecording(texts.screen, nowMs);
    }
    // The sound system may have become ready, or the user may have chosen another device.
    if (texts.screen != screen && (isRecording || texts.screen == ScreenNames::kRecord)) {
        nameMicrophone();
    }
    screen = texts.screen;
    model.setScreen(texts, doors->currentEffect(), doors->canSave());
    model.setCanOpen(doors->canUseSound());
    if (const int32_t taken = doors->takenCount(); std::exchange(takenBefore, taken) != taken) {
        model.closeSheet();
    }
    if (texts.language != language) {
        language = texts.language;
        std::vector<std::string> names;
        names.reserve(StripModel::kEffects);
        for (int32_t i = 0; i < StripModel::kEffects; i++) {
            names.push_back(doors->effectName(i));
        }
        model.setEffectNames(names);
    }
    if (isRecording && !recording) {
        recording = true;
        heardSamples = 0;
        lastHeardMs = nowMs;
        nextLevelMs = nowMs;
        model.setRecording({}, kTakeSeconds, false);
    }
    if (recording && nowMs >= nextLevelMs) {
        lookAtLevel(nowMs);
        nextLevelMs = nowMs + kLevelMs;
    }
}

void StripFeed::lookAtLevel(int64_t nowMs) {
    LevelMeter::Reading reading;
    if (microphone == nullptr || !microphone->readLevel(reading)) {
        return;
    }
    if (reading.heardSamples != heardSamples) {
        heardSamples = reading.heardSamples;
        lastHeardMs = nowMs;
    }
    model.setRecording(reading, secondsLeft(heardSamples + reading.silentSamples),
                       nowMs - lastHeardMs >= kMuteMs);
    model.setWhyUnheard(whyUnheard());
}

/// Empty if a device delivers, or if the reason is not known.
std::string StripFeed::whyUnheard() {
    HostMessage message = microphone->whyUnheard();
    for (std::string& part : message.parts) {
        part = model.pathForMessage(part);
    }
    return message.text(language);
}

/// Tells the user if a take that is being processed holds no sound. A take that was given up for
/// the menu (because the window was hidden) is noted, so that tellTakeGone() offers to bring it
/// back.
void StripFeed::endRecording(const std::string& screen, int64_t nowMs) {
    recording = false;
    nextLevelMs = DueTime::kNever;
    LevelMeter::Reading reading;
    if (microphone == nullptr || !microphone->readLevel(reading)) {
        return;
    }
    const bool isTaken = screen == ScreenNames::kProcess || screen == ScreenNames::kPlay;
    hadTake = hadTake || (screen == ScreenNames::kMenu && reading.hasHeard());
    if (!isTaken || reading.hasHeard()) {
        return;
    }
    std::string text = whyUnheard();
    if (text.empty()) {
        text = microphoneName.empty()
                   ? HostWords::text("heardNothing", language)
                   : HostMessage{"heardNothingFrom", {microphoneName}}.text(language);
    }
    model.tell(text, StripWish::of(StripWish::Kind::kMicrophones),
               HostWords::text("choose", language), nowMs);
}

void StripFeed::tellSaved(int64_t nowMs) {
    const int32_t saved = doors->savedCount();
    if (saved == savedBefore) {
        return;
    }
    savedBefore = saved;
    if (folder.empty()) {
        return;  // the host itself tells it
    }
    const std::string name = "/" + doors->savedName();
    StripWish show;
    show.kind = StripWish::Kind::kShowFile;
    show.path = folder + name;
    model.tell(HostMessage{"saved", {model.pathForMessage(shownFolder + name)}}.text(language),
               show, HostWords::text("show", language), nowMs);
}

/// Tells the user if the program has deleted the take, and offers to bring it back: the user may
/// not have meant it.
void StripFeed::tellTakeGone(int64_t nowMs) {
    if (!doors->canUseSound()) {
        return;
    }
    const bool hasTake = doors->canSave();
    if (std::exchange(hadTake, hasTake) && !hasTake && offersLastTake) {
        model.tell(HostWords::text("takeGone", language),
                   StripWish::of(StripWish::Kind::kBringBack),
                   HostWords::text("bringBack", language), nowMs);
    }
}
