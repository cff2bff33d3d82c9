// SPDX-License-Identifier: MIT
#include "SampleKeep.h"

#include "ArrFunc.h"

#include <cstring>

namespace {

// The address sanitizer notices an access after the end of an array only if the array ends with its
// block of memory. A kept array may have room to spare, so none is kept there.
#if defined(__has_feature)
#define MURMELO_HAS_FEATURE(feature) __has_feature(feature)
#else
#define MURMELO_HAS_FEATURE(feature) 0
#endif
#if defined(__SANITIZE_ADDRESS__) || MURMELO_HAS_FEATURE(address_sanitizer)
constexpr bool kKeepsArrays = false;
#else
constexpr bool kKeepsArrays = true;
#endif

void setCount(int32_t* samples, int32_t count) {
    std::memcpy(samples - 1, &count, sizeof count);  // the header word of a counted array
}

size_t bytesOf(int32_t count) {
    return static_cast<size_t>(count) * sizeof(int32_t);
}

}  // namespace

SampleKeep::Slot SampleKeep::slots[kSlots];

int32_t* SampleKeep::takeCopy(const int32_t* samples) {
    const int32_t count = length(samples);
    int32_t* copy = lend(count);
    if (copy == nullptr) {
        copy = newArray<int32_t>(count);
    }
    if (count > 0) {
        std::memcpy(copy, samples, bytesOf(count));
    }
    return copy;
}

void SampleKeep::giveBack(int32_t* samples) {
    for (Slot& slot : slots) {
        if (slot.samples != nullptr && slot.samples == samples) {
            slot.lent = false;
            return;
        }
    }
    deleteArrFunc(samples);
}

void SampleKeep::clear() {
    for (Slot& slot : slots) {
        // An array in use is only forgotten: giveBack() deletes it later.
        if (!slot.lent) {
            deleteArrFunc(slot.samples);
        }
        slot = Slot();
    }
}

// Returns an array with old content and the right count; null if no slot is free, or no array is
// kept.
int32_t* SampleKeep::lend(int32_t count) {
    Slot* slot = kKeepsArrays ? freeSlotFor(count) : nullptr;
    if (slot == nullptr) {
        return nullptr;
    }
    if (slot->capacity < count || slot->samples == nullptr) {
        deleteArrFunc(slot->samples);
        slot->samples = newArray<int32_t>(count);
        slot->capacity = count;
    }
    setCount(slot->samples, count);
    slot->lent = true;
    return slot->samples;
}

// The slot of the smallest free array with room; if none has room, that of the smallest free one,
// whose array lend() replaces.
SampleKeep::Slot* SampleKeep::freeSlotFor(int32_t count) {
    Slot* best = nullptr;
    for (Slot& slot : slots) {
        if (slot.lent) {
            continue;
        }
        const bool smaller = best != nullptr && slot.capacity < best->capacity;
        const bool hasRoom = slot.capacity >= count;
        const bool bestHasRoom = best != nullptr && best->capacity >= count;
        if (best == nullptr || (hasRoom && !bestHasRoom) || (hasRoom == bestHasRoom && smaller)) {
            best = &slot;
        }
    }
    return best;
}
