// SPDX-License-Identifier: MIT
// The window on a real X server: its pixels on the screen, and the mouse on it.
#include "EventWait.h"
#include "PictureScaler.h"
#include "Program.h"
#include "SdlHost.h"
#include "TestSounds.h"
#include "XScreen.h"

#include <gtest/gtest.h>
#include <SDL.h>

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <thread>
#include <unistd.h>

namespace {

// Where a window of the phone's size is put on the screen of 1280 x 1300.
constexpr int32_t kLeft = 400;
constexpr int32_t kTop = 250;

/// Records the calls that the phone gets.
class Heard : public HostListener {
public:
    void onTouch(Touch touch, int32_t x, int32_t y) override {
        const char* const kinds[] = {"press", "move", "release"};
        note(std::string(kinds[static_cast<size_t>(touch)]) + " " + std::to_string(x) + " " +
             std::to_string(y));
    }

    void onVolumeKey(bool up) override { note(up ? "up" : "down"); }

    void onForeground() override { note("foreground"); }

    void onBackground() override { note("background"); }

    void onScreenOff() override { note("off"); }

    void onScreenOn() override { note("on"); }

    void onTerminate() override { note("terminate"); }

    std::vector<std::string> notes;

private:
    void note(const std::string& text) { notes.push_back(text); }
};

class Picture : public HostFrame {
public:
    void composeRows(uint16_t* target, int32_t strideBytes, const Rows& rows) override {
        composed++;
        for (int32_t y = 0; y < kHeightPx; y++) {
            for (int32_t x = 0; x < kWidthPx && rows[static_cast<size_t>(y)]; x++) {
                target[y * strideBytes / 2 + x] = at(x, y);
            }
        }
    }

    Rows takeChanges() override {
        looks++;
        return changes;
    }

    /// As the program's are, each pixel is four of the display.
    uint16_t at(int32_t x, int32_t y) const {
        const int32_t moved = shifted[static_cast<size_t>(y)] ? shift : 0;
        return static_cast<uint16_t>(
            noise[static_cast<size_t>((y / 2 * 240 + x / 2 + moved) % 96000)]);
    }

    uint32_t rgb32(int32_t x, int32_t y) const { return HostFrame::toRgb32(at(x, y)); }

    TestSounds::Samples noise = TestSounds::noise(96000);
    int32_t shift = 0;
    Rows shifted = Rows().set();
    int32_t composed = 0;
    int32_t looks = 0;
    Rows changes = Rows().set();
};

class RealWindow : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ("", host.open());
        host.frameShown(&picture);
        ASSERT_TRUE(isShown());
        window = screen.windowOf("Murmelo");
        heard.notes.clear();
    }

    void run(int64_t ms) {
        const int64_t endMs = host.uptimeMs() + ms;
        while (host.uptimeMs() < endMs) {
            host.pump(heard, endMs - host.uptimeMs());
        }
    }

    /// Handles events until happened() is true. False if it never is.
    bool until(const std::function<bool()>& happened) {
        const int64_t endMs = host.uptimeMs() + Program::kMaxWaitMs;
        while (!happened() && host.uptimeMs() < endMs) {
            host.pump(heard, 10);
        }
        return happened();
    }

    bool isShown() {
        return until([this] { return wrongPixels() == 0; });
    }

    bool hears(const std::string& last) {
        return until([&] { return !heard.notes.empty() && heard.notes.back() == last; });
    }

    /// Waits until all earlier events have arrived, by means of a last one that has no effect.
    void waitForAll() {
        hand("windowfocus " + std::to_string(window) + " key plus");
        ASSERT_TRUE(hears("up"));
        heard.notes.pop_back();
    }

    static SDL_Window* sdlWindow() {
        constexpr uint32_t kMaxWindows = 1000;
        for (uint32_t id = 1; id < kMaxWindows; id++) {
            if (SDL_Window* found = SDL_GetWindowFromID(id)) {
                return found;
            }
        }
        return nullptr;
    }

    bool isOffScreen() { return (SDL_GetWindowFlags(sdlWindow()) & SDL_WINDOW_HIDDEN) != 0; }

    void resize(int32_t width, int32_t height) {
        screen.resize(window, width, height);
        EXPECT_TRUE(until([&] {
            int32_t w = 0;
            int32_t h = 0;
            SDL_GetWindowSize(sdlWindow(), &w, &h);
            return w == width && h == height;
        }));
        host.pump(heard, 0);
    }

    /// Some rows of the picture change, and the window says so.
    void changeSomeRows() {
        picture.shift += 7;
        picture.shifted.reset().set(200).set(201).set(798).set(799);
        picture.changes = picture.shifted;
        const int64_t before = host.presented();
        host.frameShown(&picture);
        EXPECT_TRUE(until([&] { return host.presented() > before; }));
    }

    /// The number of pixels that differ from the picture at its own size.
    int32_t wrongPixels() {
        const std::vector<uint32_t> pixels = screen.pixels(kLeft, kTop, 480, 800);
        int32_t falsePixels = 0;
        for (int32_t i = 0; i < 480 * 800; i++) {
            falsePixels +=
                pixels[static_cast<size_t>(i)] != picture.rgb32(i % 480, i / 480) ? 1 : 0;
        }
        return falsePixels;
    }

    static void hand(const std::string& actions) {
        ASSERT_EQ(0, std::system(("xdotool " + actions).c_str()));
    }

    XScreen screen;
    Heard heard;
    Picture picture;
    SdlHost host{SdlOptions{}};
    uint64_t window = 0;
};

