// SPDX-License-Identifier: MIT
#include "PaColor.h"

#include "AppImage.h"
#include "Bounds.h"
#include "Pooled.h"

void PaColor::paintOn(AppImage* dst, int32_t x, int32_t y, Bounded* clip, PixProps* inherited) {
    const PooledBounds r(Bounds::alloc(bounds.get()));
    const PooledBounds area(Bounds::alloc(0, 0, dst->w, dst->h));
    Bounds::move(r, x, y);
    Bounds::intersect(r, clip);
    Bounds::intersect(r, area);
    if (Bounds::isValid(r)) {
        dst->blend(argb, r->x, r->y, r->w, r->h, inherited);
    }
}
