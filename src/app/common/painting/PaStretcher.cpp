// SPDX-License-Identifier: MIT
#include "PaStretcher.h"

#include "AppImage.h"
#include "ArrFunc.h"
#include "Bounds.h"
#include "ImageOps.h"
#include "OspBase.h"
#include "PixProps.h"
#include "Pooled.h"
#include "Res.h"
#include "StrUtils.h"

#include <algorithm>

namespace {

constexpr int32_t kNumbers = 2;
constexpr int32_t kColumns = 3;
constexpr int32_t kMiddle = 1;  // column or row of the stretched parts

/// One direction of the nine parts: where each of the three begins and how long it is.
struct Thirds {
    int32_t begin[kColumns];
    int32_t size[kColumns];
};

/// @param split  index of the pixel to be stretched, in a picture of length pixels
Thirds cut(int32_t split, int32_t length, int32_t target) {
    const int32_t near = std::clamp(target, 0, split);
    const int32_t far = std::clamp(target - near, 0, length - 1 - split);
    const int32_t middle = std::max(0, target - near - far);
    return {{0, near, near + middle}, {near, middle, far}};
}

}  // namespace

PaStretcher::PaStretcher()
    : imageId(Res::Null) {
    for (std::unique_ptr<Bounds>& part : parts) {
        part = std::make_unique<Bounds>();
    }
}

PaStretcher::~PaStretcher() = default;

AppImage* PaStretcher::picture() const {
    AppImage* image = Res::getImage(imageId);
    return image != nullptr && image->w > 0 && image->h > 0 ? image : nullptr;
}

void PaStretcher::set(String* path, bool premultiply, bool opaque) {
    setImage(Res::addImage(path, premultiply, opaque));
    const Array<int32_t> numbers(newArray<int32_t>(kNumbers));
    const AppImage* image = picture();
    if (image != nullptr && StrUtils::parseInts(path, numbers) == kNumbers && numbers[0] >= 0 &&
        numbers[0] <= image->w && numbers[1] >= 0 && numbers[1] <= image->h) {
        splitX = numbers[0];
        splitY = numbers[1];
        updateSubBounds();
    }
}

void PaStretcher::set(const char* path, bool premultiply, bool opaque) {
    String text(path);
    set(&text, premultiply, opaque);
}

void PaStretcher::setImage(int32_t id) {
    const AppImage* image = Res::getImage(id);
    setImage(id, image != nullptr ? image->w / 2 : 0, image != nullptr ? image->h / 2 : 0);
}

void PaStretcher::setImage(int32_t id, int32_t splitX, int32_t splitY) {
    imageId = id;
    this->splitX = splitX;
    this->splitY = splitY;
    const AppImage* image = picture();
    bounds->w = image != nullptr ? image->w : 0;
    bounds->h = image != nullptr ? image->h : 0;
    updateSubBounds();
}

int32_t PaStretcher::getStretchRow() const {
    const AppImage* image = picture();
    return image != nullptr ? std::clamp(splitY, 0, image->h - 1) : 0;
}

int32_t PaStretcher::getStretchColumn() const {
    const AppImage* image = picture();
    return image != nullptr ? std::clamp(splitX, 0, image->w - 1) : 0;
}

void PaStretcher::setBounds(Bounds* source) {
    AbstractPainter::setBounds(source);
    updateSubBounds();
}

void PaStretcher::refresh() {
    updateSubBounds();
}

void PaStretcher::updateSubBounds() {
    const AppImage* image = picture();
    if (image == nullptr) {
        return;
    }
    const Thirds columns = cut(getStretchColumn(), image->w, bounds->w);
    const Thirds rows = cut(getStretchRow(), image->h, bounds->h);
    for (int32_t part = 0; part < kParts; part++) {
        const int32_t column = part % kColumns;
        const int32_t row = part / kColumns;
        Bounds::set(parts[part].get(), columns.begin[column], rows.begin[row], columns.size[column],
                    rows.size[row]);
    }
}

void PaStretcher::paintOn(AppImage* dst, int32_t x, int32_t y, Bounded* clip, PixProps* inherited) {
    AppImage* image = picture();
    if (image == nullptr) {
        return;
    }
    const PooledPixProps combined(PixProps::alloc(props.get(), inherited));
    for (int32_t part = 0; part < kParts; part++) {
        const PooledBounds target(Bounds::alloc(parts[part].get()));
        Bounds::move(target, x + bounds->x, y + bounds->y);
        if (Bounds::isValid(target)) {
            paintPart(part, dst, image, target, clip, combined);
        }
    }
}

void PaStretcher::paintPart(int32_t part,
                            AppImage* dst,
                            AppImage* image,
                            Bounds* target,
                            Bounded* clip,
                            PixProps* combined) const {
    const int32_t column = part % kColumns;
    const int32_t row = part / kColumns;
    // The first pixel of the picture that the part shows. A cut right or bottom part keeps its
    // outer edge, so that a frame stays closed.
    const int32_t splitXs[] = {0, getStretchColumn(), image->w - target->w};
    const int32_t splitYs[] = {0, getStretchRow(), image->h - target->h};
    const int32_t sx = splitXs[column];
    const int32_t sy = splitYs[row];
    if (column == kMiddle && row == kMiddle) {
        ImageOps::blend(dst, image->get(sx, sy), target->x, target->y, target->w, target->h, clip,
                        combined);
    } else if (column == kMiddle || row == kMiddle) {
        ImageOps::blendStretched(dst, image, sx, sy, column == kMiddle, target, clip, combined);
    } else {
        const PooledBounds corner(Bounds::alloc(target));
        Bounds::intersect(corner, clip);
        ImageOps::blend(dst, image, target->x - sx, target->y - sy, corner, combined);
    }
}
