// SPDX-License-Identifier: MIT
// Points measure their distances exactly, and their pool is reused.
#include "OspBase.h"
#include "Point.h"

#include <gtest/gtest.h>

#include <memory>

TEST(Point, distancesAreExactAndTheWholeOneIsRounded) {
    Point a(1, 2);
    Point b(4, 6);
    EXPECT_EQ(5.0, Point::getDistance(&a, &b));
    EXPECT_EQ(5, Point::getDistanceInt(&a, &b));
    Point diagonal(2, 3);
    EXPECT_EQ(1, Point::getDistanceInt(&a, &diagonal));  // 1.41
    Point steep(2, 4);
    EXPECT_EQ(2, Point::getDistanceInt(&a, &steep));  // 2.24
    Point wide(3, 4);
    EXPECT_EQ(3, Point::getDistanceInt(&a, &wide));  // 2.83
}

TEST(Point, pointsAtBothEndsOfTheNumbersAreAsFarApartAsTheyAre) {
    Point a(INT32_MIN, 0);
    Point b(INT32_MAX, 0);
    EXPECT_EQ(4294967295.0, Point::getDistance(&a, &b));
    EXPECT_EQ(INT32_MAX, Point::getDistanceInt(&a, &b));
}

TEST(Point, freedOneIsTheNextToBeHandedOutAndStartsAgain) {
    Point* first = Point::alloc(3, 4);
    first->free();
    Point* second = Point::alloc();
    EXPECT_EQ(first, second);
    EXPECT_EQ(0, second->x);
    EXPECT_EQ(0, second->y);
    Point* copy = Point::alloc(second);
    EXPECT_NE(second, copy);
    copy->free();
    second->free();
}

TEST(Point, textNamesBothCoordinates) {
    Point point(-3, 40);
    std::unique_ptr<Osp::Base::String> text(point.toString());
    EXPECT_EQ("Point: x = -3, y = 40", text->ToUtf8());
}

TEST(Point, poolIsEmptyAfterItsEndAndFillsAgain) {
    Point::static_ctor();
    Point* point = Point::alloc(1, 1);
    point->free();
    Point::static_dtor();
    Point::static_dtor();  // nothing left to delete
    Point* next = Point::alloc(2, 3);
    EXPECT_EQ(2, next->x);
    next->free();
    EXPECT_EQ(next, Point::alloc());
    next->free();
}
