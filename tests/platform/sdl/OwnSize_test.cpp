// SPDX-License-Identifier: MIT
// A maximised window still knows the size that the user gave it.
#include "OwnSize.h"

#include <gtest/gtest.h>

namespace {

constexpr uint64_t kLater = OwnSize::kSettledMs;

/// "480 x 800" for the size.
std::string shown(const OwnSize& size) {
    return std::to_string(size.size().width) + " x " + std::to_string(size.size().height);
}

}  // namespace

TEST(OwnSize, isTheNewestOne) {
    OwnSize size;
    size.sized({480, 800}, 10);
    EXPECT_EQ("480 x 800", shown(size));
    size.sized({500, 820}, 20);
    EXPECT_EQ("500 x 820", shown(size));
}

TEST(OwnSize, isNotThatOfAMaximisedWindowThoughItComesFirst) {
    OwnSize size;
    size.sized({480, 800}, 10);
    size.sized({1900, 900}, 10 + kLater);  // a panel may appear in several steps
    size.sized({1920, 1040}, 20 + kLater);
    size.maximised(30 + kLater);
    EXPECT_EQ("480 x 800", shown(size));
}

TEST(OwnSize, aDraggedSizeCountsOnceTheDragIsOver) {
    OwnSize size;
    size.sized({480, 800}, 10);
    for (int32_t step = 1; step <= 5; step++) {
        size.sized({480 + step, 800}, 10 + kLater + static_cast<uint64_t>(step));
    }
    size.sized({1920, 1040}, 100 + 2 * kLater);
    size.maximised(110 + 2 * kLater);
    EXPECT_EQ("485 x 800", shown(size));
}

TEST(OwnSize, maximisedAtItsFirstSizeItIsThatOne) {
    OwnSize size;
    size.sized({480, 800}, 10);
    size.maximised(20);
    EXPECT_EQ("480 x 800", shown(size));
}

TEST(OwnSize, maximisedLaterItIsTheNewestOne) {
    OwnSize size;
    size.sized({480, 800}, 10);
    size.sized({600, 900}, 10 + kLater);
    size.maximised(10 + 2 * kLater);  // before any other size
    EXPECT_EQ("600 x 900", shown(size));
}
