// SPDX-License-Identifier: MIT
// The scheduler delivers events once and in order, and delays them by a pause.
#include "Assembly.h"
#include "Bounds.h"
#include "LoopHost.h"
#include "Murmelo.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "TestScreen.h"
#include "Vector.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using Osp::Base::String;
using Heard = std::vector<std::string>;

namespace {

class OrmTest : public testing::Test {
protected:
    void SetUp() override {
        Assembly::install();
        midlet = new Murmelo();
    }

    void TearDown() override { delete midlet; }

    static void ticks(int32_t count) {
        for (int32_t i = 0; i < count; i++) {
            Orm::canvas->run();
        }
    }

    static Heard pendingSubTypes() {
        Heard names;
        for (Event* event = Orm::firstEvent; event != nullptr; event = event->next) {
            names.push_back(event->subType != nullptr ? event->subType->ToUtf8() : "");
        }
        return names;
    }

    LoopHost host;
    Murmelo* midlet = nullptr;
};

}  // namespace

TEST_F(OrmTest, earlierEventsComeFirstAndEqualOnesInTheirOrder) {
    Orm::schedEvent(Orm::EV_T_UPDATE, Orm::EV_ST_KEY_LEFT, nullptr, 100);
    Orm::schedEvent(Orm::EV_T_UPDATE, Orm::EV_ST_KEY_RIGHT, nullptr, 100);
    Orm::schedEvent(Orm::EV_T_UPDATE, Orm::EV_ST_KEY_UP, nullptr, 50);
    EXPECT_EQ((Heard{"KeyUp", "KeyLeft", "KeyRight"}), pendingSubTypes());
}

TEST_F(OrmTest, insertingInTheMiddleKeepsBothDirectionsLinked) {
    for (int32_t delay : {30, 10, 20, 10, 0}) {
        Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, delay);
    }
    std::vector<int32_t> times;
    for (Event* event = Orm::firstEvent; event != nullptr; event = event->next) {
        times.push_back(event->time);
        if (event->next != nullptr) {
            EXPECT_EQ(event, event->next->prev);
        }
    }
    EXPECT_EQ((std::vector<int32_t>{0, 10, 10, 20, 30}), times);
}

TEST_F(OrmTest, unschedulingATypeTakesEverySubType) {
    Orm::schedEvent(Orm::EV_T_KEY_PRESS, Orm::EV_ST_KEY_LEFT, nullptr, 0);
    Orm::schedEvent(Orm::EV_T_KEY_RELEASE, Orm::EV_ST_KEY_UP, nullptr, 0);
    Orm::schedEvent(Orm::EV_T_KEY_PRESS, nullptr, nullptr, 0);
    Orm::unschedule(Orm::EV_T_KEY_PRESS, nullptr);
    EXPECT_EQ(Heard{"KeyUp"}, pendingSubTypes());
}

TEST_F(OrmTest, unschedulingASubTypeLeavesTheOthers) {
    Orm::schedEvent(Orm::EV_T_KEY_PRESS, Orm::EV_ST_KEY_LEFT, nullptr, 0);
    Orm::schedEvent(Orm::EV_T_KEY_PRESS, Orm::EV_ST_KEY_RIGHT, nullptr, 0);
    Orm::schedEvent(Orm::EV_T_KEY_PRESS, Orm::EV_ST_KEY_LEFT, nullptr, 0);
    Orm::unschedule(Orm::EV_T_KEY_PRESS, Orm::EV_ST_KEY_LEFT);
    EXPECT_EQ(Heard{"KeyRight"}, pendingSubTypes());
    Orm::unschedule(Orm::EV_T_KEY_PRESS, Orm::EV_ST_KEY_UP);
    EXPECT_EQ(Heard{"KeyRight"}, pendingSubTypes());
}

