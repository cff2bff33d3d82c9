// SPDX-License-Identifier: MIT
// Values found by key, in the order in which the keys were added. Lookups are linear, because a
// table here holds only a few entries.
#pragma once

#include "Vector.h"

class Hashtable : public GnoObject {
public:
    Hashtable() = default;
    explicit Hashtable(int32_t capacity);

    /// Replaces the value of an equal key, or adds an entry.
    void put(GnoObject* key, GnoObject* value);

    /// Null if there is no such key.
    GnoObject* get(GnoObject* key);

    /// Removes the entry and returns its value, without deleting either; null if there is none.
    GnoObject* remove(GnoObject* key);

    /// The same for the first entry with an equal value.
    GnoObject* removeElement(GnoObject* value);

    bool containsKey(GnoObject* key) { return keyVector.contains(key); }

    /// True if an equal value is there.
    bool contains(GnoObject* value) { return valueVector.contains(value); }

    /// New enumerations over the live table; the caller deletes them.
    Enumeration* keys() { return keyVector.elements(); }

    Enumeration* elements() { return valueVector.elements(); }

    int32_t size() const { return keyVector.size(); }

    bool isEmpty() const { return keyVector.isEmpty(); }

    /// Removes all entries without deleting anything.
    void clear();

    /// Deletes the values and removes all entries, so that no key leads to a deleted value. The
    /// keys stay the caller's.
    void disposeElements();

private:
    GnoObject* removeAt(int32_t index);

    Vector keyVector;
    Vector valueVector;
};
