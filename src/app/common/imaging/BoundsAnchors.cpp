// SPDX-License-Identifier: MIT
// Anchors, edges and directions of Bounds.
#include "Bounds.h"
#include "Point.h"
#include "Pooled.h"
#include "Saturating.h"
#include "Vector.h"

#include <array>

namespace {

constexpr int32_t kHorizontal = Bounds::kLeft | Bounds::kRight;

// Row by row from the top left.
constexpr std::array<int32_t, 9> kAnchors = {Bounds::kTop | Bounds::kLeft,
                                             Bounds::kTop | Bounds::kCentre,
                                             Bounds::kTop | Bounds::kRight,
                                             Bounds::kLeft | Bounds::kCentre,
                                             Bounds::kCentre,
                                             Bounds::kRight | Bounds::kCentre,
                                             Bounds::kBottom | Bounds::kLeft,
                                             Bounds::kBottom | Bounds::kCentre,
                                             Bounds::kBottom | Bounds::kRight};

int32_t oppositeOf(int32_t direction) {
    switch (direction) {
    case Bounds::kTop:
        return Bounds::kBottom;
    case Bounds::kBottom:
        return Bounds::kTop;
    case Bounds::kLeft:
        return Bounds::kRight;
    default:
        return Bounds::kLeft;
    }
}

/// How far b's point lies beyond a's in the direction, in pixels; negative on the other side.
int64_t beyond(Bounded* a, int32_t anchorA, Bounded* b, int32_t anchorB, int32_t direction) {
    const PooledPoint from(Point::alloc());
    const PooledPoint to(Point::alloc());
    Bounds::getPoint(from, a, anchorA);
    Bounds::getPoint(to, b, anchorB);
    const int64_t dx = int64_t{to->x} - from->x;
    const int64_t dy = int64_t{to->y} - from->y;
    const int64_t way = (direction & kHorizontal) != 0 ? dx : dy;
    return (direction & (Bounds::kTop | Bounds::kLeft)) != 0 ? -way : way;
}

bool shareRowOrColumn(Bounds* a, Bounds* b, int32_t direction) {
    if ((direction & kHorizontal) != 0) {
        return a->getTop() <= b->getBottom() && b->getTop() <= a->getBottom();
    }
    return a->getLeft() <= b->getRight() && b->getLeft() <= a->getRight();
}

bool counts(Bounds* from, Bounded* candidate, int32_t direction, bool aligned, bool touching) {
    const PooledBounds to(Bounds::alloc(candidate));
    bool inDirection = beyond(from, direction, to, oppositeOf(direction), direction) > 0;
    if (touching && Bounds::intersects(from, to)) {
        inDirection = beyond(from, Bounds::kCentre, to, Bounds::kCentre, direction) > 0;
    }
    const bool result = inDirection && (!aligned || shareRowOrColumn(from, to, direction));
    return result;
}

/// The nearest (or farthest) element that counts, without bounded itself.
Bounded* search(Bounded* bounded,
                Vector* vector,
                int32_t direction,
                bool aligned,
                bool touching,
                bool farthest) {
    const PooledBounds from(Bounds::alloc(bounded));
    Bounded* best = nullptr;
    double bestDistance = 0;
    for (int32_t i = 0; i < vector->size(); i++) {
        auto* element = static_cast<Bounded*>(vector->elementAt(i));
        if (element == bounded || !counts(from, element, direction, aligned, touching)) {
            continue;
        }
        const double distance = Bounds::getDistance(from, direction | Bounds::kCentre, element,
                                                    oppositeOf(direction) | Bounds::kCentre);
        if (best == nullptr || (farthest ? distance > bestDistance : distance < bestDistance)) {
            best = element;
            bestDistance = distance;
        }
    }
    return best;
}

}  // namespace

void Bounds::setEdges(Bounded* bounded, int32_t left, int32_t top, int32_t right, int32_t bottom) {
    const PooledBounds bounds(allocX2Y2(left, top, right, bottom));
    bounded->setBounds(bounds);
}

void Bounds::setEdges(Bounded* bounded, int32_t anchor, int32_t x, int32_t y) {
    const PooledBounds bounds(alloc(bounded));
    if ((anchor & kLeft) != 0) {
        bounds->setLeft(x);
    }
    if ((anchor & kTop) != 0) {
        bounds->setTop(y);
    }
    if ((anchor & kRight) != 0) {
        bounds->setRight(x);
    }
    if ((anchor & kBottom) != 0) {
        bounds->setBottom(y);
    }
    bounded->setBounds(bounds);
}

