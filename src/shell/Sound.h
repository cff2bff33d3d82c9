// A sound in memory: a counted array of 8 kHz samples in the range of 16 bits, which frees itself.
#pragma once

#include "ArrFunc.h"

#include <cstdint>
#include <memory>

struct ArrayDeleter {
    void operator()(void* array) const { deleteArrFunc(array); }
};

template <typename T>
using CountedArray = std::unique_ptr<T[], ArrayDeleter>;

using Sound = CountedArray<int32_t>;
