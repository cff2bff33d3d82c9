// SPDX-License-Identifier: MIT
// The operations of ScriptRun that carry out the commands.
#include "HeadlessHost.h"
#include "PngFile.h"
#include "RunVerdict.h"
#include "ScriptRun.h"
#include "SoundFile.h"

#include <filesystem>
#include <fstream>
#include <utility>

using Touch = HostListener::Touch;

namespace {

constexpr int64_t kUntilMs = 60000;  // how long "until" waits if it does not say

int32_t numberOf(const ScriptCommand& command, size_t at) {
    return static_cast<int32_t>(
        command.numbers[at]);  // the reader of scripts has checked the range
}

}  // namespace

void ScriptRun::tap(const ScriptCommand& command) {
    ScriptHand(pending).tap(numberOf(command, 0), numberOf(command, 1));
}

void ScriptRun::press(const ScriptCommand& command) {
    ScriptHand(pending).touch(Touch::kPress, numberOf(command, 0), numberOf(command, 1));
}

void ScriptRun::move(const ScriptCommand& command) {
    ScriptHand(pending).touch(Touch::kMove, numberOf(command, 0), numberOf(command, 1));
}

void ScriptRun::release(const ScriptCommand& command) {
    ScriptHand(pending).touch(Touch::kRelease, numberOf(command, 0), numberOf(command, 1));
}

void ScriptRun::swipe(const ScriptCommand& command) {
    ScriptHand(pending).swipe(command.text);
}

void ScriptRun::key(const ScriptCommand& command) {
    ScriptHand(pending).softKey(command.text);
}

void ScriptRun::navigate(const ScriptCommand& command) {
    if (hasDoors(command)) {
        pending.emplace_back([this, key = ScriptHand::keyOf(command.text)](HostListener&) {
            host.openDoors()->navigate(key);
        });
    }
}

void ScriptRun::wait(const ScriptCommand& command) {
    waitFor(command.numbers[0]);
}

void ScriptRun::still(const ScriptCommand& command) {
    waitFor(command.numbers[0]);
    stayingStill = true;
}

void ScriptRun::until(const ScriptCommand& command) {
    waitFor(command.numbers.empty() ? kUntilMs : command.numbers[0], command.text);
}

void ScriptRun::waitFor(int64_t ms, const std::string& screen) {
    waiting = true;
    stayingStill = false;
    awaitedScreen = screen;
    waitEndMs = host.uptimeMs() + ms;
}

void ScriptRun::mic(const ScriptCommand& command) {
    std::vector<int16_t> samples;
    const Problem problem = SoundFile::read(command.text, HostMicrophone::kRateHz,
                                            FileMicrophone::kLongestVoiceSamples, samples);
    host.ears().setVoice(std::move(samples));
    if (problem) {
        mistake(command, problem.sentence());
    }
}

void ScriptRun::speaker(const ScriptCommand& command) {
    if (const Problem problem = host.voice().openFile(command.text)) {
        mistake(command, problem.sentence());
    }
}

void ScriptRun::silent(const ScriptCommand& command) {
    host.setSilent(command.text == "on");
}

void ScriptRun::storage(const ScriptCommand& command) {
    host.setStorage(command.numbers[0], command.numbers[1]);
}

void ScriptRun::background(const ScriptCommand& /*command*/) {
    pending.emplace_back([](HostListener& listener) { listener.onBackground(); });
}

void ScriptRun::foreground(const ScriptCommand& /*command*/) {
    pending.emplace_back([](HostListener& listener) { listener.onForeground(); });
}

void ScriptRun::screen(const ScriptCommand& command) {
    const bool on = command.text == "on";
    pending.emplace_back(
        [on](HostListener& listener) { on ? listener.onScreenOn() : listener.onScreenOff(); });
}

void ScriptRun::volume(const ScriptCommand& command) {
    const bool up = command.text == "up";
    pending.emplace_back([up](HostListener& listener) { listener.onVolumeKey(up); });
}

void ScriptRun::failCall(const ScriptCommand& command) {
    host.failNth(command.text, command.numbers[0]);
}

void ScriptRun::lose(const ScriptCommand& command) {
    pending.emplace_back([this, command](HostListener&) {
        if (!(command.text == "speaker" ? host.voice().lose() : host.ears().lose())) {
            fail(command, "the " + command.text + " is not in use");
        }
    });
}

void ScriptRun::shot(const ScriptCommand& command) {
    const std::vector<uint16_t> pixels = host.picture();
    if (pixels.empty()) {
        fail(command, "there is no picture yet");
    } else if (!PngFile::writeRgb565(command.text, pixels.data(), HostFrame::kWidthPx,
                                     HostFrame::kHeightPx)) {
        mistake(command, inQuotes(command.text) + " cannot be written");
    }
}

