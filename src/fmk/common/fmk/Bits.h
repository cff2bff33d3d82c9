// SPDX-License-Identifier: MIT
// Reads the bits of a value as a value of another type. The browser's compiler has no
// std::bit_cast.
#pragma once

#include <cstring>
#include <type_traits>

template <class To, class From>
To bitsAs(const From& value) {
    static_assert(sizeof(To) == sizeof(From));
    static_assert(std::is_trivially_copyable_v<To> && std::is_trivially_copyable_v<From>);
    To result;
    std::memcpy(&result, &value, sizeof result);
    return result;
}
