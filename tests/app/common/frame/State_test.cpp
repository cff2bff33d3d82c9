// SPDX-License-Identifier: MIT
// A change of screen leaves the old one, enters the new one, and drops or keeps what is pending.
#include "Assembly.h"
#include "LoopHost.h"
#include "Murmelo.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "State.h"
#include "TestScreen.h"

#include <gtest/gtest.h>

using Heard = std::vector<std::string>;

namespace {

class StateTest : public testing::Test {
protected:
    void SetUp() override {
        Assembly::install();
        midlet = new Murmelo();
        first = new TestScreen({Orm::EV_T_UPDATE, Orm::EV_T_KEY_PRESS});
        second = new TestScreen({Orm::EV_T_UPDATE, Orm::EV_T_KEY_PRESS});
        State::setState(first, false, false);
    }

    void TearDown() override {
        delete first;
        delete second;
        delete midlet;
    }

    static void deliver() {
        while (Orm::msUntilDue() == 0) {
            Orm::canvas->run();
        }
    }

    LoopHost host;
    Murmelo* midlet = nullptr;
    TestScreen* first = nullptr;
    TestScreen* second = nullptr;
};

}  // namespace

TEST_F(StateTest, pendingEventsWaitForTheNextScreenIfTheyAreKept) {
    Orm::schedEvent(Orm::EV_T_KEY_PRESS, nullptr, nullptr, 0);
    Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 0);
    State::setState(second, false, false);
    deliver();
    EXPECT_EQ((Heard{"enter", "exit"}), first->heard);
    EXPECT_EQ((Heard{"enter", "KeyPress", "Update"}), second->heard);
}

TEST_F(StateTest, keysAndUpdatesAreDroppedWhenAsked) {
    Orm::schedEvent(Orm::EV_T_KEY_PRESS, Orm::EV_ST_KEY_LSK, nullptr, 0);
    Orm::schedEvent(Orm::EV_T_KEY_RELEASE, nullptr, nullptr, 0);
    Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 0);
    State::setState(second, true, false);
    EXPECT_EQ(Orm::EV_T_UPDATE, Orm::firstEvent->type);
    State::setState(first, false, true);
    EXPECT_EQ(nullptr, Orm::firstEvent);
}

TEST_F(StateTest, enteringTheCurrentScreenLeavesItFirst) {
    State::setState(first, true, true);
    EXPECT_EQ((Heard{"enter", "exit", "enter"}), first->heard);
    Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 0);
    deliver();
    EXPECT_EQ("Update", first->heard.back());
    EXPECT_EQ(4U, first->heard.size());
}

TEST_F(StateTest, aScreenIsRegisteredBeforeItIsEnteredAndNotAnyMoreWhenItIsLeft) {
    EXPECT_TRUE(first->registeredAtEnter);
    State::setState(second, true, true);
    EXPECT_FALSE(first->registeredAtExit);
    EXPECT_TRUE(second->registeredAtEnter);
}

TEST_F(StateTest, theCurrentScreenIsForgottenWithItsClass) {
    EXPECT_EQ(first, State::currState);
    State::static_dtor();
    EXPECT_EQ(nullptr, State::currState);
}
