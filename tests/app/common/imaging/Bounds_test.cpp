// SPDX-License-Identifier: MIT
// Rectangles intersect, unite and compare correctly, also at the ends of 32 bits.
#include "Bounds.h"
#include "GnoObject.h"
#include "OspBase.h"
#include "Rect.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>

namespace {

/// Something else that has a rectangle.
class Framed : public Bounded {
public:
    void setBounds(Bounds* bounds) override { inner.setBounds(bounds); }

    void getBounds(Bounds* bounds) override { bounds->setBounds(&inner); }

    Bounds inner;
};

}  // namespace

TEST(Bounds, disjointOnesIntersectToAnInvalidRectangle) {
    Rect a(0, 0, 10, 10);
    Rect b(20, 3, 5, 5);
    Bounds::intersect(a, b);
    expectRect(20, 3, -10, 5, a);
    EXPECT_FALSE(Bounds::isValid(a));
}

TEST(Bounds, overlappingOnesIntersectToWhatTheyShare) {
    Rect a(0, 0, 10, 10);
    Rect b(4, 6, 10, 2);
    Bounds::intersect(a, b);
    expectRect(4, 6, 6, 2, a);
    expectRect(4, 6, 10, 2, b);
}

TEST(Bounds, farAwayOnesDoNotComeBackOnTheOtherSide) {
    Rect screen(0, 0, 240, 320);
    Rect far(INT32_MAX - 5, 0, 100, 10);
    Bounds::intersect(far, screen);
    EXPECT_FALSE(Bounds::isValid(far));
    Rect low(INT32_MIN, 0, 100, 10);
    Bounds::move(low, -100, 0);
    EXPECT_FALSE(Bounds::intersects(low, screen));
}

TEST(Bounds, intersectingWithAPointLeavesThatPixelOrNothing) {
    Rect a(2, 3, 10, 10);
    Bounds::intersect(a, 11, 12);
    expectRect(11, 12, 1, 1, a);
    Bounds::intersect(a, 12, 12);
    EXPECT_FALSE(Bounds::isValid(a));
}

TEST(Bounds, touchingOnesDoNotIntersectAndOverlappingOnesDo) {
    Rect a(0, 0, 10, 10);
    EXPECT_FALSE(Bounds::intersects(a, Rect(10, 0, 5, 5)));
    EXPECT_TRUE(Bounds::intersects(a, Rect(9, 9, 5, 5)));
    EXPECT_FALSE(Bounds::intersects(a, Rect(5, 5, 0, 5)));
    expectRect(0, 0, 10, 10, a);
}

TEST(Bounds, anInvalidOneBecomesTheOtherWhenUnited) {
    Rect a(50, 60, 0, 7);
    Rect b(1, 2, 3, 4);
    Bounds::union_(a, b);
    expectRect(1, 2, 3, 4, a);
}

TEST(Bounds, unitedOnesBecomeTheirBoundingBox) {
    Rect a(5, 5, 10, 10);
    Bounds::union_(a, Rect(-3, 8, 4, 20));
    expectRect(-3, 5, 18, 23, a);
}

TEST(Bounds, containsItsLastPixelAndNotTheNext) {
    Rect a(2, 3, 10, 20);
    EXPECT_TRUE(Bounds::contains(a, 11, 22));
    EXPECT_FALSE(Bounds::contains(a, 12, 22));
    EXPECT_FALSE(Bounds::contains(a, 11, 23));
    EXPECT_TRUE(Bounds::contains(a, 2, 3));
    EXPECT_FALSE(Bounds::contains(a, 1, 3));
    EXPECT_FALSE(Bounds::contains(a, 2, 2));
}

