#include "Bounds.h"

#include "OspBase.h"

#include <gtest/gtest.h>

namespace {

/// Frees itself.
struct Rect {
    Rect(int32_t x, int32_t y, int32_t w, int32_t h)
        : bounds(Bounds::alloc(x, y, w, h)) {}

    ~Rect() { bounds->free(); }

    Rect(const Rect&) = delete;
    Rect& operator=(const Rect&) = delete;

    operator Bounds*() const { return bounds; }

    Bounds* operator->() const { return bounds; }

    Bounds* bounds;
};

void expectRect(int32_t x, int32_t y, int32_t w, int32_t h, const Bounds* actual) {
    EXPECT_EQ(x, actual->x);
    EXPECT_EQ(y, actual->y);
    EXPECT_EQ(w, actual->w);
    EXPECT_EQ(h, actual->h);
}

}  // namespace

TEST(Bounds, disjointOnesIntersectToAnInvalidRectangle) {
    Rect a(0, 0, 10, 10);
    Rect b(20, 20, 5, 5);
    Bounds::intersect(a, b);
    EXPECT_FALSE(Bounds::isValid(a));
}

TEST(Bounds, anInvalidOneBecomesTheOtherWhenUnited) {
    Rect a(50, 60, 0, 7);
    Rect b(1, 2, 3, 4);
    Bounds::union_(a, b);
    expectRect(1, 2, 3, 4, a);
}

TEST(Bounds, containsItsLastPixelAndNotTheNext) {
    Rect a(2, 3, 10, 20);
    EXPECT_TRUE(Bounds::contains(a, 11, 22));
    EXPECT_FALSE(Bounds::contains(a, 12, 22));
    EXPECT_FALSE(Bounds::contains(a, 11, 23));
    EXPECT_TRUE(Bounds::contains(a, 2, 3));
    EXPECT_FALSE(Bounds::contains(a, 1, 3));
}
