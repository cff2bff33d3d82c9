// SPDX-License-Identifier: MIT
// A pooled rectangle that gives itself back.
#pragma once

#include "Bounds.h"

#include <gtest/gtest.h>

struct Rect {
    Rect(int32_t x, int32_t y, int32_t w, int32_t h)
        : bounds(Bounds::alloc(x, y, w, h)) {}

    explicit Rect(Bounds* bounds)
        : bounds(bounds) {}

    ~Rect() { bounds->free(); }

    Rect(const Rect&) = delete;
    Rect& operator=(const Rect&) = delete;

    operator Bounds*() const { return bounds; }

    Bounds* operator->() const { return bounds; }

    Bounds* bounds;
};

inline void expectRect(int32_t x, int32_t y, int32_t w, int32_t h, const Bounds* actual) {
    EXPECT_EQ(x, actual->x);
    EXPECT_EQ(y, actual->y);
    EXPECT_EQ(w, actual->w);
    EXPECT_EQ(h, actual->h);
}