TEST(Bounds, containsItselfAndNothingThatSticksOut) {
    Rect a(2, 3, 10, 20);
    EXPECT_TRUE(Bounds::contains(a, a));
    EXPECT_TRUE(Bounds::contains(a, Rect(3, 4, 9, 19)));
    EXPECT_FALSE(Bounds::contains(a, Rect(1, 3, 10, 20)));
    EXPECT_FALSE(Bounds::contains(a, Rect(2, 2, 10, 20)));
    EXPECT_FALSE(Bounds::contains(a, Rect(2, 3, 11, 20)));
    EXPECT_FALSE(Bounds::contains(a, Rect(2, 3, 10, 21)));
}

TEST(Bounds, cornersAndEdgesMakeTheSameRectangle) {
    expectRect(1, 2, 3, 4, Rect(Bounds::allocX2Y2(1, 2, 3, 5)));
    expectRect(1, 2, 3, 4, Rect(Bounds::alloc2(2, 5, 1, 3)));
}

TEST(Bounds, theTwoFormsTurnIntoEachOther) {
    Rect a(3, 4, 1, 0);
    Bounds::x2y2(a);
    expectRect(3, 4, 3, 3, a);
    Bounds::wh(a);
    expectRect(3, 4, 1, 0, a);
}

TEST(Bounds, movingOneEdgeKeepsTheOpposite) {
    Rect a(10, 20, 30, 40);
    a->setTop(15);
    expectRect(10, 15, 30, 45, a);
    a->setLeft(12);
    expectRect(12, 15, 28, 45, a);
    a->setBottom(15);
    expectRect(12, 15, 28, 1, a);
    a->setRight(10);
    expectRect(12, 15, -1, 1, a);
    EXPECT_EQ(15, a->getTop());
    EXPECT_EQ(12, a->getLeft());
    EXPECT_EQ(15, a->getBottom());
    EXPECT_EQ(10, a->getRight());
}

TEST(Bounds, edgesAndSizesAreFoundByIndex) {
    Rect a(10, 20, 30, 40);
    EXPECT_EQ(10, Bounds::get(a, Bounds::kEdgeLeft));
    EXPECT_EQ(20, Bounds::get(a, Bounds::kEdgeTop));
    EXPECT_EQ(39, Bounds::get(a, Bounds::kEdgeRight));
    EXPECT_EQ(59, Bounds::get(a, Bounds::kEdgeBottom));
    EXPECT_EQ(30, Bounds::get(a, Bounds::kSizeWidth));
    EXPECT_EQ(40, Bounds::get(a, Bounds::kSizeHeight));
    EXPECT_EQ(0, Bounds::get(a, 6));
    EXPECT_EQ(0, Bounds::get(a, -1));
    EXPECT_EQ(30, Bounds::getWidth(a));
    EXPECT_EQ(40, Bounds::getHeight(a));
    EXPECT_EQ(1200, Bounds::getArea(a));
    EXPECT_EQ(INT32_MAX, Bounds::getArea(Rect(0, 0, 1 << 20, 1 << 20)));
}

TEST(Bounds, onlyBothSizesAbove0AreValid) {
    EXPECT_TRUE(Bounds::isValid(Rect(5, 5, 1, 1)));
    EXPECT_FALSE(Bounds::isValid(Rect(5, 5, 0, 1)));
    EXPECT_FALSE(Bounds::isValid(Rect(5, 5, 1, -1)));
    Rect a(5, 5, 1, 1);
    Bounds::makeInvalid(a);
    expectRect(5, 5, 0, 0, a);
}

TEST(Bounds, everySetterWritesThroughToItsOwner) {
    Framed framed;
    Bounds::set(&framed, 1, 2, 3, 4);
    expectRect(1, 2, 3, 4, &framed.inner);
    Bounds::setPos(&framed, 5, 6);
    expectRect(5, 6, 3, 4, &framed.inner);
    Bounds::setX(&framed, 7);
    Bounds::setY(&framed, 8);
    expectRect(7, 8, 3, 4, &framed.inner);
    Bounds::setSize(&framed, 9, 10);
    expectRect(7, 8, 9, 10, &framed.inner);
    Bounds::setWidth(&framed, 11);
    Bounds::setHeight(&framed, 12);
    expectRect(7, 8, 11, 12, &framed.inner);
    Bounds::move(&framed, -7, -9);
    expectRect(0, -1, 11, 12, &framed.inner);
    Bounds::set(&framed, Rect(1, 1, 2, 2));
    expectRect(1, 1, 2, 2, &framed.inner);
    EXPECT_TRUE(Bounds::equals(&framed, Rect(1, 1, 2, 2)));
}

