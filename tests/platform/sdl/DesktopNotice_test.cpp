// SPDX-License-Identifier: MIT
// What is wrong is shown by a desktop's notices, on a bus of the test's own.
#include "DesktopNotice.h"
#include "TestBus.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

class DesktopNoticeTest : public testing::Test {
protected:
    void SetUp() override {
        NEEDS_TEST_BUS();
        ASSERT_TRUE(bus.start());
    }

    TestFolders folders;
    TestBus bus{folders};
};

}  // namespace

TEST_F(DesktopNoticeTest, itStaysUntilTheUserClosesIt) {
    ASSERT_TRUE(bus.serve("fake_desktop.py", {}));
    EXPECT_TRUE(DesktopNotice::show("Murmelo", "\"Tom & <Ada>.wav\" is missing"));
    EXPECT_EQ(
        R"(["Notify", "Murmelo", 0, "org.murmelo.Murmelo", "Murmelo", "\"Tom & <Ada>.wav\" is missing", )"
        R"([], {"urgency": 2}, 0])"
        "\n",
        folders.read("calls"));
}

TEST_F(DesktopNoticeTest, signsThatWouldBeMarkupAreShown) {
    ASSERT_TRUE(bus.serve("fake_desktop.py", {"markup"}));
    EXPECT_TRUE(DesktopNotice::show("Murmelo", "\"Tom & <Ada>.wav\" is missing"));
    const std::string call = folders.read("calls");
    EXPECT_NE(std::string::npos, call.find(R"("\"Tom &amp; &lt;Ada&gt;.wav\" is missing")"))
        << call;
}

TEST_F(DesktopNoticeTest, ofBytesThatAreNoTextASignIsShown) {
    ASSERT_TRUE(bus.serve("fake_desktop.py", {}));
    EXPECT_TRUE(DesktopNotice::show("Murmelo", "\xFFm.wav is missing"));
    const std::string call = folders.read("calls");
    EXPECT_NE(std::string::npos, call.find(R"("?m.wav is missing")")) << call;
}

TEST_F(DesktopNoticeTest, aBusThatWouldBeStartedIsNoneAndTheSessionsOwnIsUsed) {
    ASSERT_TRUE(bus.serve("fake_desktop.py", {}));
    const char* before = std::getenv("XDG_RUNTIME_DIR");
    const std::string old = before != nullptr ? before : "";
    setenv("DBUS_SESSION_BUS_ADDRESS", "autolaunch:", 1);
    setenv("XDG_RUNTIME_DIR", folders.path("empty").c_str(), 1);
    EXPECT_FALSE(DesktopNotice::show("Murmelo", "nothing"));
    setenv("XDG_RUNTIME_DIR", folders.path("").c_str(), 1);  // its socket is "bus"
    EXPECT_TRUE(DesktopNotice::show("Murmelo", "something"));
    setenv("XDG_RUNTIME_DIR", old.c_str(), 1);
}

TEST_F(DesktopNoticeTest, withoutADesktopOrABusNoneIsShown) {
    EXPECT_FALSE(DesktopNotice::show("Murmelo", "nothing"));
    setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);
    EXPECT_FALSE(DesktopNotice::show("Murmelo", "nothing"));
}
