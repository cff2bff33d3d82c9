#include "HeadlessHost.h"

#include "EndSignal.h"
#include "PngFile.h"
#include "ScriptHand.h"
#include "SoundFile.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <utility>

namespace {

constexpr int64_t kUntilMs = 60000;  // how long "until" waits if it does not say

// A program that is due again and again without time going on would never let the script go on
// either.
constexpr int64_t kMaxFramesAtOnce = 1000000;

std::string inQuotes(const std::string& text) {
    return "\"" + text + "\"";
}

bool isDeviceFact(ScriptVerb verb) {
    return verb == ScriptVerb::kSilent || verb == ScriptVerb::kStorage ||
           verb == ScriptVerb::kFail || verb == ScriptVerb::kMic || verb == ScriptVerb::kSpeaker;
}

}  // namespace

HeadlessHost::HeadlessHost(HostFolders folders,
                           std::vector<ScriptCommand> script,
                           int64_t clockStartMs,
                           bool silent)
    : mapped(std::move(folders))
    , script(std::move(script))
    , nowMs(clockStartMs)
    , ears([this] { return nowMs; })
    , voice([this] { return nowMs; })
    , silent(silent) {
    // The facts of the device with which a script begins hold from the start on.
    while (next < this->script.size() && isDeviceFact(this->script[next].verb)) {
        next++;
        start(this->script[next - 1]);
    }
}

void HeadlessHost::yielded() {
    // Only who yields again and again waits for time to pass.
    yieldsSincePump++;
    if (yieldsSincePump > 1) {
        nowMs++;
    }
}

bool HeadlessHost::pump(HostListener& listener, int64_t timeoutMs) {
    yieldsSincePump = 0;
    watch();
    heedSignal();
    if (status == kOk &&
        (ears.deliver() || voice.deliver() || lostMicrophone.deliver(ears.isLost(), doors))) {
        return true;
    }
    if (timeoutMs == 0 && status == kOk && !awaitedScreenCame()) {
        framesAtThisTime++;
        if (framesAtThisTime <= kMaxFramesAtOnce) {
            return false;
        }
        failure = (next > 0 ? "line " + std::to_string(script[next - 1].line) + ": " : "") +
                  "the program never comes to rest";
        status = kFailed;
    }
    while (status == kOk && pending.empty()) {
        if (waiting && !waitOver(timeoutMs)) {
            framesAtThisTime = 0;
            return false;
        }
        if (status != kOk || next == script.size()) {
            break;
        }
        next++;
        framesAtThisTime = 0;
        start(script[next - 1]);
        heedSignal();
    }
    if (status != kOk || pending.empty()) {
        ended = true;
        listener.onTerminate();
        return true;
    }
    const Callback callback = std::move(pending.front());
    pending.pop_front();
    callback(listener);
    return true;
}

/// A run that was asked to end before its script did not do what the script wanted.
void HeadlessHost::heedSignal() {
    const int signal = EndSignal::received();
    if (signal != 0 && status == kOk) {
        failure = (next > 0 ? "line " + std::to_string(script[next - 1].line) + ": " : "") +
                  "ended by signal " + std::to_string(signal);
        status = kSignalled + signal;
    }
}

/// Pictures a screen that comes and goes within one command, such as the processing of a take.
void HeadlessHost::watch() {
    if (!watchedScreen.empty() && doors != nullptr && doors->screenName() == watchedScreen) {
        watchedScreen.clear();
        writeCanvas(script[next - 1], watchedFile);
    }
}

/// An "until" looks at every frame, also while more is due, and begins with the frames of the
/// command before it: so it meets a screen that lasts only as long as its work. For a screen
/// that is there already it waits until that screen is there again, at rest.
bool HeadlessHost::awaitedScreenCame() {
    const bool untilIsNext = !waiting && pending.empty() && next < script.size() &&
                             script[next].verb == ScriptVerb::kUntil;
    const std::string& wanted = untilIsNext ? script[next].text : awaitedScreen;
    const bool came = doors != nullptr && (doors->screenName() != wanted || screenBefore != wanted);
    if (untilIsNext && came) {
        next++;
        start(script[next - 1]);
    }
    return waiting && awaitedScreenIsThere();
}

