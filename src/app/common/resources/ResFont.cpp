// SPDX-License-Identifier: MIT
#include "ResFont.h"

#include "BitMapFont.h"

ResFont::ResFont(const String& file)
    : file(file) {}

ResFont::~ResFont() = default;

void* ResFont::get() {
    if (font == nullptr) {
        font.reset(BitMapFont::createFromFile(file));
    }
    return static_cast<GnoObject*>(font.get());
}

void ResFont::free() {
    font.reset();
}
