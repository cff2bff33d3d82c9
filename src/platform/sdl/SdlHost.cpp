// SPDX-License-Identifier: MIT
#include "SdlHost.h"

#include "DesktopNotice.h"
#include "DueTime.h"
#include "FileUri.h"
#include "KeyRules.h"
#include "ProgramFolders.h"
#include "QuietLibrary.h"
#include "SdlKeys.h"
#include "SoundFile.h"
#include "SystemLanguage.h"
#include "VideoDriver.h"

#include <SDL.h>

#include <algorithm>
#include <csignal>
#include <unistd.h>
#include <utility>

namespace {

constexpr int64_t kUsPerMs = 1000;

// How long the end waits for files that are still being read or synced; a disk that needs longer
// has stalled.
constexpr int64_t kFinishMs = 5000;

}  // namespace

SdlHost::SdlHost(SdlOptions givenOptions)
    : options(std::move(givenOptions))
    , signals([this](int signal) {
        (signal == SIGTSTP ? stopAsked : endAsked) = true;
        wake();
    })
    , microphoneMemory(options.folders.config)
    , ears(
          audio,
          options.microphone.empty() ? microphoneMemory.read() : options.microphone,
          [this] { return uptimeMs(); },
          [this] { wake(); },
          [this](const HostMessage& message) { tellOfMicrophone(message); })
    , fileEars([this] { return uptimeMs(); })
    , backgroundWork([this] { wake(); })
    , takes(
          options.folders.state,
          [this](const HostMessage& message, const std::string& sentence) {
              tell(message, sentence);
          },
          [this](std::function<Problem()> sync) { syncLater(std::move(sync)); })
    , copyingEars(
          realMicrophone(),
          [this] { extraDoors.takeIsGone(); },
          [this](const std::vector<int16_t>& take) { recorded(take); })
    , voice(
          audio,
          options.speaker,
          [this] { return uptimeMs(); },
          [this] { wake(); },
          [this](const HostMessage& message) { tell(message); })
    , input(*this)
    , strip(
          options.folders, [this] { return uptimeMs(); }, [this] { wake(); })
    , extraDoors(
          options.folders,
          takes,
          [this](const HostMessage& message) { tell(message); },
          options.effectWord,
          [this] { wake(); })
    , wishes(strip, extraDoors, listOfMicrophones())
    , microphones(audio, [this] { wake(); })
    , pictures(window, strip, speech, takes, [this] { return nowUs(); })
    , otherStarts([this] { wake(); }) {
    strip.strip().feed().setMicrophone(&realMicrophone());
    extraDoors.onParent([this] { return window.portalName(); });
    extraDoors.onPicture([this](const std::string& path) { strip.tellPicture(path); });
}

SdlHost::~SdlHost() {
    events.end();
}

void SdlHost::print(const std::string& sentence) {
    QuietLibrary::print(STDERR_FILENO, "murmelo: " + sentence + "\n");
}

void SdlHost::tell(const HostMessage& message) {
    tell(message, message.text("en"));
}

void SdlHost::tell(const HostMessage& message, const std::string& sentence) {
    print(sentence);
    if (hasEnded) {
        notify(message);
    } else {
        strip.tell(message);
    }
}

/// During a recording without a device, the strip's line says why. It becomes a message only when
/// the recording ends, so that the user is not told twice.
void SdlHost::tellOfMicrophone(const HostMessage& message) {
    const std::string row = message.row;
    if (row == "noMicrophone" || row == "microphoneUnusable") {
        print(message.text("en"));
    } else {
        tell(message);
    }
}

/// Shows the message as a notice of the desktop, on another thread: a bus may be slow.
void SdlHost::notify(const HostMessage& message) {
    backgroundWork.start([text = strip.textOf(message)] {
        DesktopNotice::show("Murmelo", text);
        return [] { return false; };
    });
}

Problem SdlHost::open() {
    otherStarts.open(options.folders.home);  // first: a second start may come at any moment
    if (Problem problem = VideoDriver::begin()) {
        return problem;
    }
    events.begin();
    if (Problem problem = window.open(options.folders.config, options.fullScreen)) {
        return problem;
    }
    // Only after the window is open: a large file or a slow disk must not delay it.
    if (options.hearsFile) {
        readVoice();
    }
    if (!options.take.empty()) {
        extraDoors.offer(options.take);
    }
    if (options.last) {
        extraDoors.bringBackLater();
    }
    if (options.speaks) {
        if (const Problem problem = speech.start([this] { wake(); })) {
            tell({"notSpoken", {problem.sentence()}});
        }
    }
    return Problem::none();
}

int64_t SdlHost::nowUs() const {
    const auto passed = std::chrono::steady_clock::now() - start;
    return std::chrono::duration_cast<std::chrono::microseconds>(passed).count();
}