TEST_F(OrmTest, anEqualTextIsAnotherName) {
    TestScreen screen({Orm::EV_T_UPDATE});
    Orm::registerListener(&screen);
    String update("Update");
    Orm::schedEvent(&update, nullptr, nullptr, 0);
    ticks(1);
    EXPECT_TRUE(screen.heard.empty());
    Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 0);
    ticks(1);
    EXPECT_EQ(Heard{"Update"}, screen.heard);
    Orm::unregisterListener(&screen);
}

TEST_F(OrmTest, listenersHearInTheOrderOfRegistrationAndOnce) {
    Heard order;
    TestScreen first({Orm::EV_T_UPDATE});
    TestScreen second({Orm::EV_T_UPDATE});
    first.handler = [&order](Event*) { order.emplace_back("first"); };
    second.handler = [&order](Event*) { order.emplace_back("second"); };
    Orm::registerListener(&first);
    Orm::registerListener(&second);
    Orm::registerListener(&first);
    Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 0);
    ticks(1);
    EXPECT_EQ((Heard{"first", "second"}), order);
    Orm::unregisterListener(&first);
    Orm::unregisterListener(&second);
}

TEST_F(OrmTest, aListenerWithoutSubscriptionsHearsNothing) {
    TestScreen deaf;
    Orm::registerListener(&deaf);
    Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 0);
    ticks(1);
    EXPECT_TRUE(deaf.heard.empty());
    Orm::unregisterListener(&deaf);
}

TEST_F(OrmTest, whoIsUnregisteredDuringDeliveryStillHearsAndWhoJoinsDoesNot) {
    TestScreen first({Orm::EV_T_UPDATE});
    TestScreen leaving({Orm::EV_T_UPDATE});
    TestScreen joining({Orm::EV_T_UPDATE});
    first.handler = [&](Event*) {
        Orm::unregisterListener(&leaving);
        Orm::registerListener(&joining);
    };
    Orm::registerListener(&first);
    Orm::registerListener(&leaving);
    Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 0);
    ticks(1);
    EXPECT_EQ(Heard{"Update"}, leaving.heard);
    EXPECT_TRUE(joining.heard.empty());
    Orm::unregisterListener(&first);
    Orm::unregisterListener(&joining);
}

TEST_F(OrmTest, aHandlerThatPausesLetsTheOthersHearTheCurrentEvent) {
    TestScreen pausing({Orm::EV_T_UPDATE});
    TestScreen second({Orm::EV_T_UPDATE});
    pausing.handler = [](Event*) { Orm::setPaused(true); };
    Orm::registerListener(&pausing);
    Orm::registerListener(&second);
    Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 0);
    ticks(1);
    EXPECT_EQ(Heard{"Update"}, second.heard);
    Orm::unregisterListener(&pausing);
    Orm::unregisterListener(&second);
}

TEST_F(OrmTest, pausingKeepsTheRemainingDelay) {
    Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 200);
    Orm::setPaused(true);
    EXPECT_EQ(-1, Orm::msUntilDue());
    host.nowMs += 5000;
    Orm::setPaused(false);
    EXPECT_EQ(200, Orm::msUntilDue());
    EXPECT_EQ(5000, Orm::pauseMs);
}

TEST_F(OrmTest, pauseAndResumeAreDeliveredOnceAndAtOnce) {
    TestScreen screen({Orm::EV_T_SYS_PAUSE, Orm::EV_T_SYS_RESUME});
    Orm::registerListener(&screen);
    Orm::setPaused(false);
    Orm::setPaused(true);
    Orm::setPaused(true);
    EXPECT_EQ(Heard{"SysPause"}, screen.heard);
    Orm::setPaused(false);
    EXPECT_EQ((Heard{"SysPause", "SysResume"}), screen.heard);
    Orm::unregisterListener(&screen);
}

