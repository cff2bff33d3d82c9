// SPDX-License-Identifier: MIT
// A painter made of painters on top of one another: slot 0 is the lowest, the last slot the
// uppermost.
//
// A slot may be null, which paints nothing. The painters' positions are relative to the array's
// rectangle; the array does not own them. Its modifiers are passed on to them; it does not clip to
// its size.
#pragma once

#include "Array.h"
#include "Painter.h"

#include <memory>

class PainterArray : public Painter {
public:
    /// No slots.
    PainterArray();

    /// Empty slots.
    explicit PainterArray(int32_t slots);

    /// @param slots  counted array, owned from now on
    explicit PainterArray(Painter** slots);
    ~PainterArray() override;

    void getBounds(Bounds* target) override;
    void setBounds(Bounds* source) override;

    /// Paints all slots, from the lowest up.
    void paintOn(AppImage* dst, int32_t x, int32_t y, Bounded* clip, PixProps* inherited) override;

    /// Refreshes all painters.
    void refresh() override;

    PixProps* getPixProps() override { return props.get(); }

    void setPixProps(PixProps* source) override;

    /// The counted array itself; owned by this object.
    virtual Painter** getPainters() { return slots; }

    /// Null outside the array.
    virtual Painter* getPainter(int32_t index);

    /// The nearest painter below (above) a slot, leaving out empty ones; null if there is none.
    virtual Painter* getFirstBelow(int32_t index);
    virtual Painter* getFirstAbove(int32_t index);

    /// The lowest (highest) painter; null if all slots are empty.
    virtual Painter* getBottomPainter();
    virtual Painter* getTopPainter();

    /// Does nothing if the index is outside the array.
    virtual void setPainter(int32_t index, Painter* painter);

    /// Empty the slot, or the lowest one that holds the painter.
    virtual void removePainter(int32_t index);
    virtual void removePainter(Painter* painter);

    /// Removes all slots.
    virtual void removeAllPainters();

    /// The lowest slot that holds the painter, -1 if none does.
    virtual int32_t getIndexOf(Painter* painter);
    virtual bool outOfBounds(int32_t index);

    /// The nearest index inside the array; 0 for an array without slots.
    virtual int32_t clamp(int32_t index);

    /// Paints from a slot to the uppermost one.
    virtual void
    paintOn(int32_t from, AppImage* dst, int32_t x, int32_t y, Bounded* clip, PixProps* inherited);

    /// Paints from one slot to another, both included and clamped to the array; nothing if from >
    /// to.
    virtual void paintOn(int32_t from,
                         int32_t to,
                         AppImage* dst,
                         int32_t x,
                         int32_t y,
                         Bounded* clip,
                         PixProps* inherited);

    /// A new array with the same painters, rectangle and modifiers; the caller deletes it.
    virtual PainterArray* getCopy();

private:
    Painter* findFrom(int32_t index, int32_t step);

    Array<Painter*> slots;
    const std::unique_ptr<PixProps> props;
    const std::unique_ptr<Bounds> bounds;
};