void ScriptRun::shotCanvas(const ScriptCommand& command) {
    if (hasDoors(command)) {
        writeCanvas(command, command.text);
    }
}

void ScriptRun::watch(const ScriptCommand& command) {
    watchedScreen = command.text;
    watchedFile = command.second;
}

void ScriptRun::save(const ScriptCommand& command) {
    if (!hasDoors(command)) {
        return;
    }
    pending.emplace_back([this, command](HostListener&) {
        if (!host.openDoors()->saveSound()) {
            fail(command, "nothing can be saved on screen " + inQuotes(host.screenName()));
        }
    });
}

void ScriptRun::take(const ScriptCommand& command) {
    if (!hasDoors(command)) {
        return;
    }
    std::vector<int16_t> samples;
    if (const Problem problem = SoundFile::read(command.text, HostMicrophone::kRateHz,
                                                HostMicrophone::kLongestTakeSamples, samples)) {
        mistake(command, problem.sentence());
        return;
    }
    pending.emplace_back([this, command, samples = std::move(samples)](HostListener&) {
        if (!host.openDoors()->useSound(samples.data(), static_cast<int32_t>(samples.size()))) {
            fail(command, "a sound cannot be taken on screen " + inQuotes(host.screenName()));
            return;
        }
        host.takes().used(samples);
    });
}

void ScriptRun::last(const ScriptCommand& command) {
    if (!hasState(command) || !hasDoors(command)) {
        return;
    }
    std::vector<int16_t> samples;
    if (const Problem problem = host.takes().bringBack(samples)) {
        fail(command, problem.sentence());
        return;
    }
    pending.emplace_back([this, command, samples = std::move(samples)](HostListener&) {
        if (!host.openDoors()->useTake(samples.data(), static_cast<int32_t>(samples.size()))) {
            fail(command, "a take cannot be brought back on screen " + inQuotes(host.screenName()));
            return;
        }
        host.takes().broughtBack();
    });
}

void ScriptRun::forget(const ScriptCommand& command) {
    if (!hasState(command)) {
        return;
    }
    if (const Problem problem = host.takes().forget()) {
        fail(command, problem.sentence());
    }
}

void ScriptRun::remove(const ScriptCommand& command) {
    std::error_code error;
    if (command.text.find('/') != std::string::npos || command.text == "." ||
        command.text == "..") {
        mistake(command, inQuotes(command.text) + " is not the name of a file in the sound folder");
    } else if (!std::filesystem::remove(soundPath(command.text), error)) {
        fail(command, "there is no file " + inQuotes(command.text) + " to remove");
    }
}

void ScriptRun::expectScreen(const ScriptCommand& command) {
    const std::string screen = host.screenName();
    if (screen != command.text) {
        fail(command, "expected screen " + inQuotes(command.text) + ", found " + inQuotes(screen));
    }
}

void ScriptRun::expectFile(const ScriptCommand& command) {
    if (!soundFileExists(command.text)) {
        fail(command, "expected file " + inQuotes(command.text) + ", there is none");
    }
}

void ScriptRun::expectNoFile(const ScriptCommand& command) {
    if (soundFileExists(command.text)) {
        fail(command, "expected no file " + inQuotes(command.text) + ", there is one");
    }
}

void ScriptRun::expectEffect(const ScriptCommand& command) {
    const int64_t effect = host.openDoors() != nullptr ? host.openDoors()->currentEffect() : -1;
    if (effect != command.numbers[0]) {
        fail(command, "expected effect " + std::to_string(command.numbers[0]) + ", found " +
                          std::to_string(effect));
    }
}

void ScriptRun::expectEnded(const ScriptCommand& command) {
    if (!ended) {
        fail(command, "expected the program to have ended");
    }
}

bool ScriptRun::hasDoors(const ScriptCommand& command) {
    if (host.openDoors() == nullptr) {
        fail(command, "the program has not started yet");
    }
    return host.openDoors() != nullptr;
}

bool ScriptRun::hasState(const ScriptCommand& command) {
    if (host.folders().state.empty()) {
        mistake(command, inQuotes(command.verb->name) + " needs --state DIR");
    }
    return !host.folders().state.empty();
}

void ScriptRun::writeCanvas(const ScriptCommand& command, const std::string& path) {
    const std::vector<uint8_t> png = host.openDoors()->canvasPng();
    std::ofstream file(path, std::ios::binary);
    const auto* bytes = reinterpret_cast<const char*>(png.data());
    if (png.empty() || !file.write(bytes, static_cast<std::streamsize>(png.size())).flush()) {
        mistake(command, inQuotes(path) + " cannot be written");
    }
}

std::string ScriptRun::soundPath(const std::string& name) const {
    return host.folders().sounds() + "/" + name;
}

bool ScriptRun::soundFileExists(const std::string& name) const {
    std::error_code error;
    return std::filesystem::exists(soundPath(name), error);
}
