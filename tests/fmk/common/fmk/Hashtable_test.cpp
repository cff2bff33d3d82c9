// SPDX-License-Identifier: MIT
// The table finds, replaces, lists and removes its entries, and deletes values only when told to.
#include "Enumeration.h"
#include "Hashtable.h"
#include "Integer.h"
#include "Short.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

class Counted : public GnoObject {
public:
    Counted() { alive++; }

    ~Counted() override { alive--; }

    static int32_t alive;
};

int32_t Counted::alive = 0;

}  // namespace

TEST(Hashtable, puttingAnExistingKeyReplacesItsValue) {
    Hashtable table;
    Integer key(1);
    Integer sameKey(1);
    GnoObject first;
    GnoObject other;
    table.put(&key, &first);
    table.put(&sameKey, &other);
    EXPECT_EQ(1, table.size());
    EXPECT_EQ(&other, table.get(&key));
}

TEST(Hashtable, numbersAreFoundByValueAndPlainObjectsByIdentity) {
    Hashtable table(1);
    Integer number(7);
    GnoObject plain;
    GnoObject value;
    table.put(&number, &value);
    table.put(&plain, &plain);
    Integer equalNumber(7);
    Short otherKind(7);
    GnoObject otherPlain;
    EXPECT_EQ(&value, table.get(&equalNumber));
    EXPECT_EQ(nullptr, table.get(&otherKind));
    EXPECT_EQ(&plain, table.get(&plain));
    EXPECT_EQ(nullptr, table.get(&otherPlain));
    EXPECT_TRUE(table.containsKey(&equalNumber));
    EXPECT_FALSE(table.containsKey(&otherPlain));
    EXPECT_TRUE(table.contains(&value));
    EXPECT_FALSE(table.contains(&otherPlain));
}

TEST(Hashtable, removingGivesTheValueBack) {
    Hashtable table;
    Integer one(1);
    Integer two(2);
    GnoObject a;
    GnoObject b;
    table.put(&one, &a);
    table.put(&two, &b);
    EXPECT_EQ(&a, table.remove(&one));
    EXPECT_EQ(nullptr, table.remove(&one));
    EXPECT_EQ(&b, table.get(&two));
    EXPECT_EQ(&b, table.removeElement(&b));
    EXPECT_EQ(nullptr, table.removeElement(&b));
    EXPECT_TRUE(table.isEmpty());
}

TEST(Hashtable, listsKeysAndValuesInTheOrderInWhichTheyCame) {
    Hashtable table;
    Integer one(1);
    Integer two(2);
    GnoObject a;
    GnoObject b;
    table.put(&two, &b);
    table.put(&one, &a);
    const std::unique_ptr<Enumeration> keys(table.keys());
    const std::unique_ptr<Enumeration> values(table.elements());
    EXPECT_EQ(&two, keys->nextElement());
    EXPECT_EQ(&b, values->nextElement());
    EXPECT_EQ(&one, keys->nextElement());
    EXPECT_EQ(&a, values->nextElement());
    EXPECT_FALSE(keys->hasMoreElements());
    EXPECT_FALSE(values->hasMoreElements());
}

TEST(Hashtable, clearingDeletesNothing) {
    Hashtable table;
    Counted key;
    Counted value;
    table.put(&key, &value);
    table.clear();
    EXPECT_EQ(2, Counted::alive);
    EXPECT_EQ(0, table.size());
    EXPECT_FALSE(table.contains(&value));
}

TEST(Hashtable, disposingDeletesTheValuesOnly) {
    Hashtable table;
    Counted key;
    table.put(&key, new Counted());
    table.disposeElements();
    EXPECT_EQ(1, Counted::alive);
    EXPECT_EQ(nullptr, table.get(&key));
}
