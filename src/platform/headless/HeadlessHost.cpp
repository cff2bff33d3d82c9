// SPDX-License-Identifier: MIT
#include "HeadlessHost.h"

#include "ProgramFolders.h"
#include "SoundFile.h"

#include <algorithm>
#include <iostream>
#include <utility>

HeadlessHost::HeadlessHost(HostFolders folders,
                           std::vector<ScriptCommand> script,
                           int64_t clockStartMs,
                           bool silent)
    : mapped(std::move(folders))
    , nowMs(clockStartMs)
    , fileEars([this] { return nowMs; })
    , keeper(mapped.state,
             [this](const HostMessage& message, const std::string& sentence) {
                 tell(message, sentence);
             })
    , copyingEars(
          fileEars,
          [this] { keeper.takeDeleted(); },
          [this](const std::vector<int16_t>& take) { keeper.recorded(take); })
    , fileVoice([this] { return nowMs; })
    , silent(silent)
    , scriptRun(*this, verdict, std::move(script)) {
    scriptRun.begin();
}

int32_t HeadlessHost::finish() {
    const Problem problem = fileVoice.finishFile();
    if (problem && verdict.isOk()) {
        verdict.fail(0, problem.sentence());
    }
    if (frameCheck && framesToCheck > 0 && frameCheck->frames() == 0 && verdict.isOk()) {
        verdict.fail(0, "no frame was checked");
    }
    scriptRun.finish();
    return verdict.status();
}

void HeadlessHost::yielded() {
    // A program that yields more than once is waiting for time to pass.
    yieldsSincePump++;
    if (yieldsSincePump > 1) {
        nowMs++;
    }
}

void HeadlessHost::showStrip() {
    strip = std::make_unique<Strip>();
    strip->feed().setMicrophone(&fileEars);
    strip->feed().setSoundFolder(mapped.sounds(), ProgramFolders::shown(mapped.sounds()));
    strip->wishes().on(StripWish::Kind::kBringBack, [this](const StripWish&) { bringBack(); });
}

void HeadlessHost::look() {
    strip->feed().setLastTake(keeper.isThere(), keeper.isPrograms());
    strip->look(nowMs);
}

void HeadlessHost::bringBack() {
    std::vector<int16_t> samples;
    if (const Problem problem = keeper.bringBack(samples)) {
        tell({"notBack", {SoundFile::reasonOf(problem)}}, problem.sentence());
    } else if (doors->useTake(samples.data(), static_cast<int32_t>(samples.size()))) {
        keeper.broughtBack();
    } else {
        tellOnStrip({"notNow", {}});
    }
}

void HeadlessHost::setDoors(HostDoors* offered) {
    doors = offered;
    if (strip != nullptr) {
        strip->setDoors(offered);
    }
    if (doors == nullptr) {
        keeper.end();
    }
}

bool HeadlessHost::pump(HostListener& listener, int64_t timeoutMs) {
    if (strip == nullptr) {
        return pumpProgram(listener, timeoutMs);
    }
    look();
    StripListener first(*strip, listener, [this] { return nowMs; });
    return pumpProgram(first, timeoutMs);
}

bool HeadlessHost::pumpProgram(HostListener& listener, int64_t timeoutMs) {
    yieldsSincePump = 0;
    scriptRun.look();
    if (verdict.isOk() && (fileEars.deliver() || fileVoice.deliver() ||
                           lostMicrophone.deliver(fileEars.isLost(), doors))) {
        return true;
    }
    return scriptRun.pump(listener, timeoutMs);
}

int64_t HeadlessHost::longestSleep(int64_t timeoutMs) const {
    int64_t sleepMs = timeoutMs;
    for (const int64_t dueMs : {fileEars.dueMs(), fileVoice.dueMs()}) {
        if (dueMs >= 0 && (sleepMs < 0 || dueMs - nowMs < sleepMs)) {
            sleepMs = std::max<int64_t>(dueMs - nowMs, 0);
        }
    }
    return sleepMs;
}

void HeadlessHost::frameShown(HostFrame* phones) {
    HostFrame* newest = strip != nullptr && phones != nullptr ? strip->frameOver(phones) : phones;
    if (newest == nullptr && frame != nullptr) {
        lastPicture = pictureOf(*frame);  // the display keeps it until the next frame
    }
    frame = newest;
    if (phones != nullptr && doors != nullptr && frameCheck) {
        framesToCheck++;
        const std::vector<uint16_t> canvas = doors->canvasPixels();
        if (!canvas.empty() && !frameCheck->isRight(*phones, *newest, canvas)) {
            verdict.fail(0, "frame " + std::to_string(frameCheck->frames()) +
                                " shows something else than was painted");
        }
    }
    if (newest == nullptr && strip != nullptr) {
        strip->frameOver(nullptr);
    }
}

std::vector<uint16_t> HeadlessHost::picture() {
    if (strip != nullptr) {
        look();
    }
    return frame != nullptr ? pictureOf(*frame) : lastPicture;
}

std::vector<uint16_t> HeadlessHost::pictureOf(HostFrame& shown) {
    std::vector<uint16_t> pixels(static_cast<size_t>(HostFrame::kWidthPx) * HostFrame::kHeightPx);
    shown.compose(pixels.data(), HostFrame::kWidthPx * 2);
    return pixels;
}

void HeadlessHost::tell(const HostMessage& message, const std::string& sentence) {
    std::cerr << "murmelo-headless: " << sentence << "\n";
    if (strip != nullptr) {
        tellOnStrip(message);
    }
}

void HeadlessHost::tellOnStrip(const HostMessage& message) {
    strip->model().tell(message.text(strip->model().language()), {}, "", nowMs);
}

void HeadlessHost::setStorage(int64_t phone, int64_t card) {
    phoneBytes = phone;
    cardBytes = card;
}