bool HeadlessHost::awaitedScreenIsThere() const {
    return !awaitedScreen.empty() && doors != nullptr && doors->screenName() == awaitedScreen;
}

bool HeadlessHost::waitOver(int64_t timeoutMs) {
    const bool there = awaitedScreenIsThere();
    if (there || nowMs >= waitEndMs) {
        waiting = false;
        if (!there && !awaitedScreen.empty()) {
            const std::string current = doors != nullptr ? doors->screenName() : "";
            fail(script[next - 1],
                 "expected screen " + inQuotes(awaitedScreen) + ", found " + inQuotes(current));
        }
        return true;
    }
    const int64_t sleepMs = longestSleep(timeoutMs);
    const bool dueBefore = sleepMs >= 0 && sleepMs < waitEndMs - nowMs;
    if (dueBefore && stayingStill && sleepMs > 0) {  // 0: the rest of the command before it
        fail(script[next - 1], "something is due in " + std::to_string(sleepMs) + " ms");
        return true;
    }
    nowMs = dueBefore ? nowMs + sleepMs : waitEndMs;
    return false;
}

int64_t HeadlessHost::longestSleep(int64_t timeoutMs) const {
    int64_t sleepMs = timeoutMs;
    for (const int64_t dueMs : {ears.dueMs(), voice.dueMs()}) {
        if (dueMs >= 0 && (sleepMs < 0 || dueMs - nowMs < sleepMs)) {
            sleepMs = std::max<int64_t>(dueMs - nowMs, 0);
        }
    }
    return sleepMs;
}

void HeadlessHost::start(const ScriptCommand& command) {
    if (doors != nullptr && command.verb != ScriptVerb::kUntil) {
        screenBefore = doors->screenName();
    }
    switch (command.verb) {
    case ScriptVerb::kTap:
    case ScriptVerb::kPress:
    case ScriptVerb::kMove:
    case ScriptVerb::kRelease:
    case ScriptVerb::kSwipe:
    case ScriptVerb::kKey:
        ScriptHand::append(command, pending);
        break;
    case ScriptVerb::kWait:
    case ScriptVerb::kStill:
    case ScriptVerb::kUntil:
        waiting = true;
        stayingStill = command.verb == ScriptVerb::kStill;
        awaitedScreen = command.text;
        waitEndMs = nowMs + (command.numbers.empty() ? kUntilMs : command.numbers[0]);
        break;
    case ScriptVerb::kShot:
        takeShot(command);
        break;
    case ScriptVerb::kMic:
    case ScriptVerb::kSpeaker:
        startSound(command);
        break;
    case ScriptVerb::kLose:
        loseDevice(command);
        break;
    case ScriptVerb::kWatch:
        watchedScreen = command.text;
        watchedFile = command.second;
        break;
    case ScriptVerb::kShotCanvas:
    case ScriptVerb::kNavigate:
    case ScriptVerb::kSave:
    case ScriptVerb::kTake:
        useDoor(command);
        break;
    case ScriptVerb::kRemove:
        removeSoundFile(command);
        break;
    case ScriptVerb::kExpectScreen:
    case ScriptVerb::kExpectFile:
    case ScriptVerb::kExpectNoFile:
    case ScriptVerb::kExpectEffect:
    case ScriptVerb::kExpectEnded:
        expect(command);
        break;
    default:
        startDevice(command);
        break;
    }
}