using Notes = std::vector<std::string>;

}  // namespace

TEST_F(RealWindow, everyPixelOfThePictureIsOnTheScreen) {
    EXPECT_EQ(0, wrongPixels());
}

TEST_F(RealWindow, aLargerWindowShowsWholePixelsAndDarkBands) {
    screen.resize(window, 740, 1200);  // three pixels each make 720 x 1200
    hand("search --name Murmelo windowmove 0 0");
    const auto isRight = [this] {
        const std::vector<uint32_t> all = screen.pixels(0, 0, 740, 1200);
        int32_t falsePixels = 0;
        for (int32_t y = 0; y < 1200; y++) {
            for (int32_t x = 0; x < 740; x++) {
                const bool inside = x >= 10 && x < 730;
                const uint32_t expected =
                    inside ? picture.rgb32((x - 10) / 3 * 2, y / 3 * 2) : PictureScaler::kBesideRgb;
                falsePixels +=
                    all[static_cast<size_t>(y) * 740 + static_cast<size_t>(x)] != expected;
            }
        }
        return falsePixels == 0;
    };
    EXPECT_TRUE(until(isRight));
}

TEST_F(RealWindow, aWideWindowHasTheStripBesideThePictureAndBothAreTouched) {
    screen.resize(window, 960, 640);
    hand("search --name Murmelo windowmove 0 0");
    const auto isRight = [this] {
        const std::vector<uint32_t> all = screen.pixels(0, 0, 960, 640);
        int32_t falsePixels = 0;
        for (int32_t y = 0; y < 640; y++) {
            for (int32_t x = 0; x < 960; x++) {
                const bool onStrip = x < 480 && y >= 240 && y < 400;
                const uint32_t expected = x >= 480  ? picture.rgb32(x - 480, 160 + y)
                                          : onStrip ? picture.rgb32(x, y - 240)
                                                    : PictureScaler::kBesideRgb;
                falsePixels +=
                    all[static_cast<size_t>(y) * 960 + static_cast<size_t>(x)] != expected;
            }
        }
        return falsePixels == 0;
    };
    EXPECT_TRUE(until(isRight));
    hand("mousemove 580 100 mousedown 1 mousemove 400 300 mouseup 1");  // from picture to strip
    hand("mousemove 100 250 click 1 mousemove 100 100 click 1");        // strip, and beside it
    ASSERT_TRUE(
        until([this] { return !heard.notes.empty() && heard.notes.back() == "release 100 10"; }));
    ASSERT_LE(5U, heard.notes.size());
    EXPECT_EQ("press 100 260", heard.notes.front());
    EXPECT_EQ((Notes{"release 0 460", "press 100 10", "release 100 10"}),
              Notes(heard.notes.end() - 3, heard.notes.end()));
}

