// SPDX-License-Identifier: MIT
#include "Vector.h"

#include "ArrFunc.h"
#include "VectorEnumerator.h"

#include <algorithm>

namespace {

constexpr int32_t kDefaultCapacity = 10;

bool matches(GnoObject* wanted, GnoObject* element) {
    return wanted == nullptr ? element == nullptr : wanted->equals(element);
}

}  // namespace

Vector::Vector()
    : Vector(kDefaultCapacity) {}

Vector::Vector(int32_t capacity)
    : Vector(capacity, 0) {}

Vector::Vector(int32_t capacity, int32_t increment)
    : elementData(newArray<GnoObject*>(capacity))
    , capacityIncrement(increment) {}

Vector::~Vector() {
    deleteArrFunc(elementData);
}

int32_t Vector::capacity() const {
    return length(elementData);
}

void Vector::addElement(GnoObject* object) {
    ensureCapacityHelper(elementCount + 1);
    elementData[elementCount] = object;
    elementCount++;
}

void Vector::insertElementAt(GnoObject* object, int32_t index) {
    if (index < 0 || index > elementCount) {
        return;
    }
    ensureCapacityHelper(elementCount + 1);
    std::copy_backward(elementData + index, elementData + elementCount,
                       elementData + elementCount + 1);
    elementData[index] = object;
    elementCount++;
}

void Vector::removeElementAt(int32_t index) {
    if (!isInside(index)) {
        return;
    }
    std::copy(elementData + index + 1, elementData + elementCount, elementData + index);
    elementCount--;
    elementData[elementCount] = nullptr;
}

void Vector::setElementAt(GnoObject* object, int32_t index) {
    if (isInside(index)) {
        elementData[index] = object;
    }
}

void Vector::copyInto(GnoObject** target) {
    std::copy(elementData, elementData + elementCount, target);
}

void Vector::setSize(int32_t size) {
    const int32_t wanted = std::max(size, 0);
    ensureCapacityHelper(wanted);
    if (wanted < elementCount) {
        std::fill(elementData + wanted, elementData + elementCount, nullptr);
    }
    elementCount = wanted;
}

void Vector::trimToSize() {
    if (elementCount < capacity()) {
        reallocate(elementCount);
    }
}

void Vector::ensureCapacity(int32_t minimum) {
    ensureCapacityHelper(minimum);
}

int32_t Vector::indexOf(GnoObject* object, int32_t from) {
    for (int32_t i = std::max(from, 0); i < elementCount; i++) {
        if (matches(object, elementData[i])) {
            return i;
        }
    }
    return -1;
}

int32_t Vector::lastIndexOf(GnoObject* object, int32_t from) {
    for (int32_t i = std::min(from, elementCount - 1); i >= 0; i--) {
        if (matches(object, elementData[i])) {
            return i;
        }
    }
    return -1;
}

bool Vector::removeElement(GnoObject* object) {
    const int32_t index = indexOf(object);
    if (index < 0) {
        return false;
    }
    removeElementAt(index);
    return true;
}

void Vector::removeAllElements() {
    std::fill(elementData, elementData + elementCount, nullptr);
    elementCount = 0;
}

void Vector::disposeAllElements() {
    for (int32_t i = 0; i < elementCount; i++) {
        delete elementData[i];
    }
    removeAllElements();
}

void Vector::disposeElementAt(int32_t index) {
    delete elementAt(index);
    removeElementAt(index);
}

Enumeration* Vector::elements() {
    return new VectorEnumerator(this);
}

void Vector::ensureCapacityHelper(int32_t minimum) {
    const int32_t oldCapacity = capacity();
    if (minimum <= oldCapacity) {
        return;
    }
    const int32_t grown = oldCapacity + (capacityIncrement > 0 ? capacityIncrement : oldCapacity);
    reallocate(std::max(grown, minimum));
}

void Vector::reallocate(int32_t capacity) {
    auto* grown = newArray<GnoObject*>(capacity);
    std::copy(elementData, elementData + elementCount, grown);
    deleteArrFunc(elementData);
    elementData = grown;
}
