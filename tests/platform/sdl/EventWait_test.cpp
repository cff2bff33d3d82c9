// SPDX-License-Identifier: MIT
// Waits for events with drivers that cannot wait themselves do not depend on how long they last.
#include "EventRoom.h"
#include "EventWait.h"

#include <gtest/gtest.h>
#include <SDL.h>

#include <cstdlib>
#include <thread>

namespace {

constexpr int64_t kHourMs = int64_t{60} * 60 * 1000;

class EventWaitTest : public testing::TestWithParam<const char*> {
protected:
    EventWaitTest() {
        setenv("SDL_VIDEODRIVER", GetParam(), 1);
        begun = SDL_InitSubSystem(SDL_INIT_VIDEO) == 0;
        SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    }

    ~EventWaitTest() override { SDL_QuitSubSystem(SDL_INIT_VIDEO); }

    bool begun = false;
    int64_t passedMs = 0;
    int64_t naps = 0;

    // Time passes only in here.
    EventWait::Nap nap = [this](int64_t ms) {
        passedMs += ms;
        naps++;
        return ms;
    };
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Drivers, EventWaitTest, testing::Values("dummy", "offscreen"));

TEST_P(EventWaitTest, anHourOfWaitingLeavesNothingInTheQueue) {
    ASSERT_TRUE(begun);
    EventWait wait(nap);
    wait.begin();
    const int32_t before = eventRoom();
    wait.wait(kHourMs);
    EXPECT_EQ(kHourMs, passedMs);
    EXPECT_EQ(before, eventRoom());
    EXPECT_LT(60000, before);
}

TEST_P(EventWaitTest, itLooksAHundredTimesASecond) {
    ASSERT_TRUE(begun);
    EventWait wait(nap);
    wait.begin();
    wait.wait(10000);
    EXPECT_EQ(1000, naps);
    wait.wait(15);  // a whole look, and what is left
    EXPECT_EQ(10015, passedMs);
}

TEST_P(EventWaitTest, aProgramIsWokenAfterAnHourAsAfterASecond) {
    ASSERT_TRUE(begun);
    for (const int64_t afterMs : {int64_t{1000}, kHourMs}) {
        passedMs = 0;
        EventWait* woken = nullptr;
        EventWait wait([&](int64_t ms) {
            passedMs += ms;
            if (passedMs == afterMs) {
                woken->wake();
            }
            return ms;
        });
        woken = &wait;
        wait.begin();
        wait.wait(EventWait::kForever);
        EXPECT_EQ(afterMs, passedMs);
        SDL_Event event{};
        EXPECT_EQ(1, SDL_PollEvent(&event));
        EXPECT_LE(static_cast<uint32_t>(SDL_USEREVENT), event.type);
    }
}

TEST_P(EventWaitTest, anEventEndsTheWaitAndStaysInTheQueue) {
    ASSERT_TRUE(begun);
    EventWait wait([&](int64_t ms) {
        SDL_Event event{};
        event.type = SDL_QUIT;
        SDL_PushEvent(&event);
        return ms;
    });
    wait.begin();
    wait.wait(kHourMs);
    EXPECT_EQ(SDL_TRUE, SDL_HasEvent(SDL_QUIT));
}

TEST_P(EventWaitTest, anotherThreadEndsTheRealSleep) {
    ASSERT_TRUE(begun);
    EventWait wait;
    wait.begin();
    std::thread other([&wait] { wait.wake(); });
    wait.wait(EventWait::kForever);
    other.join();
    EXPECT_EQ(SDL_TRUE, SDL_HasEvents(SDL_USEREVENT, SDL_LASTEVENT));
}

TEST_P(EventWaitTest, aWakeWhoseEventWasTakenAlreadyEndsTheNextWait) {
    ASSERT_TRUE(begun);
    EventWait wait(nap);
    wait.begin();
    wait.listen();
    wait.wake();
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    wait.wait(EventWait::kForever);
    EXPECT_EQ(0, passedMs);
    wait.listen();  // what it was woken for is looked at
    wait.wait(1000);
    EXPECT_EQ(1000, passedMs);
}

TEST_P(EventWaitTest, itWakesOnlyBetweenBeginAndEnd) {
    ASSERT_TRUE(begun);
    EventWait wait(nap);
    wait.wake();
    wait.begin();
    wait.end();
    wait.wake();
    EXPECT_EQ(SDL_FALSE, SDL_HasEvents(SDL_FIRSTEVENT, SDL_LASTEVENT));
}
