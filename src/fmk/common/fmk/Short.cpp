// SPDX-License-Identifier: MIT
#include "Short.h"

#include "Integer.h"

using Osp::Base::String;

String* Short::toString(int16_t value) {
    return Integer::toString(value);
}

String* Short::toHexString(int16_t value) {
    return Integer::toHexString(value);
}

int16_t Short::parseShort(String* digits) {
    return static_cast<int16_t>(Integer::parseInt(digits));
}

bool Short::equals(GnoObject* other) {
    const auto* number = dynamic_cast<Short*>(other);
    return number != nullptr && number->value == value;
}
