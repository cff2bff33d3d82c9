#include "WebHost.h"

#include "MicrophoneReasons.h"
#include "PlainWav.h"
#include "ScreenNames.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

constexpr double kTurnMs = 8;  // leaves the page half of a frame for everything else

struct NamedKey {
    const char* name;
    HostKey key;
};

constexpr NamedKey kKeys[] = {
    {"ArrowUp", HostKey::kUp},       {"ArrowDown", HostKey::kDown}, {"ArrowLeft", HostKey::kLeft},
    {"ArrowRight", HostKey::kRight}, {"Enter", HostKey::kMiddle},   {" ", HostKey::kMiddle},
    {"F1", HostKey::kLeftSoft},      {"F2", HostKey::kRightSoft},   {"Escape", HostKey::kRightSoft},
};

OneFinger::Pointer pointerOf(bool isFinger) {
    return isFinger ? OneFinger::Pointer::kFinger : OneFinger::Pointer::kMouse;
}

}  // namespace

WebHost::WebHost(WebPage& page, HostFolders folders)
    : page(page)
    , mapped(std::move(folders))
    , ears(*this, page)
    , voice(page) {
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
    return ears.isAsked() ? kNever : restMs;
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
    while (!tasks.empty()) {
        const Task task = std::move(tasks.front());
        tasks.pop_front();
        if (task(listener)) {
            return true;
        }
    }
    if (ears.deliver() || watchMicrophone() || lostMicrophone.deliver(ears.isLost(), doors) ||
        bringTakeBack()) {
        return true;
    }
    const double endless = std::numeric_limits<double>::infinity();
    const double wantedMs = timeoutMs < 0 ? endless : static_cast<double>(timeoutMs);
    restMs = std::min(wantedMs, ears.nextLookMs());
    restMs = restMs == endless ? kNever : std::ceil(restMs);
    return false;
}

void WebHost::touch(
    HostListener::Touch touch, bool isFinger, int32_t id, int32_t x, int32_t y, uint32_t timeMs) {
    tasks.emplace_back([=, this, asked = refusals](HostListener& listener) {
        const OneFinger::Pointer pointer = pointerOf(isFinger);
        switch (touch) {
        case HostListener::Touch::kPress:
            return asked == refusals && finger.tapped(pointer, id, x, y, timeMs, listener);
        case HostListener::Touch::kMove:
            return finger.moved(pointer, id, x, y, listener);
        default:
            return finger.released(pointer, id, x, y, listener);
        }
    });
}

void WebHost::touchCancelled(bool isFinger, int32_t id) {
    tasks.emplace_back([=, this](HostListener& listener) {
        return finger.cancelled(pointerOf(isFinger), id, listener);
    });
}

void WebHost::key(HostKey key) {
    tasks.emplace_back([=, this, asked = refusals](HostListener&) {
        return asked == refusals && doors != nullptr && doors->navigate(key);
    });
}

void WebHost::volumeKey(bool up) {
    tasks.emplace_back([=](HostListener& listener) {
        listener.onVolumeKey(up);
        return true;
    });
}

bool WebHost::keyNamed(const std::string& name) {
    const bool isLouder = name == "+" || name == "=";  // the plus of keyboards that want a shift
    if (isLouder || name == "-") {
        volumeKey(isLouder);
        return true;
    }
    for (const NamedKey& named : kKeys) {
        if (name == named.name) {
            key(named.key);
            return true;
        }
    }
    return false;
}

void WebHost::microphoneAnswered(int32_t ticket, const std::string& error, int32_t rateHz) {
    const char* const word = MicrophoneReasons::wordOf(error, rateHz);
    if (word == nullptr) {
        ears.granted(ticket);
    } else if (ears.refused(ticket)) {
        giveRecordingUp(word);
    }
}

