// SPDX-License-Identifier: MIT
#include "Hashtable.h"

Hashtable::Hashtable(int32_t capacity)
    : keyVector(capacity)
    , valueVector(capacity) {}

void Hashtable::put(GnoObject* key, GnoObject* value) {
    const int32_t index = keyVector.indexOf(key);
    if (index >= 0) {
        valueVector.setElementAt(value, index);
        return;
    }
    keyVector.addElement(key);
    valueVector.addElement(value);
}

GnoObject* Hashtable::get(GnoObject* key) {
    const int32_t index = keyVector.indexOf(key);
    return index >= 0 ? valueVector.elementAt(index) : nullptr;
}

GnoObject* Hashtable::remove(GnoObject* key) {
    return removeAt(keyVector.indexOf(key));
}

GnoObject* Hashtable::removeElement(GnoObject* value) {
    return removeAt(valueVector.indexOf(value));
}

void Hashtable::clear() {
    keyVector.removeAllElements();
    valueVector.removeAllElements();
}

void Hashtable::disposeElements() {
    valueVector.disposeAllElements();
    keyVector.removeAllElements();
}

GnoObject* Hashtable::removeAt(int32_t index) {
    if (index < 0) {
        return nullptr;
    }
    GnoObject* value = valueVector.elementAt(index);
    keyVector.removeElementAt(index);
    valueVector.removeElementAt(index);
    return value;
}
