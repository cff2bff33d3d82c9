// SPDX-License-Identifier: MIT
// Rectangles are placed, stretched and searched by their anchor points and edges.
#include "Bounds.h"
#include "Point.h"
#include "Rect.h"
#include "Vector.h"

#include <gtest/gtest.h>

namespace {

constexpr int32_t kTopLeft = 5;
constexpr int32_t kTopRight = 9;
constexpr int32_t kBottomLeft = 6;
constexpr int32_t kBottomRight = 10;
constexpr int32_t kCentre = 16;
constexpr int32_t kTopMiddle = 17;
constexpr int32_t kLeftMiddle = 20;

void expectPoint(int32_t x, int32_t y, Bounded* bounded, int32_t anchor) {
    Point point(-1, -2);
    Bounds::getPoint(&point, bounded, anchor);
    EXPECT_EQ(x, point.x) << "anchor " << anchor;
    EXPECT_EQ(y, point.y) << "anchor " << anchor;
}

/// Rectangles around one in the middle, among which a focus could move.
struct Neighbours {
    Neighbours() {
        for (Bounds* bounds :
             {middle.bounds, right.bounds, farRight.bounds, below.bounds, overlapping.bounds}) {
            all.addElement(bounds);
        }
    }

    Bounded* closest(int32_t direction, bool aligned, bool touching, bool wrap) {
        return Bounds::getClosestNeighbour(middle, &all, direction, aligned, touching, wrap);
    }

    Rect middle{100, 100, 20, 20};
    Rect right{130, 140, 20, 20};     // to the right and below
    Rect farRight{200, 100, 20, 20};  // in the same rows
    Rect below{100, 150, 20, 20};
    Rect overlapping{105, 110, 30, 8};  // sticks out to the right
    Vector all;
};

}  // namespace

TEST(BoundsAnchors, pointsLieOnTheOutermostPixels) {
    Rect a(10, 20, 5, 8);
    expectPoint(10, 20, a, kTopLeft);
    expectPoint(14, 20, a, kTopRight);
    expectPoint(10, 27, a, kBottomLeft);
    expectPoint(14, 27, a, kBottomRight);
    expectPoint(12, 24, a, kCentre);
    expectPoint(12, 20, a, kTopMiddle);
    expectPoint(10, 24, a, kLeftMiddle);
}

TEST(BoundsAnchors, aDirectionWithoutABitLeavesThePointAlone) {
    Rect a(10, 20, 5, 8);
    expectPoint(-1, 20, a, Bounds::kTop);
    expectPoint(14, -2, a, Bounds::kRight);
}

TEST(BoundsAnchors, ofOppositeBitsAPointTakesBottomAndRight) {
    expectPoint(14, 27, Rect(10, 20, 5, 8), 15);
}

TEST(BoundsAnchors, placingPutsTheAnchorThere) {
    Rect a(0, 0, 5, 8);
    for (const int32_t anchor : {kTopLeft, kTopRight, kBottomLeft, kBottomRight, kCentre,
                                 kTopMiddle, kLeftMiddle, 18, 24}) {
        Bounds::setPos(a, anchor, 100, 200);
        expectPoint(100, 200, a, anchor);
    }
}

TEST(BoundsAnchors, placingTakesTopAndLeftOfOppositeBits) {
    Rect a(0, 0, 5, 8);
    Bounds::setPos(a, 15, 100, 200);
    expectRect(100, 200, 5, 8, a);
}

TEST(BoundsAnchors, placingWithoutABitKeepsThatDirection) {
    Rect a(3, 4, 5, 8);
    Bounds::setPos(a, Bounds::kRight, 100, 200);
    expectRect(96, 4, 5, 8, a);
}

TEST(BoundsAnchors, placingAtAReferenceAddsTheOffset) {
    Rect screen(0, 0, 240, 320);
    Rect a(0, 0, 10, 10);
    Bounds::setPos(a, kBottomRight, screen, kBottomRight, -2, -3);
    expectRect(228, 307, 10, 10, a);
}

TEST(BoundsAnchors, fourEdgesAreInclusive) {
    Rect a(0, 0, 0, 0);
    Bounds::setEdges(a, 1, 2, 3, 5);
    expectRect(1, 2, 3, 4, a);
}

TEST(BoundsAnchors, settingNamedEdgesStretches) {
    Rect a(10, 10, 10, 10);
    Bounds::setEdges(a, kBottomRight, 30, 40);
    expectRect(10, 10, 21, 31, a);
    Bounds::setEdges(a, kTopLeft, 15, 20);
    expectRect(15, 20, 16, 21, a);
    Bounds::setEdges(a, Bounds::kLeft | Bounds::kRight, 7, 99);
    expectRect(7, 20, 1, 21, a);
    Bounds::setEdges(a, kCentre, 0, 0);
    expectRect(7, 20, 1, 21, a);
}

