// SPDX-License-Identifier: MIT
// A picture that fills any rectangle, for frames and bars.
//
// The split point names one column and one row of the picture. They cut it into nine parts: the
// four corners beside them keep their size; between two corners above or below, the split column is
// repeated, between two at a side the split row, and the pixel where both cross fills the middle.
// At the picture's own size the result is the picture. A split of 0 leaves no part at the left
// (top), one at or beyond the last column (row) none at the right (bottom).
// A rectangle smaller than the corners cuts the right and bottom ones first.
#pragma once

#include "AbstractPainter.h"

#include <memory>

namespace Osp::Base {
class String;
}

class PaStretcher : public AbstractPainter {
public:
    using String = Osp::Base::String;

    /// No picture: paints nothing.
    PaStretcher();
    ~PaStretcher() override;

    /// Registers the file and sets its picture (for the flags see Res::addImage). Two numbers in
    /// the path are the split point, if it lies within 0 .. width and 0 .. height; otherwise the
    /// picture is split at its centre. The rectangle gets the picture's size; its position stays.
    void set(String* path, bool premultiply, bool opaque);
    void set(const char* path, bool premultiply, bool opaque);

    /// Sets a registered picture, split at its centre.
    void setImage(int32_t id);
    void setImage(int32_t id, int32_t splitX, int32_t splitY);

    int32_t getImage() const { return imageId; }

    /// The row (column) of the picture that is stretched, inside the picture; 0 without one.
    int32_t getStretchRow() const;
    int32_t getStretchColumn() const;

    void setBounds(Bounds* source) override;
    void paintOn(AppImage* dst, int32_t x, int32_t y, Bounded* clip, PixProps* inherited) override;

    /// Works out the parts again, for a picture that has changed.
    void refresh() override;

    /// Works out the places of the nine parts in the rectangle.
    void updateSubBounds();

private:
    static constexpr int32_t kParts = 9;  // row by row from the top left; some may be empty

    AppImage* picture() const;
    void paintPart(int32_t part,
                   AppImage* dst,
                   AppImage* image,
                   Bounds* target,
                   Bounded* clip,
                   PixProps* combined) const;

    int32_t imageId;
    int32_t splitX = 0;
    int32_t splitY = 0;
    std::unique_ptr<Bounds> parts[kParts];  // relative to the rectangle's top left corner
};
