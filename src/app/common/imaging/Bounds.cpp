// SPDX-License-Identifier: MIT
#include "Bounds.h"

#include "HexText.h"
#include "OspBase.h"
#include "Pooled.h"
#include "Saturating.h"
#include "Vector.h"

#include <algorithm>

using Osp::Base::String;

namespace {

/// Copies the rectangle, calls change with the copy, and writes the copy back.
template <typename Change>
void edit(Bounded* bounded, Change change) {
    const PooledBounds copy(Bounds::alloc(bounded));
    change(copy);
    bounded->setBounds(copy);
}

/// Calls read with a copy of the rectangle, and returns its result.
template <typename Read>
auto ask(Bounded* bounded, Read read) {
    const PooledBounds copy(Bounds::alloc(bounded));
    const auto result = read(copy);
    return result;
}

}  // namespace

Bounds* Bounds::firstRecycled = nullptr;
int32_t Bounds::lastCount = 0;

void Bounds::static_dtor() {
    delete firstRecycled;
    firstRecycled = nullptr;
    lastCount = 0;
}

Bounds::Bounds(int32_t x, int32_t y, int32_t w, int32_t h)
    : x(x)
    , y(y)
    , w(w)
    , h(h) {}

Bounds* Bounds::alloc() {
    return alloc(0, 0, 0, 0);
}

Bounds* Bounds::alloc(int32_t x, int32_t y) {
    return alloc(x, y, 0, 0);
}

Bounds* Bounds::alloc(int32_t x, int32_t y, int32_t w, int32_t h) {
    Bounds* bounds = firstRecycled;
    if (bounds == nullptr) {
        return new Bounds(x, y, w, h);
    }
    firstRecycled = bounds->nextRecycled;
    bounds->x = x;
    bounds->y = y;
    bounds->w = w;
    bounds->h = h;
    return bounds;
}

Bounds* Bounds::alloc(Bounds* bounds) {
    return alloc(bounds->x, bounds->y, bounds->w, bounds->h);
}

Bounds* Bounds::alloc(Bounded* bounded) {
    Bounds* bounds = alloc();
    bounded->getBounds(bounds);
    return bounds;
}

Bounds* Bounds::alloc(Vector* vector) {
    Bounds* bounds = alloc();
    union_(bounds, vector);
    return bounds;
}

Bounds* Bounds::allocX2Y2(int32_t x1, int32_t y1, int32_t x2, int32_t y2) {
    Bounds* bounds = alloc(x1, y1, x2, y2);
    wh(bounds);
    return bounds;
}

Bounds* Bounds::alloc2(int32_t top, int32_t bottom, int32_t left, int32_t right) {
    return allocX2Y2(left, top, right, bottom);
}

void Bounds::free(Vector* vector) {
    for (int32_t i = 0; i < vector->size(); i++) {
        static_cast<Bounds*>(vector->elementAt(i))->free();
    }
    vector->removeAllElements();
}

int32_t Bounds::printNumRecycled(bool sinceLast) {
    int32_t count = 0;
    for (const Bounds* bounds = firstRecycled; bounds != nullptr; bounds = bounds->nextRecycled) {
        count++;
    }
    const int32_t before = sinceLast ? lastCount : 0;
    lastCount = count;
    return count - before;
}

String* Bounds::toString() {
    auto* text = new String("Bounds ");
    text->Append(hexText(hashCode()));
    text->Append(": x = ");
    text->Append(x);
    text->Append(", y = ");
    text->Append(y);
    text->Append(", w = ");
    text->Append(w);
    text->Append(", h = ");
    text->Append(h);
    return text;
}

void Bounds::setBounds(Bounds* bounds) {
    x = bounds->x;
    y = bounds->y;
    w = bounds->w;
    h = bounds->h;
}

void Bounds::getBounds(Bounds* bounds) {
    bounds->setBounds(this);
}

void Bounds::free() {
    nextRecycled = firstRecycled;
    firstRecycled = this;
}

int32_t Bounds::getBottom() const {
    return lastOf(y, h);
}

int32_t Bounds::getRight() const {
    return lastOf(x, w);
}

void Bounds::setTop(int32_t top) {
    h = sizeOf(top, getBottom());
    y = top;
}

void Bounds::setLeft(int32_t left) {
    w = sizeOf(left, getRight());
    x = left;
}

void Bounds::setBottom(int32_t bottom) {
    h = sizeOf(y, bottom);
}

void Bounds::setRight(int32_t right) {
    w = sizeOf(x, right);
}

void Bounds::x2y2(Bounds* bounds) {
    bounds->w = lastOf(bounds->x, bounds->w);
    bounds->h = lastOf(bounds->y, bounds->h);
}

void Bounds::wh(Bounds* bounds) {
    bounds->w = sizeOf(bounds->x, bounds->w);
    bounds->h = sizeOf(bounds->y, bounds->h);
}

