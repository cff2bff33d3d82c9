// SPDX-License-Identifier: MIT
#include "Point.h"

#include "Arithmetic.h"
#include "OspBase.h"

using Osp::Base::String;

Point* Point::firstRecycled = nullptr;

void Point::static_dtor() {
    delete firstRecycled;
    firstRecycled = nullptr;
}

Point::Point(int32_t x, int32_t y)
    : x(x)
    , y(y) {}

Point* Point::alloc() {
    return alloc(0, 0);
}

Point* Point::alloc(int32_t x, int32_t y) {
    Point* point = firstRecycled;
    if (point == nullptr) {
        return new Point(x, y);
    }
    firstRecycled = point->nextRecycled;
    point->x = x;
    point->y = y;
    return point;
}

Point* Point::alloc(Point* point) {
    return alloc(point->x, point->y);
}

String* Point::toString() {
    auto* text = new String("Point: x = ");
    text->Append(x);
    text->Append(", y = ");
    text->Append(y);
    return text;
}

void Point::free() {
    nextRecycled = firstRecycled;
    firstRecycled = this;
}

double Point::getDistance(Point* a, Point* b) {
    const double dx = static_cast<double>(a->x) - b->x;
    const double dy = static_cast<double>(a->y) - b->y;
    return Osp::Base::Utility::Math::Sqrt(dx * dx + dy * dy);
}

int32_t Point::getDistanceInt(Point* a, Point* b) {
    return toInt32(getDistance(a, b) + 0.5);
}