TEST_F(OrmTest, nothingIsDeliveredWhilePaused) {
    TestScreen screen({Orm::EV_T_UPDATE});
    Orm::registerListener(&screen);
    Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 0);
    Orm::setPaused(true);
    ticks(3);
    EXPECT_TRUE(screen.heard.empty());
    Orm::setPaused(false);
    ticks(1);
    EXPECT_EQ(Heard{"Update"}, screen.heard);
    Orm::unregisterListener(&screen);
}

TEST_F(OrmTest, disposingResumesAndIsDueForEver) {
    TestScreen screen({Orm::EV_T_SYS_DISPOSE, Orm::EV_T_UPDATE, Orm::EV_T_SYS_RESUME});
    Orm::registerListener(&screen);
    Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 0);
    Orm::setPaused(true);
    Orm::dispose();
    EXPECT_EQ(0, Orm::msUntilDue());
    ticks(2);
    EXPECT_EQ((Heard{"SysResume", "SysDispose", "SysDispose"}), screen.heard);
    EXPECT_NE(nullptr, Orm::firstEvent);  // what was pending is not delivered any more
    Orm::unregisterListener(&screen);
}

TEST_F(OrmTest, msUntilDueCountsToTheFirstEvent) {
    EXPECT_EQ(-1, Orm::msUntilDue());
    Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 137);
    EXPECT_EQ(137, Orm::msUntilDue());
    host.nowMs += 137;
    EXPECT_EQ(0, Orm::msUntilDue());
    host.nowMs += 1;
    EXPECT_EQ(0, Orm::msUntilDue());
}

TEST_F(OrmTest, whatIsDueAfterTheClockWrappedComesThenAndNotBefore) {
    TestScreen screen({Orm::EV_T_UPDATE, Orm::EV_T_KEY_PRESS});
    Orm::registerListener(&screen);
    for (const int64_t wrapMs : {int64_t{1} << 31, int64_t{1} << 32}) {
        screen.heard.clear();
        host.nowMs = wrapMs - 5;
        Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 10);
        Orm::schedEvent(Orm::EV_T_KEY_PRESS, nullptr, nullptr, 3);
        EXPECT_EQ(3, Orm::msUntilDue());
        host.nowMs += 3;
        EXPECT_EQ(0, Orm::msUntilDue());
        ticks(2);
        EXPECT_EQ(Heard{"KeyPress"}, screen.heard);
        EXPECT_EQ(7, Orm::msUntilDue());
        host.nowMs += 6;
        ticks(1);
        EXPECT_EQ(1U, screen.heard.size());
        host.nowMs += 1;
        ticks(1);
        EXPECT_EQ((Heard{"KeyPress", "Update"}), screen.heard);
    }
    Orm::unregisterListener(&screen);
}

TEST_F(OrmTest, eventsKeepTheirOrderWhereverTheClockStands) {
    constexpr int32_t kEvents = 20;
    std::mt19937 random(13);
    for (int32_t round = 0; round < 500; round++) {
        const int64_t wrapMs = (round % 2 == 0 ? int64_t{1} << 31 : int64_t{1} << 32);
        const int64_t startMs = wrapMs - static_cast<int64_t>(random() % 25000);
        std::vector<int64_t> wanted;
        for (int32_t i = 0; i < kEvents; i++) {
            host.nowMs = startMs + 40 * i;
            const auto delayMs = static_cast<int32_t>(random() % 20001);
            wanted.push_back(host.nowMs + delayMs);
            Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, delayMs);
        }
        std::sort(wanted.begin(), wanted.end());
        for (const int64_t dueMs : wanted) {
            EXPECT_EQ(std::max<int64_t>(dueMs - host.nowMs, 0), Orm::msUntilDue());
            host.nowMs = std::max(host.nowMs, dueMs);
            ticks(1);
        }
        ASSERT_EQ(nullptr, Orm::firstEvent);
    }
}