int64_t SdlHost::uptimeMs() {
    return nowUs() / kUsPerMs;
}

int64_t SdlHost::ticksMs() {
    const auto sinceBoot = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(sinceBoot).count();
}

int64_t SdlHost::freePhoneBytes() {
    return ProgramFolders::freeBytes(options.folders);
}

HostMicrophone* SdlHost::microphone() {
    return &copyingEars;
}

bool SdlHost::isStuck() {
    const bool isAllWritten = extraDoors.finish();
    // Last, because a failed write shows a notice, which is another job for this queue.
    const bool isDone = backgroundWork.finish(kFinishMs);
    return !isAllWritten || !isDone || audio.isStuck();
}

/// Syncs the take on another thread, so that a slow disk does not stop the window.
void SdlHost::syncLater(std::function<Problem()> sync) {
    backgroundWork.start([this, sync = std::move(sync)] {
        return [this, problem = sync()] {
            takes.synced(problem);
            return false;
        };
    });
}

/// Reads the sound file that replaces the microphone; until then the microphone delivers silence.
void SdlHost::readVoice() {
    fileEars.setName(FileUri::nameIn(options.microphone));
    backgroundWork.start([this, name = options.microphone] {
        std::vector<int16_t> voice;
        std::string path;
        Problem problem = FileUri::toPath(name, path);
        if (!problem) {
            problem = SoundFile::read(path, HostMicrophone::kRateHz,
                                      FileMicrophone::kLongestVoiceSamples, voice);
        }
        return [this, name = FileUri::nameIn(name), problem, voice = std::move(voice)] {
            if (problem) {
                tell({"notASound", {name, SoundFile::reasonOf(problem)}});
            }
            fileEars.setVoice(voice);
            return false;
        };
    });
}

/// Keeps the take, but not the silence that replaces a missing microphone.
void SdlHost::recorded(const std::vector<int16_t>& take) {
    const bool isHeard = options.hearsFile || ears.hasHeard();
    takes.recorded(isHeard ? take : std::vector<int16_t>());
}

void SdlHost::useMicrophone(const std::string& name) {
    ears.choose(name);
    backgroundWork.start([this, store = microphoneMemory.storing(name)] {
        return [this, problem = store()] {
            if (problem) {
                tell({"choiceNotKept", {problem.sentence()}});
            }
            return false;
        };
    });
    strip.strip().feed().nameMicrophone();
    tell(name.empty() ? HostMessage{"systemsMicrophone", {}}
                      : HostMessage{"microphoneUsed", {name}});
}

void SdlHost::deliverListing() {
    if (const auto names = microphones.take()) {
        wishes.show(*names);
        ears.listed(*names);
        strip.strip().feed().nameMicrophone();
    }
}

SdlWishes::Microphones SdlHost::listOfMicrophones() {
    SdlWishes::Microphones list;
    list.ask = [this] { microphones.ask(); };
    list.chosen = [this] { return chosenMicrophone(); };
    list.use = [this](const std::string& name) { useMicrophone(name); };
    list.isFixed = [this] {
        if (options.hearsFile) {
            tell({"fileIsMicrophone", {options.microphone}});
        }
        return options.hearsFile;
    };
    return list;
}

HostMicrophone& SdlHost::realMicrophone() {
    if (options.hearsFile) {
        return fileEars;
    }
    return ears;
}

void SdlHost::setDoors(HostDoors* offered) {
    doors = offered;
    if (doors == nullptr) {
        // Before the last take is kept: if a disk, a device or a dialog does not let the program
        // end, the process stops without the destructor, and until then a dead window would be on
        // the screen, and other starts would wait for it.
        window.rememberSize();
        window.hide();
        otherStarts.end();
        hasEnded = true;
    }
    extraDoors.setDoors(offered);
    strip.strip().setDoors(offered);
    if (doors != nullptr) {
        walk.toFirstLanguage(SystemLanguage::indexOf(SystemLanguage::environment()));
    }
}

bool SdlHost::pump(HostListener& listener, int64_t timeoutMs) {
    StripListener first(strip.strip(), listener, [this] { return uptimeMs(); });
    const int64_t endMs = timeoutMs < 0 ? DueTime::kNever : uptimeMs() + timeoutMs;
    for (;;) {
        events.listen();
        extraDoors.tellSaved();
        strip.deliver();
        backgroundWork.deliver();
        deliverListing();
        tellSpeechFailure();
        if (deliverSignals(listener) || extraDoors.deliver() || deliverSound() ||
            deliverEvent(first) || away.deliver(listener, uptimeMs()) ||
            (doors != nullptr && walk.step(*doors))) {
            return true;
        }
        otherStarts.deliver(window, extraDoors);  // last: not any more if the program is to end
        pictures.presentIfDue(doors);
        if (endMs != DueTime::kNever && uptimeMs() >= endMs) {
            return false;
        }
        sleep(DueTime::earlier(endMs, nextDueMs()));
    }
}

