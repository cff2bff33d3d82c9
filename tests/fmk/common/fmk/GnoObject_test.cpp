// SPDX-License-Identifier: MIT
// Objects compare by identity, and wait until they are notified or their time is over.
#include "GnoObject.h"
#include "OspBase.h"
#include "System.h"
#include "TestHost.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

/// A host that notifies an object when it has yielded a number of times.
class NotifyingHost : public TestHost {
public:
    void yielded() override {
        TestHost::yielded();
        yields++;
        if (yields == notifyAtYield) {
            notified->notify();
        }
    }

    GnoObject* notified = nullptr;
    int32_t notifyAtYield = 0;
    int32_t yields = 0;
};

}  // namespace

TEST(GnoObject, equalsOnlyItself) {
    GnoObject a;
    GnoObject b;
    EXPECT_TRUE(a.equals(&a));
    EXPECT_FALSE(a.equals(&b));
    EXPECT_FALSE(a.equals(nullptr));
}

TEST(GnoObject, hashCodeIsItsAddress) {
    GnoObject a;
    const auto address = static_cast<uint32_t>(reinterpret_cast<uintptr_t>(&a));
    EXPECT_EQ(static_cast<int32_t>(address), a.hashCode());
}

TEST(GnoObject, isCalledObject) {
    GnoObject a;
    const std::unique_ptr<Osp::Base::String> text(a.toString());
    EXPECT_EQ(Osp::Base::String("object"), *text);
}

TEST(GnoObject, waitsUntilItIsNotified) {
    NotifyingHost host;
    GnoObject a;
    host.notified = &a;
    host.notifyAtYield = 5;
    a.wait();
    EXPECT_EQ(5, host.yields);
}

TEST(GnoObject, waitsNoLongerThanItsTime) {
    NotifyingHost host;  // each yield takes a millisecond
    GnoObject a;
    a.wait(20);
    EXPECT_EQ(21, host.nowMs);  // more than 20 have passed
}

TEST(GnoObject, aTimedWaitEndsEarlyWhenNotified) {
    NotifyingHost host;
    GnoObject a;
    host.notified = &a;
    host.notifyAtYield = 3;
    a.wait(20);
    EXPECT_EQ(3, host.nowMs);
}

TEST(GnoObject, waitsAgainAfterAWaitThatRanOut) {
    NotifyingHost host;
    GnoObject a;
    a.wait(1);
    host.notified = &a;
    host.notifyAtYield = host.yields + 4;
    a.wait(20);
    EXPECT_EQ(host.notifyAtYield, host.yields);
}

TEST(GnoObject, notifyingOneOrAllDoesNothing) {
    GnoObject a;
    a.notify();
    a.notifyAll();
    NotifyingHost host;
    a.wait(2);
    EXPECT_EQ(3, host.yields);
}

TEST(GnoObject, aTimedWaitEndsAcrossTheWrapOfTheClock) {
    NotifyingHost host;
    host.nowMs = 0x7FFFFFFF - 5;
    GnoObject a;
    a.wait(20);
    EXPECT_EQ(21, host.yields);
}

TEST(System, timeIsTheUptimeIn32Bits) {
    TestHost host;
    host.nowMs = 137;
    EXPECT_EQ(137, System::currentTimeMillis());
    EXPECT_EQ(137, GETUPTIMEMS());
    EXPECT_EQ(137, GETTIMEMS());
    host.nowMs = int64_t{0x80000000} + 5;
    EXPECT_EQ(-2147483643, System::currentTimeMillis());
    host.nowMs = int64_t{0x100000000} + 7;
    EXPECT_EQ(7, System::currentTimeMillis());
}
