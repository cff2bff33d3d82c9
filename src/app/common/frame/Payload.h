// An event's payload is a pointer that also carries a plain 32-bit word: this pair, and nothing
// else, converts.
#pragma once

#include <cstdint>

class GnoObject;

inline GnoObject* wordToPayload(int32_t word) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a word that travels; nobody follows it
    return reinterpret_cast<GnoObject*>(static_cast<uintptr_t>(static_cast<uint32_t>(word)));
}

inline int32_t payloadToWord(const GnoObject* payload) {
    return static_cast<int32_t>(static_cast<uint32_t>(reinterpret_cast<uintptr_t>(payload)));
}
