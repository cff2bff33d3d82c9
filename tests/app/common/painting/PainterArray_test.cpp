// SPDX-License-Identifier: MIT
// An array of painters paints from the bottom up and passes its modifiers on.
#include "AbstractPainter.h"
#include "AppImage.h"
#include "ArrFunc.h"
#include "Bounds.h"
#include "PainterArray.h"
#include "PixProps.h"

#include <gtest/gtest.h>

#include <string>

namespace {

/// Records how it was painted.
class Witness : public AbstractPainter {
public:
    Witness(const char* name, std::string& log)
        : name(name)
        , log(log) {}

    void paintOn(
        AppImage* /*dst*/, int32_t x, int32_t y, Bounded* /*clip*/, PixProps* inherited) override {
        log += name + "(" + std::to_string(x) + "," + std::to_string(y) + "," +
               std::to_string(inherited->opacity) + ")";
    }

    void refresh() override { log += name + "!"; }

private:
    std::string name;
    std::string& log;
};

class PainterArrayTest : public testing::Test {
public:
    PainterArrayTest() {
        array.setPainter(0, &a);
        array.setPainter(2, &b);
        array.setPainter(3, &c);
    }

    std::string log;
    Witness a{"a", log};
    Witness b{"b", log};
    Witness c{"c", log};
    PainterArray array{5};  // a, null, b, c, null
    AppImage image{4, 4};
    Bounds clip{0, 0, 4, 4};
};

}  // namespace

TEST_F(PainterArrayTest, paintsFromTheBottomUpAndSkipsEmptySlots) {
    array.paintOn(&image, 0, 0, &clip, nullptr);
    EXPECT_EQ("a(0,0,256)b(0,0,256)c(0,0,256)", log);
}

TEST_F(PainterArrayTest, paintersStandRelativeToTheArray) {
    Bounds::set(&array, 10, 20, 1, 1);
    array.paintOn(&image, 3, 4, &clip, nullptr);
    EXPECT_EQ("a(13,24,256)b(13,24,256)c(13,24,256)", log);
}

TEST_F(PainterArrayTest, arraysNest) {
    PainterArray outer(1);
    outer.setPainter(0, &array);
    Bounds::setPos(&outer, 100, 200);
    Bounds::setPos(&array, 10, 20);
    PixProps half(256, 256, 128);
    outer.setPixProps(&half);
    array.setPixProps(&half);
    outer.paintOn(3, &image, 1, 2, &clip, nullptr);  // beyond its only slot
    EXPECT_EQ("", log);
    outer.paintOn(&image, 1, 2, &clip, nullptr);
    EXPECT_EQ("a(111,222,64)b(111,222,64)c(111,222,64)", log);
}

TEST_F(PainterArrayTest, ownOpacityIsScaledByTheInheritedOne) {
    PixProps half(256, 256, 128);
    array.setPixProps(&half);
    EXPECT_EQ(128, array.getPixProps()->opacity);
    array.paintOn(0, 0, &image, 0, 0, &clip, &half);
    EXPECT_EQ("a(0,0,64)", log);
}

TEST_F(PainterArrayTest, paintsARangeOrFromASlotToTheTop) {
    array.paintOn(1, 2, &image, 0, 0, &clip, nullptr);
    EXPECT_EQ("b(0,0,256)", log);
    log.clear();
    array.paintOn(2, &image, 0, 0, &clip, nullptr);
    EXPECT_EQ("b(0,0,256)c(0,0,256)", log);
}

TEST_F(PainterArrayTest, aRangeTheWrongWayRoundPaintsNothing) {
    array.paintOn(2, 1, &image, 0, 0, &clip, nullptr);
    EXPECT_EQ("", log);
}

TEST_F(PainterArrayTest, bothEndsOfARangeAreBroughtIntoTheArray) {
    array.paintOn(-3, 99, &image, 0, 0, &clip, nullptr);
    EXPECT_EQ("a(0,0,256)b(0,0,256)c(0,0,256)", log);
    log.clear();
    array.paintOn(-9, -5, &image, 0, 0, &clip, nullptr);
    EXPECT_EQ("a(0,0,256)", log);  // both ends become the bottom slot
}