TEST_F(RealWindow, eachWakeByAnotherThreadIsHeard) {
    constexpr int32_t kRounds = 2000;
    EventWait wait;
    wait.begin();
    std::atomic<int32_t> wanted{0};
    std::atomic<int32_t> done{0};
    std::thread other([&] {
        for (int32_t round = 1; round <= kRounds; round++) {
            while (wanted < round) {
                std::this_thread::yield();
            }
            done = round;
            wait.wake();
        }
    });
    int32_t lost = 0;
    for (int32_t round = 1; round <= kRounds; round++) {
        wait.listen();
        wanted = round;
        const int64_t startMs = host.uptimeMs();
        while (done < round) {
            SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
            wait.wait(Program::kMaxWaitMs);
            wait.listen();
        }
        lost += host.uptimeMs() >= startMs + Program::kMaxWaitMs ? 1 : 0;
    }
    other.join();
    EXPECT_EQ(0, lost);
}

TEST_F(RealWindow, onlyTheRowsThatChangedAreDrawnAgain) {
    const std::vector<uint32_t> old = screen.pixels(kLeft, kTop, 480, 800);
    picture.shift = 7;
    picture.changes.reset().set(200).set(201).set(798).set(799);
    host.frameShown(&picture);
    const auto isRight = [&] {
        const std::vector<uint32_t> pixels = screen.pixels(kLeft, kTop, 480, 800);
        int32_t falsePixels = 0;
        for (int32_t i = 0; i < 480 * 800; i++) {
            const auto at = static_cast<size_t>(i);
            const bool isNew = picture.changes[at / 480];
            falsePixels +=
                pixels[at] != (isNew ? picture.rgb32(i % 480, i / 480) : old[at]) ? 1 : 0;
        }
        return falsePixels == 0;
    };
    EXPECT_TRUE(until(isRight));
    EXPECT_FALSE(old == screen.pixels(kLeft, kTop, 480, 800));
}

TEST_F(RealWindow, changedRowsAreEnoughAlsoAfterTheWindowWasElsewhere) {
    changeSomeRows();
    EXPECT_TRUE(isShown());
    screen.unmap(window);
    EXPECT_TRUE(hears("background"));
    screen.map(window);
    EXPECT_TRUE(hears("foreground"));
    changeSomeRows();
    EXPECT_TRUE(isShown()) << "taken off the screen";
    resize(300, 500);
    resize(480, 800);
    changeSomeRows();
    EXPECT_TRUE(isShown()) << "small for a while";
    screen.unmap(window);
    EXPECT_TRUE(hears("background"));
    changeSomeRows();  // the window is not visible
    screen.map(window);
    EXPECT_TRUE(hears("foreground"));
    EXPECT_TRUE(isShown()) << "changed off the screen";
}

TEST_F(RealWindow, aStillPictureIsNotPresentedAgain) {
    picture.changes.reset();
    const int64_t before = host.presented();
    for (int32_t i = 0; i < 1000; i++) {
        host.frameShown(&picture);
        host.pump(heard, 0);
    }
    EXPECT_EQ(before, host.presented());
}

TEST_F(RealWindow, aMovingPictureIsPresentedOnceForEachRefresh) {
    constexpr int64_t kPictures = 20;
    const int64_t before = host.presented();
    const int64_t startMs = host.uptimeMs();
    while (host.presented() - before < kPictures && host.uptimeMs() - startMs < 60000) {
        picture.shift++;
        host.frameShown(&picture);
        host.pump(heard, 0);
    }
    const int64_t takenMs = host.uptimeMs() - startMs;
    std::cout << kPictures << " pictures in " << takenMs << " ms\n";
    EXPECT_EQ(kPictures, host.presented() - before);
    // Xvfb names no rate: 60 Hz. After a rest one may be due at once and one with the next refresh.
    EXPECT_LE((kPictures - 2) * 1000 / 60, takenMs);
}