void HeadlessHost::startDevice(const ScriptCommand& command) {
    const bool on = command.text == "on";
    switch (command.verb) {
    case ScriptVerb::kSilent:
        silent = on;
        break;
    case ScriptVerb::kStorage:
        phoneBytes = command.numbers[0];
        cardBytes = command.numbers[1];
        break;
    case ScriptVerb::kBackground:
        pending.emplace_back([](HostListener& listener) { listener.onBackground(); });
        break;
    case ScriptVerb::kForeground:
        pending.emplace_back([](HostListener& listener) { listener.onForeground(); });
        break;
    case ScriptVerb::kScreen:
        pending.emplace_back(
            [on](HostListener& listener) { on ? listener.onScreenOn() : listener.onScreenOff(); });
        break;
    case ScriptVerb::kVolume: {
        const bool up = command.text == "up";
        pending.emplace_back([up](HostListener& listener) { listener.onVolumeKey(up); });
        break;
    }
    default:
        failures[command.text] = command.numbers[0];
        break;
    }
}

void HeadlessHost::startSound(const ScriptCommand& command) {
    std::string wrong;
    if (command.verb == ScriptVerb::kSpeaker) {
        wrong = voice.openFile(command.text);
    } else {
        std::vector<int16_t> samples;
        wrong = SoundFile::read(command.text, HostMicrophone::kRateHz,
                                FileMicrophone::kLongestVoiceSamples, samples);
        ears.setVoice(std::move(samples));
    }
    if (!wrong.empty()) {
        mistake(command, wrong);
    }
}

void HeadlessHost::loseDevice(const ScriptCommand& command) {
    pending.emplace_back([this, command](HostListener&) {
        if (!(command.text == "speaker" ? voice.lose() : ears.lose())) {
            fail(command, "the " + command.text + " is not in use");
        }
    });
}

void HeadlessHost::takeShot(const ScriptCommand& command) {
    if (frame == nullptr && lastPicture.empty()) {
        fail(command, "there is no picture yet");
        return;
    }
    const std::vector<uint16_t> pixels = frame != nullptr ? pictureOf(*frame) : lastPicture;
    if (!PngFile::writeRgb565(command.text, pixels.data(), HostFrame::kWidthPx,
                              HostFrame::kHeightPx)) {
        mistake(command, inQuotes(command.text) + " cannot be written");
    }
}

void HeadlessHost::useDoor(const ScriptCommand& command) {
    if (doors == nullptr) {
        fail(command, "the program has no doors yet");
    } else if (command.verb == ScriptVerb::kShotCanvas) {
        writeCanvas(command, command.text);
    } else if (command.verb == ScriptVerb::kNavigate) {
        pending.emplace_back(
            [this, key = ScriptHand::keyOf(command)](HostListener&) { doors->navigate(key); });
    } else if (command.verb == ScriptVerb::kSave) {
        pending.emplace_back([this, command](HostListener&) {
            if (!doors->saveSound()) {
                fail(command, "nothing can be saved on screen " + inQuotes(doors->screenName()));
            }
        });
    } else {
        useSoundFile(command);
    }
}

void HeadlessHost::writeCanvas(const ScriptCommand& command, const std::string& path) {
    const std::vector<uint8_t> png = doors->canvasPng();
    std::ofstream file(path, std::ios::binary);
    const auto* bytes = reinterpret_cast<const char*>(png.data());
    if (png.empty() || !file.write(bytes, static_cast<std::streamsize>(png.size())).flush()) {
        mistake(command, inQuotes(path) + " cannot be written");
    }
}

void HeadlessHost::useSoundFile(const ScriptCommand& command) {
    std::vector<int16_t> samples;
    const std::string wrong = SoundFile::read(command.text, HostMicrophone::kRateHz,
                                              HostMicrophone::kLongestTakeSamples, samples);
    if (!wrong.empty()) {
        mistake(command, wrong);
        return;
    }
    pending.emplace_back([this, command, samples = std::move(samples)](HostListener&) {
        if (!doors->useSound(samples.data(), static_cast<int32_t>(samples.size()))) {
            fail(command, "a sound cannot be taken on screen " + inQuotes(doors->screenName()));
        }
    });
}

