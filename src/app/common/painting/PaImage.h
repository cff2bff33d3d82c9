// SPDX-License-Identifier: MIT
// Paints a picture of the registry.
//
// The rectangle has the size of the picture, which is read from its file but not decoded for that.
// A picture that is missing or damaged leaves an empty rectangle and paints nothing.
#pragma once

#include "AbstractPainter.h"

namespace Osp::Base {
class String;
}

class PaImage : public AbstractPainter {
public:
    using String = Osp::Base::String;

    /// No picture.
    PaImage();

    /// Sets the picture, and the rectangle's size to the picture's; the position stays. Res::Null:
    /// no picture.
    void setImage(int32_t id);

    int32_t getImage() const { return imageId; }

    void setPos(int32_t x, int32_t y);
    void set(int32_t id, int32_t x, int32_t y);

    /// Registers the file and sets its picture (for the flags see Res::addImage). Four numbers in
    /// the path are x, y, width and height; five are a label and then these. If that size is the
    /// picture's own, the painter moves to (x, y), else its position stays.
    void set(String* path, bool premultiply, bool opaque);
    void set(const char* path, bool premultiply, bool opaque);

    void paintOn(AppImage* dst, int32_t x, int32_t y, Bounded* clip, PixProps* inherited) override;

    /// Reads the picture's size again.
    void refresh() override;

private:
    int32_t imageId;
};
