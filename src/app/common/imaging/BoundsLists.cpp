// SPDX-License-Identifier: MIT
// Operations on lists of rectangles, which make it possible to repaint each changed pixel only
// once.
#include "ArrFunc.h"
#include "Bounds.h"
#include "Pooled.h"
#include "Saturating.h"
#include "Vector.h"

#include <algorithm>

namespace {

Bounded* boundedAt(Vector* vector, int32_t index) {
    return static_cast<Bounded*>(vector->elementAt(index));
}

/// Moves the elements of source to the end of target.
void moveInto(Vector* source, Vector* target) {
    for (int32_t i = 0; i < source->size(); i++) {
        target->addElement(source->elementAt(i));
    }
    source->removeAllElements();
}

/// A copy of b, shifted, with right and bottom edges instead of sizes. A negative size counts as an
/// empty rectangle: otherwise pixels outside the rectangle would be removed.
Bounds* shiftedHole(Bounded* b, int32_t dx, int32_t dy) {
    Bounds* hole = Bounds::alloc(b);
    hole->w = std::max(hole->w, 0);
    hole->h = std::max(hole->h, 0);
    Bounds::move(hole, dx, dy);
    Bounds::x2y2(hole);
    return hole;
}

/// The parts of rest (edges, not sizes) outside a hole that overlaps it.
void splitAround(Bounds* rest, const Bounds* hole, Vector* out) {
    if (hole->y > rest->y) {
        out->addElement(Bounds::allocX2Y2(rest->x, rest->y, rest->w, satSub(hole->y, 1)));
        rest->y = hole->y;
    }
    if (hole->h < rest->h) {
        out->addElement(Bounds::allocX2Y2(rest->x, satAdd(hole->h, 1), rest->w, rest->h));
        rest->h = hole->h;
    }
    if (hole->x > rest->x) {
        out->addElement(Bounds::allocX2Y2(rest->x, rest->y, satSub(hole->x, 1), rest->h));
    }
    if (hole->w < hole->x) {
        out->addElement(Bounds::allocX2Y2(hole->x, rest->y, rest->w, rest->h));
    } else if (hole->w < rest->w) {
        out->addElement(Bounds::allocX2Y2(satAdd(hole->w, 1), rest->y, rest->w, rest->h));
    }
}

}  // namespace

int32_t Bounds::getArea(Vector* vector) {
    int64_t area = 0;
    for (int32_t i = 0; i < vector->size(); i++) {
        area += getArea(boundedAt(vector, i));
    }
    return saturate(area);
}

void Bounds::move(Vector* vector, int32_t dx, int32_t dy) {
    for (int32_t i = 0; i < vector->size(); i++) {
        move(boundedAt(vector, i), dx, dy);
    }
}

bool Bounds::contains(Vector* vector, int32_t x, int32_t y) {
    for (int32_t i = 0; i < vector->size(); i++) {
        if (contains(boundedAt(vector, i), x, y)) {
            return true;
        }
    }
    return false;
}

void Bounds::intersect(Vector* source, Bounded* clip, Vector* cut) {
    const int32_t count = source->size();  // so that source and cut may be the same
    for (int32_t i = 0; i < count; i++) {
        Bounds* part = alloc(boundedAt(source, i));
        intersect(part, clip);
        if (isValid(part)) {
            cut->addElement(part);
        } else {
            part->free();
        }
    }
}

void Bounds::union_(Bounded* a, Vector* vector) {
    for (int32_t i = 0; i < vector->size(); i++) {
        union_(a, boundedAt(vector, i));
    }
}

void Bounds::union_(Bounded* a, Bounded** array) {
    for (int32_t i = 0; i < length(array); i++) {
        if (array[i] != nullptr) {
            union_(a, array[i]);
        }
    }
}

void Bounds::copyInto(Vector* source, Vector* target) {
    const int32_t count = source->size();
    for (int32_t i = 0; i < count; i++) {
        target->addElement(alloc(boundedAt(source, i)));
    }
}

void Bounds::substract(Bounded* a, Bounded* b, int32_t dx, int32_t dy, Vector* out) {
    const PooledBounds rest(alloc(a));
    const PooledBounds hole(shiftedHole(b, dx, dy));
    x2y2(rest);
    const bool apart =
        hole->y > rest->h || hole->h < rest->y || hole->x > rest->w || hole->w < rest->x;
    if (apart) {
        out->addElement(alloc(a));
    } else {
        splitAround(rest, hole, out);
    }
}

void Bounds::substract(Bounded* a, Bounded* b, Vector* out) {
    substract(a, b, 0, 0, out);
}

void Bounds::substract(Vector* a, Bounded* b, int32_t dx, int32_t dy, Vector* out) {
    const int32_t count = a->size();
    for (int32_t i = 0; i < count; i++) {
        substract(boundedAt(a, i), b, dx, dy, out);
    }
}

void Bounds::substract(Vector* a, Bounded* b, Vector* out) {
    substract(a, b, 0, 0, out);
}

void Bounds::substract(Bounded* a, Vector* b, int32_t dx, int32_t dy, Vector* out) {
    Vector parts;
    Vector next;
    parts.addElement(alloc(a));
    for (int32_t i = 0; i < b->size(); i++) {
        substract(&parts, boundedAt(b, i), dx, dy, &next);
        // NOLINTNEXTLINE(clang-analyzer-unix.Malloc): back to the pool; not the library's free()
        free(&parts);
        moveInto(&next, &parts);
    }
    moveInto(&parts, out);
}

void Bounds::substract(Bounded* a, Vector* b, Vector* out) {
    substract(a, b, 0, 0, out);
}

void Bounds::substract(Vector* a, Vector* b, int32_t dx, int32_t dy, Vector* out) {
    const int32_t count = a->size();
    for (int32_t i = 0; i < count; i++) {
        substract(boundedAt(a, i), b, dx, dy, out);
    }
}

void Bounds::substract(Vector* a, Vector* b, Vector* out) {
    substract(a, b, 0, 0, out);
}

void Bounds::removeOverlapping(Vector* a, Vector* b) {
    Vector remaining;
    substract(b, a, &remaining);
    free(b);
    // NOLINTNEXTLINE(clang-analyzer-unix.Malloc): only b's elements went back to the pool
    moveInto(&remaining, b);
}

void Bounds::addAndRemoveOverlapping(Vector* target, Vector* added, Vector* scratch) {
    for (int32_t i = 0; i < added->size(); i++) {
        substract(boundedAt(added, i), target, scratch);
        moveInto(scratch, target);
    }
}
