// SPDX-License-Identifier: MIT
#include "OspGraphics.h"

#include "Kernels.h"

#include <algorithm>
#include <cstring>

namespace Osp::Graphics {

namespace {

constexpr int32_t kMaxPixels = 4096 * 4096;

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

/// The set of count rows of the display from first on; empty if count is not positive.
HostFrame::Rows rowsFrom(int32_t first, int32_t count) {
    if (count <= 0) {
        return {};
    }
    const auto others = static_cast<size_t>(HostFrame::kHeightPx - count);
    return HostFrame::Rows().set() >> others << static_cast<size_t>(first);
}

/// Doubles each pixel of a row, and writes the pair as one 32-bit word.
MURMELO_PIXEL_KERNEL void
doubleRow(const uint16_t* __restrict source, uint16_t* __restrict target, size_t sourcePixels) {
    for (size_t i = 0; i < sourcePixels; i++) {
        const uint32_t pixel = source[i];
        const uint32_t pair = pixel | (pixel << 16);
        std::memcpy(target + 2 * i, &pair, sizeof pair);
    }
}

}  // namespace

result Bitmap::Construct(const Dimension& wanted, BitmapPixelFormat format) {
    if (format != BITMAP_PIXEL_FORMAT_RGB565 || wanted.width < 1 || wanted.height < 1 ||
        wanted.width > kMaxPixels / wanted.height) {
        return E_FAILURE;
    }
    size = wanted;
    memory = std::make_shared<Memory>();
    memory->pixels.resize(static_cast<size_t>(size.width) * static_cast<size_t>(size.height));
    memory->rowVersions.resize(static_cast<size_t>(size.height));
    return E_SUCCESS;
}

result Bitmap::Lock(BufferInfo& info, int32_t /*timeoutMs*/) {
    if (memory == nullptr) {
        return E_FAILURE;
    }
    info.width = size.width;
    info.height = size.height;
    info.pitch = size.width * static_cast<int32_t>(sizeof(uint16_t));
    info.bitsPerPixel = 16;
    info.pPixels = reinterpret_cast<unsigned char*>(memory->pixels.data());
    return E_SUCCESS;
}

result Bitmap::Unlock() {
    RowMarks all(size.height);
    all.markAll();
    return Unlock(all);
}

result Bitmap::Unlock(const RowMarks& written) {
    if (memory == nullptr) {
        return E_FAILURE;
    }
    if (written.none()) {
        return E_SUCCESS;
    }
    memory->version++;
    for (RowMarks::Run run = written.next(0); run.count > 0;
         run = written.next(run.first + run.count)) {
        std::fill_n(memory->rowVersions.begin() + run.first, run.count, memory->version);
    }
    return E_SUCCESS;
}

bool Canvas::Operation::operator==(const Operation& other) const {
    return visible == other.visible && colour == other.colour && bitmap == other.bitmap &&
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
    drawing.bitmap = bitmap.GetMemory();
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
    if (coversAll && operation.bitmap == nullptr) {
        keptCount = 0;
    }
    if (keptCount == kKept) {
        auto picture = std::make_shared<Bitmap::Memory>();
        picture->pixels.resize(static_cast<size_t>(kWidthPx) * kHeightPx);
        picture->rowVersions.resize(static_cast<size_t>(kHeightPx));
        compose(picture->pixels.data(), kWidthPx * static_cast<int32_t>(sizeof(uint16_t)));
        keptCount = 0;
        const Rectangle all{0, 0, kWidthPx, kHeightPx};
        kept[keptCount++] = Operation{all, 0, std::move(picture), kWidthPx, all, all};
    }
    kept[keptCount++] = std::move(operation);
}

void Canvas::composeRows(uint16_t* pixels, int32_t strideBytes, const Rows& rows) {
    const Operation* above = nullptr;  // the only operation of the row above, if it is a bitmap
    int32_t rowAbove = 0;              // the bitmap's row that it shows
    for (int32_t y = 0; y < kHeightPx; y++) {
        if (!rows[static_cast<size_t>(y)]) {
            above = nullptr;
            continue;
        }
        uint16_t* row = pixels + static_cast<ptrdiff_t>(y) * (strideBytes / 2);
        size_t first = 0;
        const Operation* sole = soleOperation(y, first);
        if (sole == nullptr || sole->bitmap == nullptr) {
            composeRow(row, y, first);
            above = nullptr;
            continue;
        }
        const int32_t bitmapRow = sourceRow(*sole, y);
        if (sole == above && bitmapRow == rowAbove) {
            std::copy_n(row - strideBytes / 2, kWidthPx, row);
        } else {
            drawBitmapRow(*sole, row, bitmapRow);
        }
        above = sole;
        rowAbove = bitmapRow;
    }
}

/// Operations that were drawn before one that covers the whole row cannot be seen. first becomes
/// the index of the last such one.
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

/// The first row of the display that shows this row of the bitmap or a later one.
int32_t Canvas::firstRowShowing(const Operation& operation, int32_t row) {
    const int32_t lines = operation.source.height;
    const int64_t fromTop = int64_t{row - operation.source.y} * operation.destination.height;
    return operation.destination.y + static_cast<int32_t>((fromTop + lines - 1) / lines);
}

void Canvas::drawRow(const Operation& operation, uint16_t* row, int32_t y) {
    if (operation.bitmap == nullptr) {
        std::fill_n(row + operation.visible.x, operation.visible.width, operation.colour);
        return;
    }
    drawBitmapRow(operation, row, sourceRow(operation, y));
}

void Canvas::drawBitmapRow(const Operation& operation, uint16_t* row, int32_t bitmapRow) {
    const Rectangle& visible = operation.visible;
    const Rectangle& destination = operation.destination;
    const Rectangle& source = operation.source;
    const uint16_t* sourcePixels = operation.bitmap->pixels.data() +
                                   static_cast<ptrdiff_t>(bitmapRow) * operation.pixelsPerRow;
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
    Rows changed;
    if (showsOtherOperations()) {
        changed.set();
        everSeen = true;
        seen = kept;
        seenCount = keptCount;
    }
    for (size_t i = 0; i < keptCount; i++) {
        if (kept[i].bitmap != nullptr) {
            seeChanges(kept[i], seenVersion[i], changed);
            seenVersion[i] = kept[i].bitmap->version;
        }
    }
    return changed;
}

/// Adds to changed the display's rows that show rows of a bitmap drawn after seenVersion.
void Canvas::seeChanges(const Operation& operation, uint64_t seenVersion, Rows& changed) {
    if (operation.bitmap->version == seenVersion) {
        return;
    }
    const std::vector<uint64_t>& versions = operation.bitmap->rowVersions;
    const Rectangle& visible = operation.visible;
    const Rectangle& source = operation.source;
    const int32_t end = source.y + source.height;
    const auto isSeen = [&](int32_t row) {
        return versions[static_cast<size_t>(row)] <= seenVersion;
    };
    for (int32_t row = source.y; row < end; row++) {
        if (isSeen(row)) {
            continue;
        }
        int32_t next = row + 1;  // the first row after a run of changed ones
        while (next < end && !isSeen(next)) {
            next++;
        }
        const int32_t first = std::max(firstRowShowing(operation, row), visible.y);
        const int32_t last = std::min(firstRowShowing(operation, next), visible.y + visible.height);
        changed |= rowsFrom(first, last - first);
        row = next;
    }
}

}  // namespace Osp::Graphics
