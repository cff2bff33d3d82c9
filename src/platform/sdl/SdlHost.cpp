#include "SdlHost.h"

#include "HostWords.h"
#include "KeyRules.h"
#include "ProgramFolders.h"
#include "QuietLibrary.h"
#include "SdlKeys.h"
#include "SystemLanguage.h"
#include "VideoDriver.h"
#include "WindowTitle.h"

#include <SDL.h>

#include <algorithm>
#include <csignal>
#include <unistd.h>
#include <utility>

namespace {

constexpr int64_t kUsPerMs = 1000;
constexpr int64_t kNever = -1;

// By then a window manager has noted whether it made the window an icon.
constexpr int64_t kHiddenCheckAfterMs = 100;

/// The earlier of two times, either of which may be never.
int64_t earlier(int64_t a, int64_t b) {
    if (a == kNever || b == kNever) {
        return std::max(a, b);
    }
    return std::min(a, b);
}

}  // namespace

SdlHost::SdlHost(SdlOptions givenOptions)
    : options(std::move(givenOptions))
    , signals(
          [this](int signal) {
              (signal == SIGTSTP ? stopAsked : endAsked) = true;
              rouse();
          },
          [this] { return rouseAgain(); })
    , microphoneMemory(options.folders.config)
    , ears(
          audio,
          options.microphone.empty() ? microphoneMemory.read() : options.microphone,
          [this] { return uptimeMs(); },
          [this] { rouse(); },
          [this](const HostMessage& message) { tell(message); })
    , fileEars([this] { return uptimeMs(); })
    , takes(options.folders.state,
            [this](const Problem& problem) {
                tell({"notKept", {problem.sentence()}});
            })
    , copyingEars(
          realMicrophone(),
          [this] { extraDoors.takeIsGone(); },
          [this](const std::vector<int16_t>& take) { recorded(take); })
    , voice(
          audio, options.speaker, [this] { return uptimeMs(); }, [this] { rouse(); })
    , input(*this)
    , strip(options.folders, [this] { return uptimeMs(); })
    , extraDoors(
          options.folders,
          takes,
          [this](const HostMessage& message) { tell(message); },
          options.effectWord,
          [this] { rouse(); })
    , wishes(strip, extraDoors, listOfMicrophones()) {
    strip.strip().feed().setMicrophone(&realMicrophone());
    extraDoors.onPicture([this](const std::string& path) { strip.tellPicture(path); });
    fileEars.setVoice(options.voice);
}

SdlHost::~SdlHost() {
    events.end();
    window.rememberSize();
}

void SdlHost::print(const std::string& sentence) {
    QuietLibrary::print(STDERR_FILENO, "murmelo: " + sentence + "\n");
}

void SdlHost::tell(const HostMessage& message) {
    print(message.text("en"));
    strip.tell(message);
}

void SdlHost::tell(const char* name, const std::string& sentence) {
    print(sentence);
    strip.tell(HostWords::text(name, strip.language()));
}

Problem SdlHost::open() {
    if (Problem problem = VideoDriver::begin()) {
        return problem;
    }
    events.begin();
    if (Problem problem = window.open(options.folders.config, options.fullScreen)) {
        return problem;
    }
    otherStarts.open(options.folders.home);
    // Only now: a large file, or one on a slow disk, must not keep the window away.
    if (!options.take.empty()) {
        extraDoors.offer(options.take);
    }
    if (options.last) {
        extraDoors.bringBackLater();
    }
    if (options.speaks) {
        if (const Problem problem = speech.start([this] { rouse(); })) {
            tell({"notSpoken", {problem.sentence()}});
        }
    }
    return Problem::none();
}

