// SPDX-License-Identifier: MIT
// Lists of rectangles are subtracted, united and clipped so that each cell is covered once.
#include "ArrFunc.h"
#include "Bounds.h"
#include "PixelModel.h"
#include "Rect.h"
#include "Vector.h"

#include <gtest/gtest.h>

#include <array>

namespace {

/// A list of pooled rectangles that gives them back.
struct Rects {
    Rects() = default;

    Rects(std::initializer_list<std::array<int32_t, 4>> rects) {
        for (const auto& r : rects) {
            list.addElement(Bounds::alloc(r[0], r[1], r[2], r[3]));
        }
    }

    ~Rects() { Bounds::free(&list); }

    Rects(const Rects&) = delete;
    Rects& operator=(const Rects&) = delete;

    operator Vector*() { return &list; }

    Bounds* at(int32_t index) { return static_cast<Bounds*>(list.elementAt(index)); }

    int32_t size() const { return list.size(); }

    Vector list;
};

constexpr int32_t kGrid = 24;

/// How often each cell of a small grid around the origin is covered.
std::vector<int32_t> coverOf(Vector* rects) {
    std::vector<int32_t> cover(kGrid * kGrid);
    for (int32_t i = 0; i < rects->size(); i++) {
        const auto* r = static_cast<Bounds*>(rects->elementAt(i));
        for (int32_t y = r->y; y < r->y + r->h; y++) {
            for (int32_t x = r->x; x < r->x + r->w; x++) {
                cover.at(static_cast<size_t>((y + 4) * kGrid + x + 4))++;
            }
        }
    }
    return cover;
}

Bounds* randomRect(model::Noise& noise) {
    return Bounds::alloc(noise.below(10), noise.below(10), noise.below(7), noise.below(7));
}

void fillRandom(model::Noise& noise, Rects& rects, int32_t count) {
    for (int32_t i = 0; i < count; i++) {
        rects.list.addElement(randomRect(noise));
    }
}

/// The cover of a, without the cells that b covers.
std::vector<int32_t> without(std::vector<int32_t> a, const std::vector<int32_t>& b) {
    for (size_t i = 0; i < a.size(); i++) {
        a[i] = b[i] != 0 ? 0 : a[i];
    }
    return a;
}

}  // namespace

TEST(BoundsLists, aHoleInTheMiddleLeavesFourPartsRowsFirst) {
    Rects out;
    Bounds::substract(Rect(0, 0, 10, 10), Rect(3, 4, 2, 3), out);
    ASSERT_EQ(4, out.size());
    expectRect(0, 0, 10, 4, out.at(0));
    expectRect(0, 7, 10, 3, out.at(1));
    expectRect(0, 4, 3, 3, out.at(2));
    expectRect(5, 4, 5, 3, out.at(3));
}

TEST(BoundsLists, aHoleThatMissesLeavesACopy) {
    Rect a(0, 0, 10, 10);
    Rects out;
    Bounds::substract(a, Rect(0, 0, 5, 5), 10, 0, out);
    ASSERT_EQ(1, out.size());
    expectRect(0, 0, 10, 10, out.at(0));
    EXPECT_NE(a.bounds, out.at(0));
}

TEST(BoundsLists, aHoleThatCoversEverythingLeavesNothing) {
    Rects out;
    Bounds::substract(Rect(2, 2, 5, 5), Rect(0, 0, 10, 10), out);
    EXPECT_EQ(0, out.size());
}

TEST(BoundsLists, aShiftedHoleCutsWhereItIsShiftedTo) {
    Rects out;
    Bounds::substract(Rect(0, 0, 10, 10), Rect(0, 0, 5, 10), 5, 0, out);
    ASSERT_EQ(1, out.size());
    expectRect(0, 0, 5, 10, out.at(0));
}

TEST(BoundsLists, aHoleWithoutWidthSplitsItsRowsInTwo) {
    Rects out;
    Bounds::substract(Rect(0, 0, 10, 10), Rect(4, 2, 0, 3), out);
    ASSERT_EQ(4, out.size());
    expectRect(0, 2, 4, 3, out.at(2));
    expectRect(4, 2, 6, 3, out.at(3));
}

TEST(BoundsLists, aHoleOfNegativeSizeTakesNothingAway) {
    Rects out;
    Bounds::substract(Rect(0, 0, 10, 10), Rect(4, 5, -3, -3), out);
    EXPECT_EQ(100, Bounds::getArea(out));
    const auto cover = coverOf(out);
    EXPECT_EQ(1, *std::max_element(cover.begin(), cover.end()));
}

TEST(BoundsLists, partsCoverExactlyTheRestAndNeverOverlap) {
    model::Noise noise(1);
    for (int32_t i = 0; i < 2000; i++) {
        Rects a;
        Rects b;
        Rects out;
        fillRandom(noise, a, 1);
        fillRandom(noise, b, 1);
        Bounds::substract(a.at(0), b.at(0), out);
        ASSERT_EQ(without(coverOf(a), coverOf(b)), coverOf(out)) << i;
    }
}

