// SPDX-License-Identifier: MIT
// A 32-bit number as an object, and numbers as text.
#pragma once

#include "GnoObject.h"

class Integer : public GnoObject {
public:
    explicit Integer(int32_t value)
        : value(value) {}

    using GnoObject::toString;

    /// New strings, the caller deletes them: decimal, and hexadecimal in lower case.
    static Osp::Base::String* toString(int32_t value);
    static Osp::Base::String* toHexString(int32_t value);

    /// Deliberate: treats every character as a digit, knows no sign and checks nothing. Callers
    /// pass only digits.
    static int32_t parseInt(Osp::Base::String* digits);

    /// True if the other is an Integer of the same value.
    bool equals(GnoObject* other) override;

    int32_t intValue() const { return value; }

    int32_t longValue() const { return value; }

    int16_t shortValue() const { return static_cast<int16_t>(value); }

    signed char byteValue() const { return static_cast<signed char>(value); }

    float floatValue() const { return static_cast<float>(value); }

    double doubleValue() const { return value; }

private:
    int32_t value;
};
