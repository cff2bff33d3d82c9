// SPDX-License-Identifier: MIT
// A bitmap font, read from its file when it is first needed.
#pragma once

#include "OspBase.h"
#include "Resource.h"

#include <memory>

class BitMapFont;

class ResFont : public Resource {
public:
    using String = Osp::Base::String;

    explicit ResFont(const String& file);
    ~ResFont() override;

    /// The BitMapFont. Null if the file cannot be opened; the next call tries again.
    void* get() override;

    /// Frees the font; the next get() reads the file again. Pointers to the font and to its
    /// characters become invalid.
    void free() override;

    int32_t getType() override { return kTypeFont; }

private:
    String file;
    std::unique_ptr<BitMapFont> font;  // null while not loaded
};