std::string HeadlessHost::soundPath(const std::string& name) const {
    return mapped.sounds() + "/" + name;
}

bool HeadlessHost::soundFileExists(const std::string& name) const {
    std::error_code error;
    return std::filesystem::exists(soundPath(name), error);
}

void HeadlessHost::removeSoundFile(const ScriptCommand& command) {
    std::error_code error;
    if (command.text.find('/') != std::string::npos || command.text == "." ||
        command.text == "..") {
        mistake(command, inQuotes(command.text) + " is not the name of a file in the sound folder");
    } else if (!std::filesystem::remove(soundPath(command.text), error)) {
        fail(command, "there is no file " + inQuotes(command.text) + " to remove");
    }
}

void HeadlessHost::expect(const ScriptCommand& command) {
    const std::string screen = doors != nullptr ? doors->screenName() : "";
    switch (command.verb) {
    case ScriptVerb::kExpectScreen:
        if (screen != command.text) {
            fail(command,
                 "expected screen " + inQuotes(command.text) + ", found " + inQuotes(screen));
        }
        break;
    case ScriptVerb::kExpectFile:
        if (!soundFileExists(command.text)) {
            fail(command, "expected file " + inQuotes(command.text) + ", there is none");
        }
        break;
    case ScriptVerb::kExpectNoFile:
        if (soundFileExists(command.text)) {
            fail(command, "expected no file " + inQuotes(command.text) + ", there is one");
        }
        break;
    case ScriptVerb::kExpectEffect: {
        const int64_t effect = doors != nullptr ? doors->currentEffect() : -1;
        if (effect != command.numbers[0]) {
            fail(command, "expected effect " + std::to_string(command.numbers[0]) + ", found " +
                              std::to_string(effect));
        }
        break;
    }
    default:
        if (!ended) {
            fail(command, "expected the program to have ended");
        }
        break;
    }
}

void HeadlessHost::say(const std::string& sentence) {
    std::cerr << "murmelo-headless: " << sentence << "\n";
}

bool HeadlessHost::fails(const char* operation) {
    const auto found = failures.find(operation);
    if (found == failures.end() || --found->second > 0) {
        return false;
    }
    failures.erase(found);
    return true;
}

void HeadlessHost::frameShown(HostFrame* newest) {
    if (newest == nullptr && frame != nullptr) {
        lastPicture = pictureOf(*frame);  // the display keeps it until the next frame
    }
    frame = newest;
}

std::vector<uint16_t> HeadlessHost::pictureOf(HostFrame& shown) {
    std::vector<uint16_t> pixels(static_cast<size_t>(HostFrame::kWidthPx) * HostFrame::kHeightPx);
    shown.compose(pixels.data(), HostFrame::kWidthPx * 2);
    return pixels;
}

/// What cannot be done because the script asks for it wrongly: a file that is not there, a place
/// that cannot be written.
void HeadlessHost::mistake(const ScriptCommand& command, const std::string& message) {
    fail(command, message);
    status = kUsage;
}

void HeadlessHost::fail(const ScriptCommand& command, const std::string& message) {
    failure = "line " + std::to_string(command.line) + ": " + message;
    status = kFailed;
}

int32_t HeadlessHost::finish() {
    ended = true;
    const std::string wrong = voice.finishFile();
    if (!wrong.empty() && status == kOk) {
        failure = wrong;
        status = kFailed;
    }
    if (waiting && !awaitedScreen.empty() && status == kOk) {
        fail(script[next - 1],
             "expected screen " + inQuotes(awaitedScreen) + ", the program ended");
    }
    while (status == kOk && next < script.size()) {
        const ScriptCommand& command = script[next++];
        if (command.verb >= ScriptVerb::kExpectScreen) {
            expect(command);
        } else {
            fail(command, "the program has ended");
        }
    }
    return status;
}
