// SPDX-License-Identifier: MIT
// Owns a counted array (ArrFunc.h) and frees it with deleteArrFunc.
#pragma once

#include "ArrFunc.h"

#include <utility>

template <typename T>
class Array {
public:
    /// Holds no array; length() of it is 0.
    Array() = default;

    /// Takes ownership of a counted array; null: none.
    explicit Array(T* array)
        : elements(array) {}

    Array(Array&& other) noexcept
        : elements(other.release()) {}

    Array& operator=(Array&& other) noexcept {
        reset(other.release());
        return *this;
    }

    ~Array() { deleteArrFunc(elements); }

    T* get() const { return elements; }

    // NOLINTNEXTLINE(google-explicit-constructor): can be used like the array itself
    operator T*() const { return elements; }

    /// Frees the array and takes ownership of another one.
    void reset(T* array = nullptr) { deleteArrFunc(std::exchange(elements, array)); }

    /// Gives the array to the caller, who must free it with deleteArrFunc.
    [[nodiscard]] T* release() { return std::exchange(elements, nullptr); }

private:
    T* elements = nullptr;
};