TEST_F(PainterArrayTest, anArrayWithoutSlotsPaintsNothing) {
    PainterArray empty;
    empty.paintOn(&image, 0, 0, &clip, nullptr);
    empty.paintOn(0, 5, &image, 0, 0, &clip, nullptr);
    EXPECT_EQ(0, empty.clamp(3));
    EXPECT_EQ(nullptr, empty.getBottomPainter());
    EXPECT_EQ(nullptr, empty.getTopPainter());
}

TEST_F(PainterArrayTest, findsThePaintersAroundASlot) {
    EXPECT_EQ(&a, array.getBottomPainter());
    EXPECT_EQ(&c, array.getTopPainter());
    EXPECT_EQ(&a, array.getFirstBelow(2));
    EXPECT_EQ(&b, array.getFirstBelow(3));
    EXPECT_EQ(nullptr, array.getFirstBelow(0));
    EXPECT_EQ(&b, array.getFirstAbove(0));
    EXPECT_EQ(nullptr, array.getFirstAbove(3));
    EXPECT_EQ(&c, array.getFirstBelow(INT32_MAX));
    EXPECT_EQ(&a, array.getFirstAbove(INT32_MIN));
    EXPECT_EQ(nullptr, array.getFirstBelow(INT32_MIN));
    EXPECT_EQ(nullptr, array.getFirstAbove(INT32_MAX));
}

TEST_F(PainterArrayTest, slotsOutsideTheArrayDoNotExist) {
    for (const int32_t index : {-1, 5, INT32_MIN, INT32_MAX}) {
        EXPECT_TRUE(array.outOfBounds(index));
        EXPECT_EQ(nullptr, array.getPainter(index));
        array.setPainter(index, &a);
        array.removePainter(index);
    }
    EXPECT_FALSE(array.outOfBounds(0));
    EXPECT_FALSE(array.outOfBounds(4));
    EXPECT_EQ(0, array.clamp(-1));
    EXPECT_EQ(4, array.clamp(5));
    EXPECT_EQ(2, array.clamp(2));
}

TEST_F(PainterArrayTest, paintersAreRemovedByIndexOrByThemselves) {
    EXPECT_EQ(2, array.getIndexOf(&b));
    array.removePainter(&b);
    EXPECT_EQ(-1, array.getIndexOf(&b));
    EXPECT_EQ(nullptr, array.getPainter(2));
    array.removePainter(0);
    EXPECT_EQ(&c, array.getBottomPainter());
    array.removePainter(&b);  // no longer there
    EXPECT_EQ(&c, array.getTopPainter());
    EXPECT_EQ(5, length(array.getPainters()));
}

TEST_F(PainterArrayTest, removingAllLeavesNoSlots) {
    array.removeAllPainters();
    EXPECT_EQ(0, length(array.getPainters()));
    array.setPainter(0, &a);
    EXPECT_EQ(nullptr, array.getPainter(0));
}

TEST_F(PainterArrayTest, refreshReachesEveryPainter) {
    array.refresh();
    EXPECT_EQ("a!b!c!", log);
}

TEST_F(PainterArrayTest, aCopyHasTheSamePaintersButItsOwnSlots) {
    Bounds::set(&array, 1, 2, 3, 4);
    PixProps half(256, 256, 128);
    array.setPixProps(&half);
    const std::unique_ptr<PainterArray> copy(array.getCopy());
    array.removePainter(&a);
    Bounds::set(&array, 0, 0, 0, 0);
    copy->paintOn(&image, 0, 0, &clip, nullptr);
    EXPECT_EQ("a(1,2,128)b(1,2,128)c(1,2,128)", log);
    EXPECT_EQ(3, Bounds::getWidth(copy.get()));
}

TEST_F(PainterArrayTest, takesOverAnArrayOfSlots) {
    auto** slots = newArray<Painter*>(2);
    slots[1] = &b;
    PainterArray given(slots);
    EXPECT_EQ(slots, given.getPainters());
    given.paintOn(&image, 0, 0, &clip, nullptr);
    EXPECT_EQ("b(0,0,256)", log);
}
