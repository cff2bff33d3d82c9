// SPDX-License-Identifier: MIT
#include "WebHost.h"

#include "DueTime.h"
#include "MicrophoneReasons.h"
#include "PlainWav.h"
#include "ScreenNames.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

// The program plays at its loudest; the user changes the volume with the device's own keys.
constexpr int32_t kVolumeSteps = 4;  // from 50 to 90
constexpr double kTurnMs = 8;        // leaves the page half of a frame for everything else

}  // namespace

WebHost::WebHost(WebPage& page, HostFolders folders)
    : page(page)
    , mapped(std::move(folders))
    , ears(*this, page)
    , voice(page)
    , row(page, mapped.config, [this] { return stripNowMs(); }) {
    row.strip().feed().setMicrophone(&ears);
    row.onBringBack([this] { bringLastTakeBack(); });
    Host::install(this);
}

WebHost::~WebHost() {
    program.reset();
    Host::install(nullptr);
}

bool WebHost::begin(std::unique_ptr<HostProgram> made) {
    program = std::move(made);
    if (!program->begin()) {
        program.reset();
        return false;
    }
    return true;
}

double WebHost::turn() {
    const double stopMs = page.realNowMs() + kTurnMs;
    do {
        if (ears.isAsked() || program == nullptr) {
            return ended ? kEnded : kNever;
        }
        if (!step()) {
            return kEnded;
        }
    } while (restMs == 0 && page.realNowMs() < stopMs);
    look();
    if (ears.isAsked()) {
        return kNever;
    }
    const int64_t dueMs = isAway ? DueTime::kNever : row.dueMs();
    const bool isDue = dueMs != DueTime::kNever;
    const int64_t waitMs = isDue ? std::max<int64_t>(dueMs - stripNowMs(), 0) : DueTime::kNever;
    return static_cast<double>(DueTime::earlier(static_cast<int64_t>(restMs), waitMs));
}

/// Updates the strip. Not in the background: the strip cannot be seen there, and its messages wait.
/// Not while a take is about to come back either: the strip would tell that the take is gone.
void WebHost::look() {
    const bool takeComes = !offeredTake.empty() && doors != nullptr && doors->canUseSound();
    if (!isAway && program != nullptr && !takeComes) {
        row.look();
    }
}

int64_t WebHost::stripNowMs() {
    return (isAway ? leftMs : uptimeMs()) - awayMs;
}

/// False once the program has ended.
bool WebHost::step() {
    restMs = 0;
    if (program->step()) {
        return true;
    }
    end();
    return false;
}

void WebHost::end() {
    program->end();
    program.reset();
    ended = true;
}

bool WebHost::pump(HostListener& listener, int64_t timeoutMs) {
    StripListener first(row.strip(), listener, [this] { return stripNowMs(); });
    if (deliver(first)) {
        return true;
    }
    const double endless = std::numeric_limits<double>::infinity();
    const double wantedMs = timeoutMs < 0 ? endless : static_cast<double>(timeoutMs);
    restMs = std::min(wantedMs, ears.nextLookMs());
    restMs = restMs == endless ? kNever : std::ceil(restMs);
    return false;
}

/// Returns true if it delivered a callback.
bool WebHost::deliver(HostListener& listener) {
    while (!tasks.empty()) {
        const Task task = std::move(tasks.front());
        tasks.pop_front();
        if (task(listener)) {
            return true;
        }
    }
    return ears.deliver() || watchMicrophone() || lostMicrophone.deliver(ears.isLost(), doors) ||
           bringTakeBack() || (doors != nullptr && walk.step(*doors));
}

void WebHost::remindToAllow() {
    isReminded = true;
    row.tell({"allowMicrophone", {}});
}

void WebHost::microphoneAnswered(int32_t ticket,
                                 const std::string& error,
                                 int32_t rateHz,
                                 const std::string& name) {
    if (std::exchange(isReminded, false)) {
        row.close();
    }
    const char* const word = MicrophoneReasons::wordOf(error, rateHz);
    if (word == nullptr) {
        if (ears.granted(ticket)) {
            ears.setDeviceName(name);
            row.microphoneGiven(name);
        }
    } else if (ears.refused(ticket)) {
        giveRecordingUp(word);
    }
    if (leavesLater) {
        leave();
    }
}

/// Leaves the screen that offers a recording: tells the user why, brings the earlier take back, and
/// presses "Back".
void WebHost::giveRecordingUp(const char* word) {
    row.tell({word, {}});
    walk.giveUp();
    if (hasTake) {
        offer(lastTake);
    }
    refusals++;  // drops waiting keys: they were meant for a recording
    key(HostKey::kRightSoft);
}

void WebHost::microphoneLost() {
    tasks.emplace_back([this](HostListener&) { return loseMicrophone(); });
}

bool WebHost::loseMicrophone() {
    if (ears.lose()) {
        return true;
    }
    if (ears.isHeld() && !ears.hasStarted()) {
        giveRecordingUp("microphoneGoneEmpty");
    }
    return false;
}