void SdlHost::tellSpeechFailure() {
    const Speech::Failure failure = speech.takeFailure();
    if (!failure.reason.empty()) {
        const std::string& words = failure.detail.empty() ? failure.reason : failure.detail;
        tell({"notSpoken", {failure.reason}}, HostMessage{"notSpoken", {words}}.text("en"));
    }
}

bool SdlHost::deliverSignals(HostListener& listener) {
    if (endAsked.exchange(false)) {
        listener.onTerminate();
        return true;
    }
    away.standStill();
    if (stopAsked.exchange(false)) {
        away.stop();
    }
    return false;
}

bool SdlHost::deliverSound() {
    return ears.deliver() || fileEars.deliver() || voice.deliver() ||
           lostMicrophone.deliver(ears.isLost(), doors);
}

bool SdlHost::deliverEvent(HostListener& listener) {
    SDL_Event event;
    while (SDL_PollEvent(&event) != 0) {
        if (handle(event, listener)) {
            return true;
        }
    }
    return false;
}

bool SdlHost::handle(const SDL_Event& event, HostListener& listener) {
    switch (event.type) {
    case SDL_QUIT:
        listener.onTerminate();
        return true;
    case SDL_WINDOWEVENT:
        strip.handle(event);
        handleWindow(event);
        return false;
    case SDL_AUDIODEVICEADDED:
        microphones.ask();
        return false;
    case SDL_AUDIODEVICEREMOVED:
        microphones.ask();
        return ears.lose(event.adevice.which) || voice.lose(event.adevice.which);
    case SDL_APP_WILLENTERBACKGROUND:
    case SDL_APP_DIDENTERFOREGROUND:
        away.handle(event, uptimeMs());
        return false;
    case SDL_MOUSEMOTION:
        point(event.motion);
        return input.handle(event, listener);
    default:
        return extraDoors.handle(event) || handleKey(event, listener) ||
               handleTouch(event, listener);
    }
}

void SdlHost::point(const SDL_MouseMotionEvent& motion) {
    if (motion.state == 0 && motion.which != SDL_TOUCH_MOUSEID) {
        const DisplayPoint place = fromMouse(motion.x, motion.y, WindowPart::kNone);
        strip.strip().point(place.x, place.y);
    }
}

bool SdlHost::handleKey(const SDL_Event& event, HostListener& listener) {
    KeyPress press;
    if (!SdlKeys::read(event, press)) {
        return false;
    }
    walk.giveUp();
    if (strip.navigate(press)) {
        return true;
    }
    return keyActions.perform(KeyRules::actionOf(press, doors, strip.strip().canClose()), listener,
                              doors);
}

bool SdlHost::handleTouch(const SDL_Event& event, HostListener& listener) {
    const bool delivered = input.handle(event, listener);
    if (delivered) {
        walk.giveUp();
    }
    return delivered;
}

void SdlHost::handleWindow(const SDL_Event& event) {
    if (event.window.event == SDL_WINDOWEVENT_EXPOSED ||
        event.window.event == SDL_WINDOWEVENT_SIZE_CHANGED) {
        pictures.redraw();
    }
    if (event.window.event == SDL_WINDOWEVENT_SIZE_CHANGED) {
        window.sizeChanged();
    } else if (event.window.event == SDL_WINDOWEVENT_MAXIMIZED) {
        window.maximised();
    }
    away.handle(event, uptimeMs());
}

void SdlHost::frameShown(HostFrame* newest) {
    pictures.show(newest);
}

int64_t SdlHost::nextDueMs() {
    int64_t dueMs = DueTime::kNever;
    for (const int64_t ms :
         {fileEars.dueMs(), ears.dueMs(), voice.dueMs(), pictures.dueMs(), away.dueMs()}) {
        dueMs = DueTime::earlier(dueMs, ms);
    }
    return dueMs;
}

void SdlHost::sleep(int64_t untilMs) {
    if (untilMs == DueTime::kNever) {
        events.wait(EventWait::kForever);
        return;
    }
    const int64_t ms = untilMs - uptimeMs();
    if (ms > 0) {
        events.wait(ms);
    }
}

DisplayPoint SdlHost::fromShares(double xShare, double yShare, WindowPart part) const {
    return window.toDisplay(xShare, yShare, part);
}

DisplayPoint SdlHost::fromMouse(int32_t mouseX, int32_t mouseY, WindowPart part) const {
    // + 0.5: the middle of the pixel under the mouse.
    return window.toDisplay((mouseX + 0.5) / window.widthUnits(),
                            (mouseY + 0.5) / window.heightUnits(), part);
}
