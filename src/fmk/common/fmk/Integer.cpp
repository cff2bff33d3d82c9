// SPDX-License-Identifier: MIT
#include "Integer.h"

#include "Arithmetic.h"
#include "OspBase.h"

#include <array>
#include <charconv>

using Osp::Base::String;

namespace {

constexpr size_t kLongestText = 12;  // "-2147483648" and its zero

}  // namespace

String* Integer::toString(int32_t value) {
    return new String(Osp::Base::Integer::ToString(value));
}

String* Integer::toHexString(int32_t value) {
    std::array<char, kLongestText> text = {};
    std::to_chars(text.data(), text.data() + text.size(), static_cast<uint32_t>(value), 16);
    return new String(text.data());
}

int32_t Integer::parseInt(String* digits) {
    int32_t value = 0;
    for (int32_t i = 0; i < digits->GetLength(); i++) {
        value = wrapAdd(wrapMul(value, 10), (*digits)[i] - u'0');
    }
    return value;
}

bool Integer::equals(GnoObject* other) {
    const auto* integer = dynamic_cast<Integer*>(other);
    return integer != nullptr && integer->value == value;
}
