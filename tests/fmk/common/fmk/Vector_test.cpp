// SPDX-License-Identifier: MIT
// The list grows, inserts, finds and removes, and reads null outside.
#include "Enumeration.h"
#include "Vector.h"

#include <gtest/gtest.h>

namespace {

/// Counts how many of its kind are alive, and equals any other with the same value.
class Item : public GnoObject {
public:
    explicit Item(int32_t value)
        : value(value) {
        alive++;
    }

    ~Item() override { alive--; }

    bool equals(GnoObject* other) override {
        auto* item = dynamic_cast<Item*>(other);
        return item != nullptr && item->value == value;
    }

    static int32_t alive;

private:
    int32_t value;
};

int32_t Item::alive = 0;

}  // namespace

TEST(Vector, aNewOneHoldsTenAndDoublesForTheEleventh) {
    Vector vector;
    GnoObject object;
    EXPECT_EQ(10, vector.capacity());
    for (int32_t i = 0; i < 11; i++) {
        vector.addElement(&object);
    }
    EXPECT_EQ(20, vector.capacity());
    EXPECT_EQ(11, vector.size());
}

TEST(Vector, growsByItsIncrement) {
    Vector vector(10, 5);
    GnoObject object;
    for (int32_t i = 0; i < 11; i++) {
        vector.addElement(&object);
    }
    EXPECT_EQ(15, vector.capacity());
}

TEST(Vector, growsToTheMinimumWhenDoublingIsNotEnough) {
    Vector vector(2);
    vector.ensureCapacity(9);
    EXPECT_EQ(9, vector.capacity());
    Vector empty(0);
    GnoObject object;
    empty.addElement(&object);
    EXPECT_EQ(1, empty.capacity());
}

TEST(Vector, insertsAndRemovesInTheMiddle) {
    Vector vector(1);
    Item a(1);
    Item b(2);
    Item c(3);
    vector.addElement(&a);
    vector.addElement(&c);
    vector.insertElementAt(&b, 1);
    EXPECT_EQ(&b, vector.elementAt(1));
    EXPECT_EQ(&c, vector.lastElement());
    vector.removeElementAt(0);
    EXPECT_EQ(&b, vector.firstElement());
    EXPECT_EQ(2, vector.size());
}

TEST(Vector, findsByEqualsAndFindsNull) {
    Vector vector;
    Item one(1);
    Item two(2);
    Item anotherTwo(2);
    vector.addElement(&one);
    vector.addElement(&two);
    vector.addElement(nullptr);
    vector.addElement(&anotherTwo);
    EXPECT_EQ(1, vector.indexOf(&anotherTwo));
    EXPECT_EQ(3, vector.indexOf(&two, 2));
    EXPECT_EQ(3, vector.lastIndexOf(&two));
    EXPECT_EQ(1, vector.lastIndexOf(&two, 2));
    EXPECT_EQ(-1, vector.lastIndexOf(&two, 0));
    EXPECT_EQ(2, vector.indexOf(nullptr));
    Item three(3);
    EXPECT_EQ(-1, vector.indexOf(&three));
    EXPECT_FALSE(vector.contains(&three));
}

TEST(Vector, removesOnlyTheFirstEqualElement) {
    Vector vector;
    Item a(7);
    Item b(7);
    vector.addElement(&a);
    vector.addElement(&b);
    EXPECT_TRUE(vector.removeElement(&b));
    EXPECT_EQ(&b, vector.elementAt(0));
    Item other(8);
    EXPECT_FALSE(vector.removeElement(&other));
}

TEST(Vector, disposingDeletesTheObjects) {
    Vector vector;
    vector.addElement(new Item(1));
    vector.addElement(new Item(2));
    vector.addElement(new Item(3));
    vector.disposeElementAt(1);
    EXPECT_EQ(2, Item::alive);
    vector.disposeAllElements();
    EXPECT_EQ(0, Item::alive);
    EXPECT_TRUE(vector.isEmpty());
}

TEST(Vector, removingAllDeletesNothing) {
    Vector vector;
    Item item(1);
    vector.addElement(&item);
    vector.removeAllElements();
    EXPECT_EQ(1, Item::alive);
    EXPECT_EQ(0, vector.size());
}

TEST(Vector, resizingFillsWithNullsAndForgetsTheTail) {
    Vector vector(2);
    Item item(1);
    vector.addElement(&item);
    vector.setSize(3);
    EXPECT_EQ(nullptr, vector.elementAt(2));
    vector.setSize(0);
    vector.setSize(1);
    EXPECT_EQ(nullptr, vector.elementAt(0));
    vector.trimToSize();
    EXPECT_EQ(1, vector.capacity());
}

TEST(Vector, enumerationSeesElementsAddedMeanwhile) {
    Vector vector;
    Item a(1);
    Item b(2);
    vector.addElement(&a);
    Enumeration* elements = vector.elements();
    EXPECT_EQ(&a, elements->nextElement());
    EXPECT_FALSE(elements->hasMoreElements());
    vector.addElement(&b);
    ASSERT_TRUE(elements->hasMoreElements());
    EXPECT_EQ(&b, elements->nextElement());
    delete elements;
}

TEST(Vector, copiesItsElementsOut) {
    Vector vector;
    Item a(1);
    vector.addElement(&a);
    vector.addElement(nullptr);
    GnoObject* copy[2] = {nullptr, &a};
    vector.copyInto(copy);
    EXPECT_EQ(&a, copy[0]);
    EXPECT_EQ(nullptr, copy[1]);
}

TEST(Vector, indicesOutsideReadNullAndChangeNothing) {
    Vector vector(1);
    Item a(1);
    EXPECT_EQ(nullptr, vector.firstElement());
    EXPECT_EQ(nullptr, vector.lastElement());
    vector.addElement(&a);
    for (const int32_t outside : {-1, 1, 100}) {
        EXPECT_EQ(nullptr, vector.elementAt(outside));
        vector.setElementAt(nullptr, outside);
        vector.removeElementAt(outside);
        vector.disposeElementAt(outside);
    }
    vector.insertElementAt(nullptr, -1);
    vector.insertElementAt(nullptr, 2);
    EXPECT_EQ(1, vector.size());
    EXPECT_EQ(&a, vector.elementAt(0));
    EXPECT_EQ(0, vector.indexOf(&a, -5));
    EXPECT_EQ(0, vector.lastIndexOf(&a, 5));
    vector.setSize(-1);
    EXPECT_TRUE(vector.isEmpty());
}

TEST(Vector, insertsAtTheEndToo) {
    Vector vector;
    Item a(1);
    vector.insertElementAt(&a, 0);
    vector.insertElementAt(nullptr, 1);
    EXPECT_EQ(&a, vector.firstElement());
    EXPECT_EQ(nullptr, vector.lastElement());
    EXPECT_EQ(2, vector.size());
}