void Bounds::setEdges(Bounded* bounded,
                      int32_t anchor,
                      Bounded* reference,
                      int32_t referenceAnchor,
                      int32_t dx,
                      int32_t dy) {
    const PooledPoint point(Point::alloc());
    getPoint(point, reference, referenceAnchor);
    setEdges(bounded, anchor, satAdd(point->x, dx), satAdd(point->y, dy));
}

void Bounds::moveEdges(Bounded* bounded, int32_t anchor, int32_t dx, int32_t dy) {
    const PooledBounds bounds(alloc(bounded));
    x2y2(bounds);
    if ((anchor & kLeft) != 0) {
        bounds->x = satAdd(bounds->x, dx);
    }
    if ((anchor & kTop) != 0) {
        bounds->y = satAdd(bounds->y, dy);
    }
    if ((anchor & kRight) != 0) {
        bounds->w = satAdd(bounds->w, dx);
    }
    if ((anchor & kBottom) != 0) {
        bounds->h = satAdd(bounds->h, dy);
    }
    wh(bounds);
    bounded->setBounds(bounds);
}

void Bounds::setPos(Bounded* bounded, int32_t anchor, int32_t x, int32_t y) {
    const PooledBounds bounds(alloc(bounded));
    if ((anchor & kCentre) != 0) {
        bounds->x = satSub(x, bounds->w >> 1);
        bounds->y = satSub(y, bounds->h >> 1);
    }
    if ((anchor & kLeft) != 0) {
        bounds->x = x;
    } else if ((anchor & kRight) != 0) {
        bounds->x = saturate(int64_t{x} - bounds->w + 1);
    }
    if ((anchor & kTop) != 0) {
        bounds->y = y;
    } else if ((anchor & kBottom) != 0) {
        bounds->y = saturate(int64_t{y} - bounds->h + 1);
    }
    bounded->setBounds(bounds);
}

void Bounds::setPos(Bounded* bounded,
                    int32_t anchor,
                    Bounded* reference,
                    int32_t referenceAnchor,
                    int32_t dx,
                    int32_t dy) {
    const PooledPoint point(Point::alloc());
    getPoint(point, reference, referenceAnchor);
    setPos(bounded, anchor, satAdd(point->x, dx), satAdd(point->y, dy));
}

void Bounds::getPoint(Point* point, Bounded* bounded, int32_t anchor) {
    const PooledBounds bounds(alloc(bounded));
    if ((anchor & kCentre) != 0) {
        point->x = satAdd(bounds->x, bounds->w >> 1);
        point->y = satAdd(bounds->y, bounds->h >> 1);
    }
    if ((anchor & kTop) != 0) {
        point->y = bounds->getTop();
    }
    if ((anchor & kBottom) != 0) {
        point->y = bounds->getBottom();
    }
    if ((anchor & kLeft) != 0) {
        point->x = bounds->getLeft();
    }
    if ((anchor & kRight) != 0) {
        point->x = bounds->getRight();
    }
}

int32_t Bounds::getClosestAnchor(Bounded* bounded, int32_t x, int32_t y) {
    const PooledBounds pixel(alloc(x, y, 1, 1));
    int32_t best = kAnchors[0];
    double bestDistance = getDistance(bounded, best, pixel, kTop | kLeft);
    for (const int32_t anchor : kAnchors) {
        const double distance = getDistance(bounded, anchor, pixel, kTop | kLeft);
        if (distance < bestDistance) {
            best = anchor;
            bestDistance = distance;
        }
    }
    return best;
}

double Bounds::getDistance(Bounded* a, int32_t anchorA, Bounded* b, int32_t anchorB) {
    const PooledPoint from(Point::alloc());
    const PooledPoint to(Point::alloc());
    getPoint(from, a, anchorA);
    getPoint(to, b, anchorB);
    const double distance = Point::getDistance(from, to);
    return distance;
}

Bounded* Bounds::getClosestNeighbour(
    Bounded* bounded, Vector* vector, int32_t direction, bool aligned, bool touching, bool wrap) {
    Bounded* nearest = search(bounded, vector, direction, aligned, touching, false);
    if (nearest == nullptr && wrap) {
        nearest = search(bounded, vector, oppositeOf(direction), aligned, touching, true);
    }
    return nearest;
}