TEST_F(RealWindow, clicksArriveInPixelsOfTheDisplay) {
    hand("mousemove 410 260 click 1");
    waitForAll();
    EXPECT_EQ((Notes{"press 10 10", "release 10 10"}), heard.notes);
}

TEST_F(RealWindow, draggingOutOfTheWindowGoesOnAtItsEdge) {
    hand("mousemove 500 300 mousedown 1 mousemove 390 300 mouseup 1");
    waitForAll();
    ASSERT_LE(3U, heard.notes.size());
    EXPECT_EQ("press 100 50", heard.notes.front());
    EXPECT_EQ("move 0 50", heard.notes[heard.notes.size() - 2]);
    EXPECT_EQ("release 0 50", heard.notes.back());
}

TEST_F(RealWindow, theSecondHalfOfADoubleClickIsDroppedOnTheSoftKeysOnly) {
    hand("mousemove 640 1030 click --repeat 2 --delay 50 1");
    waitForAll();
    EXPECT_EQ((Notes{"press 240 780", "release 240 780"}), heard.notes);
    heard.notes.clear();
    hand("mousemove 640 700 click --repeat 2 --delay 50 1");
    waitForAll();
    EXPECT_EQ(4U, heard.notes.size());
}

TEST_F(RealWindow, keysOfTheVolumeArrive) {
    hand("windowfocus " + std::to_string(window) + " key plus key minus key a key plus");
    EXPECT_TRUE(until([this] { return heard.notes.size() >= 3; }));
    EXPECT_EQ((Notes{"up", "down", "up"}), heard.notes);
}

TEST_F(RealWindow, takingTheWindowOffTheScreenIsTheBackground) {
    screen.unmap(window);
    EXPECT_TRUE(hears("background"));
    screen.map(window);
    EXPECT_TRUE(hears("foreground"));
    waitForAll();
    EXPECT_EQ((Notes{"background", "foreground"}), heard.notes);
}

TEST_F(RealWindow, anIconIsNotTheBackground) {
    screen.noteIcon(window);
    screen.unmap(window);
    EXPECT_TRUE(until([this] { return isOffScreen(); }));
    run(300);  // only after some time does the host check if the window is an icon
    screen.map(window);
    EXPECT_TRUE(until([this] { return !isOffScreen(); }));
    waitForAll();
    EXPECT_EQ(Notes{}, heard.notes);
}

TEST_F(RealWindow, losingTheFocusIsNotTheBackground) {
    hand("windowfocus " + std::to_string(window));
    EXPECT_TRUE(until([] { return SDL_GetKeyboardFocus() != nullptr; }));
    hand("windowfocus " + std::to_string(screen.root()));
    EXPECT_TRUE(until([] { return SDL_GetKeyboardFocus() == nullptr; }));
    waitForAll();
    EXPECT_EQ(Notes{}, heard.notes);
}

TEST_F(RealWindow, suspendingIsTheBackground) {
    // All of this program is suspended, so another process continues it as soon as that has
    // happened.
    const std::string pid = std::to_string(getpid());
    Program waker({"sh", "-c",
                   "until grep -q '^State:.*T (stopped)' /proc/" + pid +
                       "/status; do sleep 0.01; done; kill -CONT " + pid});
    kill(getpid(), SIGTSTP);
    EXPECT_TRUE(hears("foreground"));
    EXPECT_EQ(0, waker.waitForEnd());
    EXPECT_EQ((Notes{"background", "foreground"}), heard.notes);
}

TEST_F(RealWindow, aSignalWakesTheSleeper) {
    kill(getpid(), SIGTERM);
    EXPECT_TRUE(host.pump(heard, -1));
    EXPECT_EQ(Notes{"terminate"}, heard.notes);
}