TEST(BoundsAnchors, settingEdgesToAReferenceAddsTheOffset) {
    Rect a(10, 10, 10, 10);
    Rect reference(50, 60, 11, 11);
    Bounds::setEdges(a, kBottomRight, reference, kCentre, 1, -1);
    expectRect(10, 10, 47, 55, a);  // to (56, 64)
}

TEST(BoundsAnchors, movingNamedEdgesKeepsTheOthers) {
    Rect a(10, 20, 30, 40);
    Bounds::moveEdges(a, Bounds::kTop, 99, -5);
    expectRect(10, 15, 30, 45, a);
    Bounds::moveEdges(a, kBottomRight, 2, 3);
    expectRect(10, 15, 32, 48, a);
    Bounds::moveEdges(a, Bounds::kLeft | Bounds::kRight, -4, 99);
    expectRect(6, 15, 32, 48, a);
}

TEST(BoundsAnchors, theClosestAnchorIsOneOfNine) {
    Rect a(0, 0, 101, 101);
    EXPECT_EQ(kTopLeft, Bounds::getClosestAnchor(a, -50, -50));
    EXPECT_EQ(kTopMiddle, Bounds::getClosestAnchor(a, 50, -9));
    EXPECT_EQ(kTopRight, Bounds::getClosestAnchor(a, 100, 3));
    EXPECT_EQ(kLeftMiddle, Bounds::getClosestAnchor(a, 3, 50));
    EXPECT_EQ(kCentre, Bounds::getClosestAnchor(a, 52, 49));
    EXPECT_EQ(24, Bounds::getClosestAnchor(a, 300, 51));
    EXPECT_EQ(kBottomLeft, Bounds::getClosestAnchor(a, 0, 90));
    EXPECT_EQ(18, Bounds::getClosestAnchor(a, 45, 200));
    EXPECT_EQ(kBottomRight, Bounds::getClosestAnchor(a, 77, 77));
}

TEST(BoundsAnchors, ofEquallyCloseAnchorsTheFirstCounts) {
    EXPECT_EQ(kTopLeft, Bounds::getClosestAnchor(Rect(4, 4, 1, 1), 9, 9));
    EXPECT_EQ(kTopLeft, Bounds::getClosestAnchor(Rect(0, 0, 101, 101), 25, 25));
}

TEST(BoundsAnchors, distanceRunsBetweenTheTwoPoints) {
    Rect a(0, 0, 4, 5);
    Rect b(6, 8, 2, 2);
    EXPECT_EQ(5.0, Bounds::getDistance(a, kBottomRight, b, kTopLeft));  // 3 and 4
    EXPECT_EQ(10.0, Bounds::getDistance(a, kTopLeft, b, kTopLeft));
}

TEST(BoundsAnchors, theClosestNeighbourLiesBeyondTheEdge) {
    Neighbours n;
    EXPECT_EQ(n.right.bounds, n.closest(Bounds::kRight, false, false, false));
    EXPECT_EQ(n.below.bounds, n.closest(Bounds::kBottom, false, false, false));
    EXPECT_EQ(nullptr, n.closest(Bounds::kLeft, false, false, false));
    EXPECT_EQ(nullptr, n.closest(Bounds::kTop, false, false, false));
}

TEST(BoundsAnchors, alignedNeighboursShareRowsOrColumns) {
    Neighbours n;
    EXPECT_EQ(n.farRight.bounds, n.closest(Bounds::kRight, true, false, false));
    EXPECT_EQ(n.below.bounds, n.closest(Bounds::kBottom, true, false, false));
}

TEST(BoundsAnchors, touchingNeighboursCountByTheirCentre) {
    Neighbours n;
    EXPECT_EQ(n.overlapping.bounds, n.closest(Bounds::kRight, false, true, false));
    EXPECT_EQ(nullptr, n.closest(Bounds::kLeft, false, true, false));
}

TEST(BoundsAnchors, withoutANeighbourTheSearchWrapsToTheFarSide) {
    Neighbours n;
    EXPECT_EQ(n.farRight.bounds, n.closest(Bounds::kLeft, false, false, true));
    EXPECT_EQ(n.below.bounds, n.closest(Bounds::kTop, true, false, true));
    EXPECT_EQ(n.right.bounds, n.closest(Bounds::kRight, false, false, true));
}

TEST(BoundsAnchors, aloneThereIsNoNeighbour) {
    Rect a(0, 0, 5, 5);
    Vector all;
    EXPECT_EQ(nullptr, Bounds::getClosestNeighbour(a, &all, Bounds::kTop, false, true, true));
    all.addElement(a.bounds);
    EXPECT_EQ(nullptr, Bounds::getClosestNeighbour(a, &all, Bounds::kTop, false, true, true));
}
