// SPDX-License-Identifier: MIT
// An image of 32-bit ARGB words and all arithmetic on its pixels.
//
// Alpha in bits 24..31, red 16..23, green 8..15, blue 0..7. Rows follow one another without
// padding: pixel (x, y) is element x + w * y. Every blend expects premultiplied colours; nothing
// saturates.
//
// Nothing here clips: rectangles must lie inside both images (ImageOps clips first). Rectangles
// without a pixel do nothing. The rectangle operations call one another through their virtual
// slots, so a derived class that overrides one changes all that are built on it.
#pragma once

#include "Array.h"
#include "GnoObject.h"
#include "RowMarks.h"

#include <cstddef>
#include <cstdint>

class PixProps;

class AppImage : public GnoObject {
public:
    /// The words, for reading. To write them, call writableRows(): it notes which rows change.
    class Pixels {
    public:
        const uint32_t* get() const { return words; }

        // NOLINTNEXTLINE(google-explicit-constructor): can be used like the array itself
        operator const uint32_t*() const { return words; }

    private:
        friend class AppImage;
        Array<uint32_t> words;
    };

    /// Empty: no size, no pixels.
    AppImage() = default;

    /// The pixels may have any values.
    AppImage(int32_t w, int32_t h);
    AppImage(int32_t w, int32_t h, uint32_t argb);

    /// Copies size and pixels, but not opaque.
    explicit AppImage(AppImage* source);

    Osp::Base::String* toString() override;
    ~AppImage() override;

    /// Keeps the array and its contents when the number of pixels stays the same.
    /// Deliberate: a size below 1 x 1 leaves the image empty and does not free its old array: it
    /// belongs to the caller that still has the pointer. More pixels than an array can count
    /// (kMaxArrayLength) leave the image empty too, but free the array.
    virtual void allocate(int32_t w, int32_t h);

    /// Straight to premultiplied colours: ((alpha + 1) * channel) >> 8.
    /// Deliberate: not the rule of premult(argb), which divides by 255: loaded pictures and colours
    /// in the code were matched to each other with these two rules.
    virtual void premult();

    /// Premultiplied to straight colours, 255 * channel / alpha truncated; alpha 0 and 255 stay. A
    /// channel above its alpha, which no premultiplied picture has, keeps only the low eight bits.
    virtual void unpremult();

    /// From now on marks every row that may have changed; at first marks all rows.
    /// @param marks  made for the image's number of rows, not owned; null: ends the marking
    void watchRows(Osp::Graphics::RowMarks* marks);

    /// The first pixel of row y, for writing that many rows from there on, which count as changed.
    uint32_t* writableRows(int32_t y, int32_t count) {
        if (written != nullptr) {
            written->mark(y, count);
        }
        return pixels.words + ptrdiff_t{w} * y;
    }

    virtual uint32_t get(int32_t x, int32_t y);
    virtual void set(uint32_t argb, int32_t x, int32_t y);
    virtual void blend(uint32_t argb, int32_t x, int32_t y);
    virtual void set(uint32_t argb);
    virtual void set(uint32_t argb, int32_t x, int32_t y, int32_t w, int32_t h);

    /// Copies w x h pixels from (sx, sy) to (dx, dy).
    virtual void
    set(AppImage* src, int32_t sx, int32_t sy, int32_t w, int32_t h, int32_t dx, int32_t dy);
    virtual void set(AppImage* src, int32_t dx, int32_t dy);

    /// Copies all pixels; the sizes must be equal.
    virtual void set(AppImage* src);

    virtual void blend(uint32_t argb, int32_t x, int32_t y, int32_t w, int32_t h);
    virtual void blend(uint32_t argb, int32_t x, int32_t y, int32_t w, int32_t h, PixProps* props);

    /// A plain copy when src is opaque.
    virtual void
    blend(AppImage* src, int32_t sx, int32_t sy, int32_t w, int32_t h, int32_t dx, int32_t dy);

    /// @param opacity  256 and above is the plain blend, 0 and below nothing.
    /// Deliberate: 1..255 uses src's alpha even if src is marked opaque.
    virtual void blend(AppImage* src,
                       int32_t sx,
                       int32_t sy,
                       int32_t w,
                       int32_t h,
                       int32_t dx,
                       int32_t dy,
                       int32_t opacity);
    virtual void blend(AppImage* src,
                       int32_t sx,
                       int32_t sy,
                       int32_t w,
                       int32_t h,
                       int32_t dx,
                       int32_t dy,
                       PixProps* props);

    /// Blends the colour, modified by props, through the alpha of the mask: how glyphs are
    /// coloured.
    virtual void blend(uint32_t argb,
                       AppImage* mask,
                       int32_t sx,
                       int32_t sy,
                       int32_t w,
                       int32_t h,
                       int32_t dx,
                       int32_t dy,
                       PixProps* props);

    /// Multiplies each channel by alpha / 255, truncated.
    static uint32_t premult(uint32_t argb);

    /// All four channels of c0 at t = 0 to those of c1 at t = 256.
    static uint32_t argbLerp(uint32_t c0, uint32_t c1, int32_t t);

    /// All four channels times opacity / 256; unchanged above 255.
    static uint32_t scaleOpacity(uint32_t argb, int32_t opacity);

    /// Towards black below 256, towards premultiplied white above, reached at 512.
    static uint32_t scaleLightness(uint32_t argb, int32_t lightness);

    /// Grey at 0, unchanged at 256; above that stronger, and channels may overflow.
    static uint32_t scaleSaturation(uint32_t argb, int32_t saturation);

    /// Lightness, then saturation, then opacity. Null props change nothing.
    static uint32_t applyProps(uint32_t argb, PixProps* props);

    /// Source-over of s on d, written to dst[i].
    static void blend(uint32_t* dst, int32_t i, uint32_t d, uint32_t s);

    /// The same with an extra opacity of 1..255.
    static void blend(uint32_t* dst, int32_t i, uint32_t d, uint32_t s, int32_t opacity);

    /// The weighted sum of two pixels given as channel pairs (rb as 0x00RR00BB, ag as 0x00AA00GG),
    /// 256 being a weight of 1.
    static void blend(uint32_t* dst,
                      int32_t i,
                      uint32_t rbA,
                      uint32_t agA,
                      uint32_t rbB,
                      uint32_t agB,
                      int32_t fA,
                      int32_t fB);

    int32_t w = 0;        // px
    int32_t h = 0;        // px
    Pixels pixels;        // w * h words
    bool opaque = false;  // no pixel is transparent: plain blends copy the pixels

private:
    void dynamic_dtor();

    Osp::Graphics::RowMarks* written = nullptr;  // not owned; null: rows are not marked
};
