// SPDX-License-Identifier: MIT
// The window's size is stored and read again, and nonsense is ignored.
#include "TestFolders.h"
#include "WindowMemory.h"

#include <gtest/gtest.h>

namespace {

class WindowMemoryTest : public testing::Test {
protected:
    /// "width x height" of what is remembered; "none".
    std::string remembered() const {
        const WindowMemory::Size size = memory.read();
        return size.isKnown() ? std::to_string(size.width) + " x " + std::to_string(size.height)
                              : "none";
    }

    TestFolders folders;
    WindowMemory memory{folders.path("config")};
};

}  // namespace

TEST_F(WindowMemoryTest, atFirstThereIsNone) {
    EXPECT_EQ("none", remembered());
}

TEST_F(WindowMemoryTest, theLastSizeIsRememberedAndNothingElseIsLeft) {
    memory.write({480, 800});
    memory.write({360, 601});
    EXPECT_EQ("360 x 601", remembered());
    EXPECT_EQ("360 601\n", folders.read("config/window"));
    EXPECT_FALSE(folders.has("config/window.new"));
}

TEST_F(WindowMemoryTest, nonsenseIsNone) {
    for (const char* text : {"", "480", "480 x", "-480 800", "480 0", "99999999999 800",
                             "480 16385", "a window", "\x01\xFF"}) {
        folders.write("config/window", text);
        EXPECT_EQ("none", remembered()) << text;
    }
    folders.remove("config/window");
    folders.makeFolder("config/window");
    EXPECT_EQ("none", remembered());
}

TEST_F(WindowMemoryTest, noSizeIsNotKept) {
    memory.write({480, 800});
    memory.write({0, 800});
    memory.write({480, -1});
    EXPECT_EQ("480 x 800", remembered());
}

TEST_F(WindowMemoryTest, whereNothingCanBeKeptNothingHappens) {
    folders.write("config", "a file in the way");
    memory.write({480, 800});
    EXPECT_EQ("none", remembered());
    EXPECT_EQ("a file in the way", folders.read("config"));
    const WindowMemory nowhere("");
    nowhere.write({480, 800});
    EXPECT_FALSE(nowhere.read().isKnown());
}