/// A microphone that has delivered samples and then stops is treated as lost. One that has
/// delivered none may be switched off: the strip tells so, and the user can switch it on.
bool WebHost::watchMicrophone() {
    return ears.fellSilent() && ears.hasHeard() && loseMicrophone();
}

void WebHost::clipEnded(int32_t ticket) {
    tasks.emplace_back([=, this](HostListener&) { return voice.ended(ticket); });
}

void WebHost::clipFailed(int32_t ticket) {
    tasks.emplace_back([=, this](HostListener&) { return voice.failed(ticket); });
}

void WebHost::offer(std::vector<int16_t> samples, HostMessage message) {
    offeredTake = std::move(samples);
    offeredMessage = std::move(message);
}

void WebHost::use(std::vector<int16_t> samples, HostMessage message) {
    offer(std::move(samples), std::move(message));
    if (doors != nullptr && ScreenNames::isBeforeMenu(doors->screenName())) {
        return;  // waits for the menu
    }
    tasks.emplace_back([this](HostListener&) {
        const bool isUsed = bringTakeBack();
        if (!isUsed && !offeredTake.empty()) {
            offeredTake.clear();
            row.tell({"notNow", {}});
        }
        return isUsed;
    });
}

void WebHost::bringLastTakeBack() {
    if (lastTake.empty()) {
        row.tell({"noLastTake", {}});
    } else {
        use(lastTake, {"takeIsBack", {}});
    }
}

bool WebHost::bringTakeBack() {
    if (offeredTake.empty() || doors == nullptr ||
        !doors->useTake(offeredTake.data(), static_cast<int32_t>(offeredTake.size()))) {
        return false;
    }
    keepTake(std::move(offeredTake));
    offeredTake.clear();
    if (*offeredMessage.row != '\0') {
        row.tell(offeredMessage);
    }
    return true;
}

void WebHost::rememberTake(std::vector<int16_t> samples) {
    lastTake = std::move(samples);
    row.strip().feed().setLastTake(!lastTake.empty());
}

void WebHost::keepTake(std::vector<int16_t> samples) {
    rememberTake(std::move(samples));
    hasTake = true;
    page.keepTake(PlainWav::toFile(lastTake.data(), static_cast<int32_t>(lastTake.size()),
                                   HostMicrophone::kRateHz));
}

void WebHost::Ears::release() {
    WebMicrophone::release();
    std::vector<int16_t> heard = takeAway();
    const bool hadTake = std::exchange(host.hasTake, false);  // the program has deleted that one
    if (!heard.empty()) {
        host.keepTake(std::move(heard));
    } else if (hadTake && hasStarted()) {
        host.offer(host.lastTake);
    }
}

bool WebHost::isOn(const char* screen) const {
    return doors != nullptr && doors->screenName() == screen;
}

void WebHost::leave() {
    leavesLater = ears.isAsked();  // the browser's question itself may hide the page
    if (program == nullptr || isAway || leavesLater) {
        return;
    }
    tasks.emplace_back([this](HostListener& listener) {
        row.strip().takeTouchAway();
        return finger.cancelDown(listener);
    });
    const bool wasRecording = isOn(ScreenNames::kRecording);
    tasks.emplace_back(
        [this](HostListener&) { return doors != nullptr && doors->stopRecording(); });
    // A recording that was stopped is cleaned up in steps without a pause between them, like any
    // job.
    bool goesOn = step();
    while (goesOn && restMs == 0) {
        goesOn = step();
    }
    if (goesOn && wasRecording && isOn(ScreenNames::kRecording)) {
        row.tell({"tooShort", {}});
    }
    look();
    leftMs = uptimeMs();
    isAway = true;
    tasks.emplace_back([](HostListener& listener) {
        listener.onBackground();
        return true;
    });
    while (goesOn && (!tasks.empty() || restMs == 0)) {
        goesOn = step();
    }
}

void WebHost::comeBack() {
    leavesLater = false;
    if (!std::exchange(isAway, false)) {
        return;
    }
    awayMs += uptimeMs() - leftMs;
    tasks.emplace_back([](HostListener& listener) {
        listener.onForeground();
        return true;
    });
}

WebPicture::Rows WebHost::paint() {
    look();
    return frame != nullptr ? painted.update(*frame) : WebPicture::Rows{};
}

int64_t WebHost::uptimeMs() {
    return static_cast<int64_t>(page.nowMs());
}

int64_t WebHost::freePhoneBytes() {
    return static_cast<int64_t>(page.freeBytes());
}

void WebHost::frameShown(HostFrame* newest) {
    frame = row.strip().frameOver(newest);
    if (frame != nullptr) {
        page.frameWaits();
    }
}

void WebHost::setDoors(HostDoors* offered) {
    for (int32_t i = 0; doors == nullptr && offered != nullptr && i < kVolumeSteps; i++) {
        volumeKey(true);
    }
    doors = offered;
    row.setDoors(offered);
}

void WebHost::kept(const std::string& path) {
    page.keepFile(path, doors != nullptr ? doors->currentEffect() : 0);
}
