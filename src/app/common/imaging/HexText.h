// SPDX-License-Identifier: MIT
// Hexadecimal text of addresses and hashes, for the toString() of objects.
#pragma once

#include "OspBase.h"

#include <cstdint>

/// Lower case, without leading zeros: 255 gives "ff", 0 gives "0".
inline Osp::Base::String hexText(uint64_t value) {
    Osp::Base::String text;
    do {
        text.Insert(u"0123456789abcdef"[value & 15], 0);
        value >>= 4;
    } while (value != 0);
    return text;
}

/// A hash code; a negative one is printed as its 32-bit pattern.
inline Osp::Base::String hexText(int32_t hash) {
    return hexText(uint64_t{static_cast<uint32_t>(hash)});
}
