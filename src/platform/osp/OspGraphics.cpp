#include "OspGraphics.h"

#include <algorithm>
#include <cstring>

namespace Osp::Graphics {

namespace {

constexpr int32_t kMostPixels = 4096 * 4096;

uint16_t toRgb565(uint32_t argb) {
    return static_cast<uint16_t>(((argb & 0xF80000) >> 8) | ((argb & 0xFC00) >> 5) |
                                 ((argb >> 3) & 0x1F));
}

Rectangle intersection(const Rectangle& a, const Rectangle& b) {
    const int32_t left = std::max(a.x, b.x);
    const int32_t top = std::max(a.y, b.y);
    const int32_t right = std::min(a.x + a.width, b.x + b.width);
    const int32_t bottom = std::min(a.y + a.height, b.y + b.height);
    return {left, top, std::max(right - left, 0), std::max(bottom - top, 0)};
}

bool isEmpty(const Rectangle& r) {
    return r.width <= 0 || r.height <= 0;
}

/// Two equal pixels for each source pixel, written as whole words.
void doubleRow(const uint16_t* __restrict source,
               uint16_t* __restrict target,
               size_t sourcePixels) {
    for (size_t i = 0; i < sourcePixels; i++) {
        const uint32_t pixel = source[i];
        const uint32_t pair = pixel | (pixel << 16);
        std::memcpy(target + 2 * i, &pair, sizeof pair);
    }
}

}  // namespace

result Bitmap::Construct(const Dimension& wanted, BitmapPixelFormat format) {
    if (format != BITMAP_PIXEL_FORMAT_RGB565 || wanted.width < 1 || wanted.height < 1 ||
        wanted.width > kMostPixels / wanted.height) {
        return E_FAILURE;
    }
    size = wanted;
    pixels = std::make_shared<Pixels>(static_cast<size_t>(size.width) *
                                      static_cast<size_t>(size.height));
    return E_SUCCESS;
}

result Bitmap::Lock(BufferInfo& info, int32_t /*timeoutMs*/) {
    if (pixels == nullptr) {
        return E_FAILURE;
    }
    info.width = size.width;
    info.height = size.height;
    info.pitch = size.width * static_cast<int32_t>(sizeof(uint16_t));
    info.bitsPerPixel = 16;
    info.pPixels = reinterpret_cast<unsigned char*>(pixels->data());
    return E_SUCCESS;
}

bool Canvas::Operation::operator==(const Operation& other) const {
    return visible == other.visible && colour == other.colour && pixels == other.pixels &&
           destination == other.destination && source == other.source;
}

Canvas::~Canvas() {
    Host::current().frameShown(nullptr);
}

result Canvas::SetClipBounds(const Rectangle& bounds) {
    clip = intersection(bounds, {0, 0, kWidthPx, kHeightPx});
    return E_SUCCESS;
}

result Canvas::FillRectangle(const Color& color, const Rectangle& bounds) {
    Operation fill;
    fill.visible = intersection(bounds, clip);
    fill.colour = toRgb565(color.GetRGB32());
    keep(std::move(fill));
    return E_SUCCESS;
}

result
Canvas::DrawBitmap(const Rectangle& destination, const Bitmap& bitmap, const Rectangle& source) {
    const bool sourceInside =
        !isEmpty(source) &&
        intersection(source, {0, 0, bitmap.GetWidth(), bitmap.GetHeight()}) == source;
    if (!sourceInside || isEmpty(destination)) {
        return E_FAILURE;
    }
    Operation drawing;
    drawing.visible = intersection(destination, clip);
    drawing.pixels = bitmap.GetPixels();
    drawing.pixelsPerRow = bitmap.GetWidth();
    drawing.destination = destination;
    drawing.source = source;
    keep(std::move(drawing));
    return E_SUCCESS;
}

result Canvas::Show() {
    if (hostFails("Canvas.Show")) {
        return E_FAILURE;
    }
    Host::current().frameShown(this);
    return E_SUCCESS;
}

void Canvas::keep(Operation operation) {
    if (isEmpty(operation.visible)) {
        return;
    }
    const bool coversAll = operation.visible == Rectangle{0, 0, kWidthPx, kHeightPx};
    if (coversAll && operation.pixels == nullptr) {
        keptCount = 0;
    }
    if (keptCount == kKept) {
        auto picture = std::make_shared<Bitmap::Pixels>(static_cast<size_t>(kWidthPx) * kHeightPx);
        compose(picture->data(), kWidthPx * static_cast<int32_t>(sizeof(uint16_t)));
        keptCount = 0;
        const Rectangle all{0, 0, kWidthPx, kHeightPx};
        kept[keptCount++] = Operation{all, 0, std::move(picture), kWidthPx, all, all};
    }
    kept[keptCount++] = std::move(operation);
}

void Canvas::composeRows(uint16_t* pixels, int32_t strideBytes, const Rows& rows) {
    const Operation* above = nullptr;  // what drew the row above, all by itself
    for (int32_t y = 0; y < kHeightPx; y++) {
        if (!rows[static_cast<size_t>(y)]) {
            above = nullptr;
            continue;
        }
        uint16_t* row = pixels + static_cast<ptrdiff_t>(y) * (strideBytes / 2);
        size_t first = 0;
        const Operation* sole = soleOperation(y, first);
        if (above != nullptr && above == sole && above->pixels != nullptr &&
            sourceRow(*above, y) == sourceRow(*above, y - 1)) {
            std::copy_n(row - strideBytes / 2, above->visible.width, row);
        } else {
            composeRow(row, y, first);
        }
        above = sole;
    }
}

/// What lies below an operation that covers the whole row is never seen: first becomes the
/// uppermost such one.
const Canvas::Operation* Canvas::soleOperation(int32_t y, size_t& first) const {
    const Operation* sole = nullptr;
    for (size_t i = 0; i < keptCount; i++) {
        const Rectangle& visible = kept[i].visible;
        if (y < visible.y || y >= visible.y + visible.height) {
            continue;
        }
        sole = nullptr;
        if (visible.width == kWidthPx) {
            first = i;
            sole = &kept[i];
        }
    }
    return sole;
}

void Canvas::composeRow(uint16_t* row, int32_t y, size_t first) const {
    const bool covered = keptCount > 0 && kept[first].visible.width == kWidthPx &&
                         y >= kept[first].visible.y &&
                         y < kept[first].visible.y + kept[first].visible.height;
    if (!covered) {
        std::fill(row, row + kWidthPx, uint16_t{0});
    }
    for (size_t i = first; i < keptCount; i++) {
        const Rectangle& visible = kept[i].visible;
        if (y >= visible.y && y < visible.y + visible.height) {
            drawRow(kept[i], row, y);
        }
    }
}

int32_t Canvas::sourceRow(const Operation& operation, int32_t y) {
    return operation.source.y +
           (y - operation.destination.y) * operation.source.height / operation.destination.height;
}

void Canvas::drawRow(const Operation& operation, uint16_t* row, int32_t y) {
    const Rectangle& visible = operation.visible;
    if (operation.pixels == nullptr) {
        std::fill(row + visible.x, row + visible.x + visible.width, operation.colour);
        return;
    }
    const Rectangle& destination = operation.destination;
    const Rectangle& source = operation.source;
    const uint16_t* sourcePixels =
        operation.pixels->data() +
        static_cast<ptrdiff_t>(sourceRow(operation, y)) * operation.pixelsPerRow;
    const bool whole = visible.x == destination.x && visible.width == destination.width;
    if (whole && destination.width == 2 * source.width) {
        doubleRow(sourcePixels + source.x, row + visible.x, static_cast<size_t>(source.width));
        return;
    }
    for (int32_t x = visible.x; x < visible.x + visible.width; x++) {
        row[x] = sourcePixels[source.x + (x - destination.x) * source.width / destination.width];
    }
}

bool Canvas::showsOtherOperations() const {
    return !everSeen || !std::equal(kept.begin(), kept.begin() + keptCount, seen.begin(),
                                    seen.begin() + seenCount);
}

HostFrame::Rows Canvas::takeChanges() {
    if (showsOtherOperations()) {
        seeAll();
        return Rows().set();
    }
    Rows changed;
    auto seenBitmap = seenPixels.begin();
    for (size_t i = 0; i < keptCount; i++) {
        if (kept[i].pixels != nullptr) {
            seeChanges(kept[i], seenBitmap, changed);
            seenBitmap += static_cast<ptrdiff_t>(kept[i].pixels->size());
        }
    }
    return changed;
}

void Canvas::seeAll() {
    everSeen = true;
    seen = kept;
    seenCount = keptCount;
    seenPixels.clear();
    for (size_t i = 0; i < keptCount; i++) {
        if (kept[i].pixels != nullptr) {
            seenPixels.insert(seenPixels.end(), kept[i].pixels->begin(), kept[i].pixels->end());
        }
    }
}

/// Adds the display's rows that show a bitmap's row with another pixel than it had when it was seen
/// last.
void Canvas::seeChanges(const Operation& operation,
                        Bitmap::Pixels::iterator seenBitmap,
                        Rows& changed) {
    const Rectangle& visible = operation.visible;
    int32_t above = -1;  // the bitmap's row that the row above shows
    bool differs = false;
    for (int32_t y = visible.y; y < visible.y + visible.height; y++) {
        const int32_t row = sourceRow(operation, y);
        if (row != above) {
            const ptrdiff_t at =
                static_cast<ptrdiff_t>(row) * operation.pixelsPerRow + operation.source.x;
            const auto pixels = operation.pixels->begin() + at;
            const auto pixelsEnd = pixels + operation.source.width;
            differs = !std::equal(pixels, pixelsEnd, seenBitmap + at);
            if (differs) {
                std::copy(pixels, pixelsEnd, seenBitmap + at);
            }
        }
        above = row;
        changed[static_cast<size_t>(y)] = changed[static_cast<size_t>(y)] || differs;
    }
}

}  // namespace Osp::Graphics
