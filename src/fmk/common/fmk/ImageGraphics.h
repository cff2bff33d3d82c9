// SPDX-License-Identifier: MIT
// Draws into a device image's pixels; its alpha plane stays as it is.
#pragma once

#include "GnoGraphics.h"
#include "GnoImage.h"

class ImageGraphics : public GnoGraphics {
public:
    /// @param image  not owned; must outlive the graphics
    explicit ImageGraphics(GnoImage* image)
        : GnoGraphics(image->getPixels(), image->getWidth(), image->getHeight()) {}
};
