// SPDX-License-Identifier: MIT
// The phone's display: a bitmap that the program paints into, and the canvas that shows it scaled.
#pragma once

#include "Host.h"
#include "OspBase.h"
#include "RowMarks.h"

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace Osp::Graphics {

struct Point {
    int32_t x = 0;
    int32_t y = 0;
};

struct Dimension {
    int32_t width = 0;
    int32_t height = 0;
};

struct Rectangle {
    int32_t x = 0;
    int32_t y = 0;
    int32_t width = 0;
    int32_t height = 0;

    bool operator==(const Rectangle& other) const {
        return x == other.x && y == other.y && width == other.width && height == other.height;
    }
};

class Color : public Osp::Base::Object {
public:
    explicit Color(uint32_t argb)
        : argb(argb) {}

    uint32_t GetRGB32() const { return argb; }

private:
    uint32_t argb;
};

/// The only format of the display and of bitmaps.
enum BitmapPixelFormat { BITMAP_PIXEL_FORMAT_RGB565 = 1 };

/// What Bitmap::Lock returns about the pixel memory.
struct BufferInfo {
    int32_t width = 0;
    int32_t height = 0;
    int32_t pitch = 0;  // bytes from row to row
    int32_t bitsPerPixel = 0;
    unsigned char* pPixels = nullptr;
};

/// Width x height 16-bit pixels, row-major, without padding; all 0 when made.
class Bitmap : public Osp::Base::Object {
public:
    /// The pixels, and for each row the version of its last change.
    struct Memory {
        std::vector<uint16_t> pixels;
        std::vector<uint64_t> rowVersions;  // for each row: version of the last drawing into it
        uint64_t version = 0;               // the highest version
    };

    result Construct(const Dimension& wanted, BitmapPixelFormat format);

    /// Returns the memory of the pixels, which stays at its address as long as the bitmap exists.
    /// The time limit is ignored.
    result Lock(BufferInfo& info, int32_t timeoutMs);

    /// Ends the drawing; any row may have changed since Lock().
    result Unlock();

    /// Ends the drawing; only these rows may have changed since Lock().
    /// @param written  made for the bitmap's number of rows
    result Unlock(const RowMarks& written);

    int32_t GetWidth() const { return size.width; }

    int32_t GetHeight() const { return size.height; }

    /// Shared, so that a canvas may outlive the bitmap that was drawn on it.
    std::shared_ptr<const Memory> GetMemory() const { return memory; }

private:
    Dimension size;
    std::shared_ptr<Memory> memory;
};

/// The 480 x 800 display.
///
/// Fills and bitmaps are only noted. Their pixels are worked out when a host reads the frame, from
/// what the bitmap holds at that time. A fill of the whole display drops everything before it.
class Canvas : public Osp::Base::Object, private HostFrame {
public:
    Canvas() = default;
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas() override;

    /// Limits later drawing to a rectangle, which is cut to the display.
    result SetClipBounds(const Rectangle& bounds);
    result FillRectangle(const Color& color, const Rectangle& bounds);

    /// Draws a part of a bitmap, scaled to the destination rectangle by repeating or leaving out
    /// pixels.
    result DrawBitmap(const Rectangle& destination, const Bitmap& bitmap, const Rectangle& source);

    /// Passes the finished frame to the host. Never waits.
    result Show();

private:
    /// A fill (no bitmap) or a bitmap.
    struct Operation {
        Rectangle visible;  // clipped, never empty
        uint16_t colour = 0;
        std::shared_ptr<const Bitmap::Memory> bitmap;
        int32_t pixelsPerRow = 0;
        Rectangle destination;
        Rectangle source;

        bool operator==(const Operation& other) const;
    };

    /// How many operations are noted: a frame of the program has two. With more, the ones so far
    /// are worked out into a bitmap.
    static constexpr size_t kKept = 8;

    void composeRows(uint16_t* pixels, int32_t strideBytes, const Rows& rows) override;
    Rows takeChanges() override;

    void keep(Operation operation);
    bool showsOtherOperations() const;
    void seeAll();
    static void seeChanges(const Operation& operation, uint64_t seenVersion, Rows& changed);
    /// The operation that alone determines all pixels of a row; null if there are several or none.
    const Operation* soleOperation(int32_t y, size_t& first) const;
    void composeRow(uint16_t* row, int32_t y, size_t first) const;
    static void drawRow(const Operation& operation, uint16_t* row, int32_t y);
    static void drawBitmapRow(const Operation& operation, uint16_t* row, int32_t bitmapRow);
    static int32_t sourceRow(const Operation& operation, int32_t y);
    static int32_t firstRowShowing(const Operation& operation, int32_t row);

    Rectangle clip{0, 0, kWidthPx, kHeightPx};
    std::array<Operation, kKept> kept;
    size_t keptCount = 0;

    std::array<Operation, kKept> seen;          // the operations at the last takeChanges()
    std::array<uint64_t, kKept> seenVersion{};  // of their bitmaps
    size_t seenCount = 0;
    bool everSeen = false;
};

}  // namespace Osp::Graphics
