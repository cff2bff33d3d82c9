// SPDX-License-Identifier: MIT
// Growable list of object pointers. It owns its array, but never the objects; only the dispose
// operations delete them.
#pragma once

#include "GnoObject.h"

class Enumeration;

class Vector : public GnoObject {
public:
    Vector();
    explicit Vector(int32_t capacity);

    /// @param increment  elements added when full; 0 doubles instead
    Vector(int32_t capacity, int32_t increment);
    ~Vector() override;

    // With an index outside the list, reads return null and changes do nothing.

    void addElement(GnoObject* object);

    /// index 0 .. size()
    void insertElementAt(GnoObject* object, int32_t index);
    void removeElementAt(int32_t index);
    void setElementAt(GnoObject* object, int32_t index);

    GnoObject* elementAt(int32_t index) { return isInside(index) ? elementData[index] : nullptr; }

    /// Null if there is none.
    GnoObject* firstElement() { return elementAt(0); }

    GnoObject* lastElement() { return elementAt(elementCount - 1); }

    int32_t size() const { return elementCount; }

    int32_t capacity() const;

    bool isEmpty() const { return elementCount == 0; }

    /// Copies all elements to target[0] and on.
    void copyInto(GnoObject** target);

    /// Appends nulls, or drops the elements at the end without deleting them.
    void setSize(int32_t size);
    void trimToSize();
    void ensureCapacity(int32_t minimum);

    /// The first index, at or after from, of an element equal to the object (for null, of a null
    /// element); -1 if there is none.
    int32_t indexOf(GnoObject* object, int32_t from);

    int32_t indexOf(GnoObject* object) { return indexOf(object, 0); }

    /// The same, searching backwards from the given index or from the end.
    int32_t lastIndexOf(GnoObject* object, int32_t from);

    int32_t lastIndexOf(GnoObject* object) { return lastIndexOf(object, elementCount - 1); }

    bool contains(GnoObject* object) { return indexOf(object) >= 0; }

    /// Removes the first equal element; false if there is none.
    bool removeElement(GnoObject* object);

    /// Removes all elements without deleting them.
    void removeAllElements();

    /// Deletes the objects as well.
    void disposeAllElements();
    void disposeElementAt(int32_t index);

    /// A new enumeration over the live list; the caller deletes it.
    Enumeration* elements();

private:
    bool isInside(int32_t index) const { return index >= 0 && index < elementCount; }

    void ensureCapacityHelper(int32_t minimum);
    void reallocate(int32_t capacity);

    GnoObject** elementData;  // counted array, its length is the capacity
    int32_t elementCount = 0;
    int32_t capacityIncrement;
};