int32_t Bounds::get(Bounded* bounded, int32_t edge) {
    return ask(bounded, [edge](const Bounds* b) {
        switch (edge) {
        case kEdgeLeft:
            return b->getLeft();
        case kEdgeTop:
            return b->getTop();
        case kEdgeRight:
            return b->getRight();
        case kEdgeBottom:
            return b->getBottom();
        case kSizeWidth:
            return b->w;
        case kSizeHeight:
            return b->h;
        default:
            return 0;
        }
    });
}

int32_t Bounds::getWidth(Bounded* bounded) {
    return get(bounded, kSizeWidth);
}

int32_t Bounds::getHeight(Bounded* bounded) {
    return get(bounded, kSizeHeight);
}

int32_t Bounds::getArea(Bounded* bounded) {
    return ask(bounded, [](const Bounds* b) { return saturate(int64_t{b->w} * b->h); });
}

bool Bounds::isValid(Bounded* bounded) {
    return ask(bounded, [](const Bounds* b) { return b->w > 0 && b->h > 0; });
}

void Bounds::makeInvalid(Bounded* bounded) {
    setSize(bounded, 0, 0);
}

void Bounds::set(Bounded* bounded, int32_t x, int32_t y, int32_t w, int32_t h) {
    const PooledBounds bounds(alloc(x, y, w, h));
    bounded->setBounds(bounds);
}

void Bounds::set(Bounded* bounded, Bounded* source) {
    const PooledBounds bounds(alloc(source));
    bounded->setBounds(bounds);
}

void Bounds::setPos(Bounded* bounded, int32_t x, int32_t y) {
    edit(bounded, [=](Bounds* b) {
        b->x = x;
        b->y = y;
    });
}

void Bounds::setX(Bounded* bounded, int32_t x) {
    edit(bounded, [x](Bounds* b) { b->x = x; });
}

void Bounds::setY(Bounded* bounded, int32_t y) {
    edit(bounded, [y](Bounds* b) { b->y = y; });
}

void Bounds::setSize(Bounded* bounded, int32_t w, int32_t h) {
    edit(bounded, [=](Bounds* b) {
        b->w = w;
        b->h = h;
    });
}

void Bounds::setWidth(Bounded* bounded, int32_t w) {
    edit(bounded, [w](Bounds* b) { b->w = w; });
}

void Bounds::setHeight(Bounded* bounded, int32_t h) {
    edit(bounded, [h](Bounds* b) { b->h = h; });
}

void Bounds::move(Bounded* bounded, int32_t dx, int32_t dy) {
    edit(bounded, [=](Bounds* b) {
        b->x = satAdd(b->x, dx);
        b->y = satAdd(b->y, dy);
    });
}

bool Bounds::contains(Bounded* bounded, int32_t x, int32_t y) {
    return ask(bounded, [=](const Bounds* b) {
        return b->x <= x && x <= b->getRight() && b->y <= y && y <= b->getBottom();
    });
}

bool Bounds::contains(Bounded* outer, Bounded* inner) {
    return ask(outer, [inner](const Bounds* o) {
        return ask(inner, [o](const Bounds* i) {
            return o->x <= i->x && i->getRight() <= o->getRight() && o->y <= i->y &&
                   i->getBottom() <= o->getBottom();
        });
    });
}

bool Bounds::intersects(Bounded* a, Bounded* b) {
    return ask(a, [b](Bounds* shared) {
        intersect(shared, b);
        return shared->w > 0 && shared->h > 0;
    });
}

void Bounds::intersect(Bounded* a, Bounded* b) {
    const PooledBounds other(alloc(b));
    x2y2(other);
    edit(a, [&other](Bounds* shared) {
        x2y2(shared);
        shared->x = std::max(shared->x, other->x);
        shared->y = std::max(shared->y, other->y);
        shared->w = std::min(shared->w, other->w);
        shared->h = std::min(shared->h, other->h);
        wh(shared);
    });
}

void Bounds::intersect(Bounded* a, int32_t x, int32_t y) {
    const PooledBounds pixel(alloc(x, y, 1, 1));
    intersect(a, pixel);
}

void Bounds::union_(Bounded* a, Bounded* b) {
    if (!isValid(a)) {
        set(a, b);
        return;
    }
    const PooledBounds other(alloc(b));
    x2y2(other);
    edit(a, [&other](Bounds* box) {
        x2y2(box);
        box->x = std::min(box->x, other->x);
        box->y = std::min(box->y, other->y);
        box->w = std::max(box->w, other->w);
        box->h = std::max(box->h, other->h);
        wh(box);
    });
}

bool Bounds::equals(Bounded* a, Bounded* b) {
    return ask(a, [b](const Bounds* first) {
        return ask(b, [first](const Bounds* second) {
            return first->x == second->x && first->y == second->y && first->w == second->w &&
                   first->h == second->h;
        });
    });
}