TEST_F(OrmTest, aPauseOverTheWrapKeepsTheRemainingDelay) {
    for (const int64_t wrapMs : {int64_t{1} << 31, int64_t{1} << 32}) {
        host.nowMs = wrapMs - 100;
        Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 200);
        Orm::setPaused(true);
        host.nowMs += 5000;
        Orm::setPaused(false);
        EXPECT_EQ(200, Orm::msUntilDue());
        host.nowMs += 200;
        ticks(1);
        EXPECT_EQ(nullptr, Orm::firstEvent);
    }
}

TEST_F(OrmTest, aPauseMayLastLongerThanHalfTheClock) {
    Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 200);
    Orm::setPaused(true);
    host.nowMs += 3000000000;
    Orm::setPaused(false);
    EXPECT_EQ(200, Orm::msUntilDue());
}

TEST_F(OrmTest, persistentMemoryKeepsNothing) {
    String name("settings");
    auto* data = newArray<signed char>(4);
    Orm::setPersistentMemory(&name, data);
    EXPECT_EQ(nullptr, Orm::getPersistentMemory(&name));
    Orm::setPersistentMemory(&name, nullptr);
    deleteArrFunc(data);
}

TEST_F(OrmTest, flushingAnAreaTakesItsBounds) {
    Bounds area;
    Bounds::set(&area, 3, 5, 7, 11);
    Orm::flush(&area);
    EXPECT_TRUE(Bounds::equals(&area, Orm::tb));
    Orm::flush(1, 2, 3, 4);
    Orm::flush(nullptr);
    EXPECT_TRUE(Bounds::equals(&area, Orm::tb));  // everything needs no bounds
}

TEST_F(OrmTest, theScreenAndTheMidletAreTheApplications) {
    EXPECT_EQ(Orm::canvas->getScreen(), Orm::getScreen());
    EXPECT_EQ(midlet, static_cast<void*>(Orm::getMidlet()));
}

TEST_F(OrmTest, lookingAtWhatIsPendingChangesNothing) {
    Orm::schedEvent(Orm::EV_T_UPDATE, Orm::EV_ST_KEY_UP, nullptr, 0);
    Orm::printEvents();
    EXPECT_EQ(Heard{"KeyUp"}, pendingSubTypes());
}

TEST(Orm, theClassFinaliserTakesPendingEventsAndNamesAlong) {
    LoopHost host;
    Assembly::install();
    auto* midlet = new Murmelo();
    Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 5);
    delete midlet;
    EXPECT_EQ(nullptr, Orm::firstEvent);
    EXPECT_EQ(nullptr, Orm::EV_T_UPDATE);
    EXPECT_EQ(nullptr, Orm::canvas);
}

TEST(Event, listLinksAreLeftBehindOnDetaching) {
    String name("E");
    Event a(&name, nullptr, nullptr, 1);
    Event b(&name, nullptr, nullptr, 2);
    Event c(&name, nullptr, nullptr, 3);
    a.insertAfterMe(&c);
    c.insertBeforeMe(&b);
    EXPECT_EQ(&b, a.next);
    EXPECT_EQ(&b, c.prev);
    b.detachMe();
    EXPECT_EQ(&c, a.next);
    EXPECT_EQ(&a, c.prev);
    EXPECT_EQ(nullptr, b.next);
    EXPECT_EQ(nullptr, b.prev);
}

TEST(Event, insertingAfterLeavesTheOldSuccessorsLinkBackAlone) {
    String name("E");
    Event a(&name, nullptr, nullptr, 1);
    Event b(&name, nullptr, nullptr, 2);
    Event c(&name, nullptr, nullptr, 3);
    a.insertAfterMe(&c);
    a.insertAfterMe(&b);
    EXPECT_EQ(&c, b.next);
    EXPECT_EQ(&a, c.prev);
}

TEST(Event, itsTextNamesTypeSubTypeAndTime) {
    String type("KeyPress");
    String subType("KeyLeft");
    Event event(&type, &subType, nullptr, 12);
    String* text = event.toString();
    EXPECT_EQ(String("Event KeyPress/KeyLeft at 12"), *text);
    delete text;
}
