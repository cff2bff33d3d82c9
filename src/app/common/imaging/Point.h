// SPDX-License-Identifier: MIT
// A plain point, pooled.
#pragma once

#include "ClassLife.h"

#include <cstdint>

namespace Osp::Base {
class String;
}

class Point : public ClassLife {
public:
    /// Deletes the pool's first instance; the others stay allocated until the process ends.
    static void static_dtor();

    Point() = default;
    Point(int32_t x, int32_t y);
    Point(const Point&) = delete;
    Point& operator=(const Point&) = delete;

    /// From the pool, or new when it is empty. The caller gives it back with free().
    static Point* alloc();
    static Point* alloc(int32_t x, int32_t y);
    static Point* alloc(Point* point);

    virtual ~Point() = default;

    /// A new string; the caller deletes it.
    virtual Osp::Base::String* toString();

    /// Gives the instance back to the pool; it must not be used afterwards.
    void free();

    static double getDistance(Point* a, Point* b);

    /// The distance rounded to the nearest whole number, halves upwards.
    static int32_t getDistanceInt(Point* a, Point* b);

    int32_t x = 0;  // px
    int32_t y = 0;  // px

private:
    static Point* firstRecycled;

    Point* nextRecycled = nullptr;
};
