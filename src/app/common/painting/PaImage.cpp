// SPDX-License-Identifier: MIT
#include "PaImage.h"

#include "AppImage.h"
#include "ArrFunc.h"
#include "Bounds.h"
#include "ImageOps.h"
#include "OspBase.h"
#include "PixProps.h"
#include "Res.h"
#include "StrUtils.h"

namespace {

constexpr int32_t kMaxNumbers = 8;
constexpr int32_t kPlacement = 4;  // x, y, width, height

}  // namespace

PaImage::PaImage()
    : imageId(Res::Null) {}

void PaImage::setImage(int32_t id) {
    imageId = id;
    refresh();
}

void PaImage::refresh() {
    Res::getImageSize(imageId, bounds->w, bounds->h);
}

void PaImage::setPos(int32_t x, int32_t y) {
    bounds->x = x;
    bounds->y = y;
}

void PaImage::set(int32_t id, int32_t x, int32_t y) {
    setImage(id);
    setPos(x, y);
}

void PaImage::set(String* path, bool premultiply, bool opaque) {
    setImage(Res::addImage(path, premultiply, opaque));
    const Array<int32_t> numbers(newArray<int32_t>(kMaxNumbers));
    const int32_t count = StrUtils::parseInts(path, numbers);
    if (count == kPlacement || count == kPlacement + 1) {
        const int32_t* placement = numbers + (count - kPlacement);
        if (placement[2] == bounds->w && placement[3] == bounds->h) {
            setPos(placement[0], placement[1]);
        }
    }
}

void PaImage::set(const char* path, bool premultiply, bool opaque) {
    String text(path);
    set(&text, premultiply, opaque);
}

void PaImage::paintOn(AppImage* dst, int32_t x, int32_t y, Bounded* clip, PixProps* inherited) {
    if (imageId == Res::Null) {
        return;
    }
    // Deliberate: deleted, not given back to the pool. A frame has few pictures and many texts: the
    // pool stays as large as the deepest nesting of arrays needs it.
    const std::unique_ptr<PixProps> combined(PixProps::alloc());
    combined->set(props.get(), inherited);
    AppImage* image = Res::getImage(imageId);
    if (image != nullptr) {
        ImageOps::blend(dst, image, x + bounds->x, y + bounds->y, clip, combined.get());
    }
}