TEST(Bounds, equalityTakesAllFourFields) {
    Rect a(1, 2, 3, 4);
    EXPECT_TRUE(Bounds::equals(a, Rect(1, 2, 3, 4)));
    EXPECT_FALSE(Bounds::equals(a, Rect(0, 2, 3, 4)));
    EXPECT_FALSE(Bounds::equals(a, Rect(1, 0, 3, 4)));
    EXPECT_FALSE(Bounds::equals(a, Rect(1, 2, 0, 4)));
    EXPECT_FALSE(Bounds::equals(a, Rect(1, 2, 3, 0)));
    EXPECT_FALSE(a->equals(Rect(1, 2, 3, 4)));  // they are two objects
}

TEST(Bounds, allocCopiesAnyRectangle) {
    Framed framed;
    Bounds::set(&framed, 1, 2, 3, 4);
    Bounded* bounded = &framed;
    expectRect(1, 2, 3, 4, Rect(Bounds::alloc(bounded)));
    expectRect(1, 2, 3, 4, Rect(Bounds::alloc(&framed.inner)));
    expectRect(8, 9, 0, 0, Rect(Bounds::alloc(8, 9)));
    expectRect(0, 0, 0, 0, Rect(Bounds::alloc()));
}

TEST(Bounds, freedOneIsTheNextToBeHandedOut) {
    Bounds* first = Bounds::alloc(1, 2, 3, 4);
    Bounds* second = Bounds::alloc();
    const int32_t pooled = Bounds::printNumRecycled(false);
    first->free();
    second->free();
    EXPECT_EQ(pooled + 2, Bounds::printNumRecycled(false));
    EXPECT_EQ(second, Bounds::alloc());
    EXPECT_EQ(first, Bounds::alloc());
    EXPECT_EQ(-2, Bounds::printNumRecycled(true));
    first->free();
    second->free();
}

TEST(Bounds, askingAndEditingLeavesThePoolAsItWas) {
    Rect a(0, 0, 10, 10);
    Rect b(5, 5, 10, 10);
    Rect(1, 1, 1, 1)->getTop();
    Bounds::contains(a, b);  // fills the pool with as many as any operation needs
    Bounds::setPos(a, 5, b, 5, 0, 0);
    Bounds::printNumRecycled(false);
    Bounds::intersect(a, b);
    Bounds::union_(a, b);
    Bounds::equals(a, b);
    Bounds::setEdges(a, 1, 2, 3);
    Bounds::moveEdges(a, 1, 2, 3);
    Bounds::getDistance(a, 5, b, 5);
    EXPECT_EQ(0, Bounds::printNumRecycled(true));
}

TEST(Bounds, textNamesHashAndFields) {
    Rect a(-1, 2, 30, 40);
    char expected[100];
    std::snprintf(expected, sizeof expected, "Bounds %x: x = -1, y = 2, w = 30, h = 40",
                  static_cast<uint32_t>(a->hashCode()));
    std::unique_ptr<Osp::Base::String> text(a->toString());
    EXPECT_EQ(expected, text->ToUtf8());
}

TEST(Bounds, poolIsEmptyAfterItsEndAndFillsAgain) {
    Bounds::static_ctor();
    Bounds::alloc()->free();
    Bounds::static_dtor();
    EXPECT_EQ(0, Bounds::printNumRecycled(false));
    Bounds::static_dtor();
    Bounds* next = Bounds::alloc(1, 2, 3, 4);
    expectRect(1, 2, 3, 4, next);
    next->free();
    EXPECT_EQ(1, Bounds::printNumRecycled(false));
}
