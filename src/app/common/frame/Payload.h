// SPDX-License-Identifier: MIT
// An event's payload is a pointer, in which a plain 32-bit word may be stored. Only these two
// functions convert between the two. The position of a touch is such a word too: x in its high
// half, y in the low one.
#pragma once

#include "Arithmetic.h"

#include <cstdint>

class GnoObject;

inline GnoObject* wordToPayload(int32_t word) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a number that is never used as an address
    return reinterpret_cast<GnoObject*>(static_cast<uintptr_t>(static_cast<uint32_t>(word)));
}

inline int32_t payloadToWord(const GnoObject* payload) {
    return static_cast<int32_t>(static_cast<uint32_t>(reinterpret_cast<uintptr_t>(payload)));
}

/// A negative y overwrites x's half: x arrives as -1, y as y + 65536. Listeners expect both.
inline GnoObject* positionToPayload(int32_t x, int32_t y) {
    return wordToPayload(wrapShl(x, 16) | y);
}

inline int32_t payloadToX(const GnoObject* payload) {
    return payloadToWord(payload) >> 16;
}

inline int32_t payloadToY(const GnoObject* payload) {
    return payloadToWord(payload) & 0xFFFF;
}