/// On the socket's thread. The file comes as if it had been dropped on the window.
void SdlHost::startedAgain(const std::string& file) {
    raiseAsked = true;
    if (!file.empty()) {
        SDL_Event event{};
        event.type = SDL_DROPFILE;
        event.drop.file = SDL_strdup(file.c_str());
        SDL_PushEvent(&event);
    }
    rouse();
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

/// The silence that stands in for a microphone is no take.
void SdlHost::recorded(const std::vector<int16_t>& take) {
    if (options.hearsFile || ears.hasHeard()) {
        takes.recorded(take);
    }
}

void SdlHost::useMicrophone(const std::string& name) {
    ears.choose(name);
    microphoneMemory.write(name);
    strip.strip().feed().nameMicrophone();
    tell(name.empty() ? HostMessage{"systemsMicrophone", {}}
                      : HostMessage{"microphoneUsed", {name}});
}

std::vector<std::string> SdlHost::microphones() {
    std::vector<std::string> names = audio.names(SdlAudio::Kind::kMicrophone);
    const auto systems =
        std::find(names.begin(), names.end(), audio.defaultName(SdlAudio::Kind::kMicrophone));
    if (systems != names.end()) {
        std::rotate(names.begin(), systems, systems + 1);
    }
    return names;
}

SdlWishes::Microphones SdlHost::listOfMicrophones() {
    SdlWishes::Microphones list;
    list.names = [this] { return microphones(); };
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
    extraDoors.setDoors(offered);
    strip.strip().setDoors(offered);
    if (doors != nullptr) {
        walk.toFirstLanguage(SystemLanguage::indexOf(SystemLanguage::environment()));
    }
}

void SdlHost::say(const std::string& sentence) {
    print(sentence);
    strip.tell(sentence);
}

bool SdlHost::pump(HostListener& listener, int64_t timeoutMs) {
    StripListener first(strip.strip(), listener, [this] { return uptimeMs(); });
    const int64_t endMs = timeoutMs < 0 ? kNever : uptimeMs() + timeoutMs;
    for (;;) {
        extraDoors.tellSaved();
        if (raiseAsked.exchange(false)) {
            window.raise();
        }
        if (const std::string problem = speech.takeProblem(); !problem.empty()) {
            tell({"notSpoken", {problem}});
        }
        if (deliverSignals(listener) || extraDoors.deliver() || deliverSound() ||
            deliverEvent(first) || deliverAway(listener) ||
            (doors != nullptr && walk.step(*doors))) {
            return true;
        }
        presentIfDue();
        if (endMs != kNever && uptimeMs() >= endMs) {
            return false;
        }
        sleep(earlier(endMs, nextDueMs()));
    }
}

bool SdlHost::deliverSignals(HostListener& listener) {
    if (endAsked.exchange(false)) {
        listener.onTerminate();
        return true;
    }
    if (toldAway && (awayReasons & kStopped) != 0) {
        std::raise(SIGSTOP);  // the program stands still in here until it is let go on
        setAway(kStopped, false);
    }
    if (stopAsked.exchange(false)) {
        setAway(kStopped, true);
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
        return handleWindow(event.window);
    case SDL_AUDIODEVICEADDED:
        ears.look();
        return false;
    case SDL_AUDIODEVICEREMOVED:
        return ears.lose(event.adevice.which) || voice.lose(event.adevice.which);
    case SDL_APP_WILLENTERBACKGROUND:
        setAway(kBySystem, true);
        return false;
    case SDL_APP_DIDENTERFOREGROUND:
        setAway(kBySystem, false);
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
    return deeds.perform(KeyRules::deedOf(press, doors, strip.strip().canClose()), listener, doors);
}

bool SdlHost::handleTouch(const SDL_Event& event, HostListener& listener) {
    const bool delivered = input.handle(event, listener);
    if (delivered) {
        walk.giveUp();
    }
    return delivered;
}

bool SdlHost::handleWindow(const SDL_WindowEvent& event) {
    switch (event.event) {
    case SDL_WINDOWEVENT_EXPOSED:
    case SDL_WINDOWEVENT_SIZE_CHANGED:
        if (everPresented) {
            window.redraw();
        }
        break;
    case SDL_WINDOWEVENT_HIDDEN:
        hiddenCheckMs = uptimeMs() + kHiddenCheckAfterMs;
        break;
    case SDL_WINDOWEVENT_SHOWN:
        hiddenCheckMs = kNever;
        setAway(kHidden, false);
        break;
    default:
        break;
    }
    return false;
}

void SdlHost::setAway(Away reason, bool away) {
    awayReasons = away ? awayReasons | reason : awayReasons & ~static_cast<uint32_t>(reason);
}

bool SdlHost::deliverAway(HostListener& listener) {
    if (hiddenCheckMs != kNever && uptimeMs() >= hiddenCheckMs) {
        hiddenCheckMs = kNever;
        setAway(kHidden, !window.isIcon());
    }
    const bool away = awayReasons != 0;
    if (away == toldAway) {
        return false;
    }
    toldAway = away;
    if (away) {
        listener.onBackground();
    } else {
        listener.onForeground();
    }
    return true;
}

void SdlHost::frameShown(HostFrame* newest) {
    frame = strip.strip().frameOver(newest);
    frameIsNew = newest != nullptr;
}

bool SdlHost::isPictureDue() {
    if (frame == nullptr || nowUs() < nextPictureUs) {
        return false;
    }
    const int64_t stripMs = strip.strip().dueMs();
    const bool isStripDue = stripMs != kNever && uptimeMs() >= stripMs;
    if (frameIsNew || isStripDue) {
        look();
    }
    return frameIsNew || strip.strip().isNew();
}

void SdlHost::look() {
    strip.strip().feed().setLastTake(hasLastTake());
    strip.look();
}

void SdlHost::presentIfDue() {
    if (!isPictureDue()) {
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
    pictures++;
    // In step with the display, unless it was still for a while.
    nextPictureUs = std::max(nextPictureUs + window.refreshUs(), nowUs());
    if (!everPresented) {
        everPresented = true;
        window.setIcon(ProgramFolders::icons());
    }
}

void SdlHost::speak(const ScreenTexts& texts) {
    if (!speech.isStarted()) {
        return;
    }
    std::string message;
    if (strip.strip().model().isTelling()) {
        for (const std::string& row : strip.strip().model().lines()) {
            message += (message.empty() ? "" : " ") + row;
        }
    }
    speech.say(spoken.change(texts, message), texts.language);
}

int64_t SdlHost::nextDueMs() {
    int64_t dueMs = earlier(earlier(fileEars.dueMs(), ears.dueMs()), voice.dueMs());
    if (frameIsNew || strip.strip().isNew()) {
        dueMs = earlier(dueMs, (nextPictureUs + kUsPerMs - 1) / kUsPerMs);
    }
    dueMs = earlier(dueMs, strip.strip().dueMs());
    return earlier(dueMs, hiddenCheckMs);
}

void SdlHost::sleep(int64_t untilMs) {
    if (untilMs == kNever) {
        events.wait(EventWait::kForever);
        return;
    }
    const int64_t ms = untilMs - uptimeMs();
    if (ms > 0) {
        events.wait(ms);
    }
}

/// The window system can lose what rouses it when two threads use its connection at one time, and
/// nothing else may happen for hours.
bool SdlHost::rouseAgain() {
    const bool unheard = stopAsked || endAsked;
    if (unheard) {
        rouse();
    }
    return unheard;
}

DisplayPoint SdlHost::fromShares(double xShare, double yShare, WindowPart part) const {
    return window.toDisplay(xShare, yShare, part);
}

DisplayPoint SdlHost::fromMouse(int32_t mouseX, int32_t mouseY, WindowPart part) const {
    // The middle of the pixel pointed at.
    return window.toDisplay((mouseX + 0.5) / window.widthUnits(),
                            (mouseY + 0.5) / window.heightUnits(), part);
}