/// From the screen that offers a recording.
void WebHost::giveRecordingUp(const char* word) {
    page.tell(word);
    if (hasTake) {
        offeredTake = lastTake;
    }
    refusals++;  // what was pressed meanwhile was meant for a recording
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

/// A microphone from which nothing more comes is gone. One that never said anything may be switched
/// off: the user is told, and may switch it on.
bool WebHost::watchMicrophone() {
    if (!ears.fellSilent()) {
        return false;
    }
    if (ears.hasHeard()) {
        return loseMicrophone();
    }
    page.tell("microphoneSilent");
    return false;
}

void WebHost::clipEnded(int32_t ticket) {
    tasks.emplace_back([=, this](HostListener&) { return voice.ended(ticket); });
}

void WebHost::clipFailed(int32_t ticket) {
    tasks.emplace_back([=, this](HostListener&) { return voice.failed(ticket); });
}

void WebHost::save() {
    tasks.emplace_back([this](HostListener&) {
        const bool saves = doors != nullptr && doors->saveSound();
        if (!saves) {
            page.tell(hasTake ? "notNow" : "nothingToSave");
        }
        return saves;
    });
}

void WebHost::use(std::vector<int16_t> samples) {
    offeredTake = std::move(samples);
    if (doors != nullptr && ScreenNames::isBeforeMenu(doors->screenName())) {
        return;  // waits for the menu
    }
    tasks.emplace_back([this](HostListener&) {
        const bool isUsed = bringTakeBack();
        if (!isUsed && !offeredTake.empty()) {
            offeredTake.clear();
            page.tell("notNow");
        }
        return isUsed;
    });
}

bool WebHost::bringTakeBack() {
    if (offeredTake.empty() || doors == nullptr ||
        !doors->useTake(offeredTake.data(), static_cast<int32_t>(offeredTake.size()))) {
        return false;
    }
    keepTake(std::move(offeredTake));
    offeredTake.clear();
    return true;
}

void WebHost::keepTake(std::vector<int16_t> samples) {
    lastTake = std::move(samples);
    hasTake = true;
    page.keepTake(PlainWav::toFile(lastTake.data(), static_cast<int32_t>(lastTake.size()),
                                   HostMicrophone::kRateHz));
}

void WebHost::Ears::release() {
    WebMicrophone::release();
    std::vector<int16_t> heard = takeAway();
    const bool hadTake = std::exchange(host.hasTake, false);  // the program has deleted it
    if (!heard.empty()) {
        host.keepTake(std::move(heard));
    } else if (hadTake && hasStarted()) {
        host.offeredTake = host.lastTake;
    }
}

bool WebHost::isOn(const char* screen) const {
    return doors != nullptr && doors->screenName() == screen;
}

void WebHost::leave() {
    if (program == nullptr || isAway || ears.isAsked()) {
        return;  // the browser's own question may hide the page
    }
    const bool wasRecording = isOn(ScreenNames::kRecording);
    tasks.emplace_back(
        [this](HostListener&) { return doors != nullptr && doors->stopRecording(); });
    // A recording that has stopped is cleaned up without a pause, as any job.
    bool goesOn = step();
    while (goesOn && restMs == 0) {
        goesOn = step();
    }
    if (goesOn && wasRecording && isOn(ScreenNames::kRecording)) {
        page.tell("tooShort");
    }
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
    if (!std::exchange(isAway, false)) {
        return;
    }
    tasks.emplace_back([](HostListener& listener) {
        listener.onForeground();
        return true;
    });
}

WebPicture::Rows WebHost::paint() {
    return frame != nullptr ? painted.update(*frame) : WebPicture::Rows{};
}

int64_t WebHost::uptimeMs() {
    return static_cast<int64_t>(page.nowMs());
}

int64_t WebHost::freePhoneBytes() {
    return static_cast<int64_t>(page.freeBytes());
}

void WebHost::frameShown(HostFrame* newest) {
    frame = newest;
    if (frame != nullptr) {
        page.frameWaits();
    }
}

void WebHost::kept(const std::string& path) {
    page.keepFile(path, doors != nullptr ? doors->currentEffect() : 0);
}
