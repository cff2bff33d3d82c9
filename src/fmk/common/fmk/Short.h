// SPDX-License-Identifier: MIT
// A 16-bit number as an object.
#pragma once

#include "GnoObject.h"

class Short : public GnoObject {
public:
    explicit Short(int16_t value)
        : value(value) {}

    using GnoObject::toString;

    /// New strings, the caller deletes them. A negative number is widened first: -1 is "ffffffff".
    static Osp::Base::String* toString(int16_t value);
    static Osp::Base::String* toHexString(int16_t value);

    /// Callers pass only digits: there is no sign and no check. Only the low 16 bits are kept.
    static int16_t parseShort(Osp::Base::String* digits);

    /// True if the other is a Short of the same value.
    bool equals(GnoObject* other) override;

    int32_t intValue() const { return value; }

    int32_t longValue() const { return value; }

    int16_t shortValue() const { return value; }

    signed char byteValue() const { return static_cast<signed char>(value); }

    float floatValue() const { return value; }

    double doubleValue() const { return value; }

private:
    int16_t value;
};