TEST(BoundsLists, listsAreTakenFromListsWithTheShift) {
    model::Noise noise(2);
    for (int32_t i = 0; i < 500; i++) {
        Rects a;
        Rects b;
        Rects one;
        Rects all;
        Rects single;
        fillRandom(noise, a, 3);
        fillRandom(noise, b, 3);
        Bounds::substract(a, b, 2, -1, all);
        Bounds::substract(a, b.at(0), 2, -1, one);
        Bounds::substract(a.at(0), b, single);
        Rects shifted;
        Bounds::copyInto(b, shifted);
        const auto plain = coverOf(b);
        Bounds::move(shifted, 2, -1);
        Rects shiftedFirst;
        shiftedFirst.list.addElement(Bounds::alloc(shifted.at(0)));
        Rects first;
        first.list.addElement(Bounds::alloc(a.at(0)));
        ASSERT_EQ(without(coverOf(a), coverOf(shifted)), coverOf(all)) << i;
        ASSERT_EQ(without(coverOf(a), coverOf(shiftedFirst)), coverOf(one)) << i;
        ASSERT_EQ(without(coverOf(first), plain), coverOf(single)) << i;
    }
}

TEST(BoundsLists, withoutAShiftListsAreTakenWhereTheyAre) {
    Rects a{{0, 0, 4, 4}, {8, 0, 4, 4}};
    Rects b{{0, 0, 4, 2}};
    Rects out;
    Bounds::substract(a, b, out);
    ASSERT_EQ(2, out.size());
    expectRect(0, 2, 4, 2, out.at(0));
    expectRect(8, 0, 4, 4, out.at(1));
    Rects same;
    Bounds::substract(a, b.at(0), same);
    EXPECT_EQ(coverOf(out), coverOf(same));
}

TEST(BoundsLists, removingOverlappingKeepsOnlyWhatTheFirstListLeaves) {
    model::Noise noise(3);
    for (int32_t i = 0; i < 500; i++) {
        Rects a;
        Rects b;
        fillRandom(noise, a, 3);
        fillRandom(noise, b, 3);
        const auto before = coverOf(b);
        const auto untouched = coverOf(a);
        Bounds::removeOverlapping(a, b);
        ASSERT_EQ(without(before, untouched), coverOf(b)) << i;
        ASSERT_EQ(untouched, coverOf(a));
    }
}

TEST(BoundsLists, addingWithoutOverlapCoversTheUnionOnce) {
    model::Noise noise(4);
    for (int32_t i = 0; i < 500; i++) {
        Rects target;
        Rects added;
        Rects scratch;
        fillRandom(noise, added, 5);
        Bounds::addAndRemoveOverlapping(target, added, scratch);
        auto expected = coverOf(added);
        for (int32_t& cell : expected) {
            cell = std::min(cell, 1);
        }
        ASSERT_EQ(expected, coverOf(target)) << i;
        ASSERT_EQ(5, added.size());
        ASSERT_EQ(0, scratch.size());
    }
}

TEST(BoundsLists, theUnionOfAListIsItsBoundingBox) {
    Rects list{{5, 6, 2, 2}, {1, 9, 1, 1}, {3, 3, 10, 1}};
    expectRect(1, 3, 12, 7, Rect(Bounds::alloc(list.operator Vector*())));
    Rect a(0, 0, 1, 1);
    Bounds::union_(a, list);
    expectRect(0, 0, 13, 10, a);
    Rects none;
    EXPECT_FALSE(Bounds::isValid(Rect(Bounds::alloc(none.operator Vector*()))));
}

TEST(BoundsLists, theUnionOfAnArraySkipsItsNulls) {
    Rect a(0, 0, 0, 0);
    Rect b(2, 2, 2, 2);
    Rect c(5, 1, 1, 1);
    auto** array = newArray<Bounded*>(3);
    array[0] = b;
    array[2] = c;
    Bounds::union_(a, array);
    deleteArrFunc(array);
    expectRect(2, 1, 4, 3, a);
}

TEST(BoundsLists, clippingAListCollectsTheValidParts) {
    Rects list{{0, 0, 4, 4}, {10, 10, 4, 4}, {3, 3, 4, 4}};
    Rects cut;
    Bounds::intersect(list, Rect(2, 2, 4, 4), cut);
    ASSERT_EQ(2, cut.size());
    expectRect(2, 2, 2, 2, cut.at(0));
    expectRect(3, 3, 3, 3, cut.at(1));
    expectRect(0, 0, 4, 4, list.at(0));
}

TEST(BoundsLists, aListContainsWhatAnyElementContains) {
    Rects list{{0, 0, 4, 4}, {10, 10, 4, 4}};
    EXPECT_TRUE(Bounds::contains(list, 13, 13));
    EXPECT_TRUE(Bounds::contains(list, 0, 3));
    EXPECT_FALSE(Bounds::contains(list, 5, 5));
    EXPECT_EQ(32, Bounds::getArea(list));
}

TEST(BoundsLists, copiesAreNewAndMovingMovesAll) {
    Rects list{{0, 0, 4, 4}, {10, 10, 4, 4}};
    Rects copy;
    Bounds::copyInto(list, copy);
    Bounds::move(copy, 1, -1);
    expectRect(1, -1, 4, 4, copy.at(0));
    expectRect(11, 9, 4, 4, copy.at(1));
    expectRect(0, 0, 4, 4, list.at(0));
}

TEST(BoundsLists, freeingAListEmptiesItIntoThePool) {
    Rects list{{0, 0, 4, 4}, {10, 10, 4, 4}};
    const int32_t pooled = Bounds::printNumRecycled(false);
    Bounds::free(list);
    EXPECT_EQ(0, list.size());
    EXPECT_EQ(pooled + 2, Bounds::printNumRecycled(false));
}
