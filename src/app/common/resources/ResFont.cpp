// SPDX-License-Identifier: MIT
#include "ResFont.h"

#include "BitMapFont.h"
#include "FileInputStream.h"
#include "MIDlet.h"

ResFont::ResFont(const String& file)
    : file(file) {}

ResFont::~ResFont() = default;

void* ResFont::get() {
    if (font == nullptr) {
        const std::unique_ptr<FileInputStream> in(MIDlet::getResourceAsStream(file));
        // A file that did not open would give a font of hollow squares.
        if (in->available() > 0) {
            font.reset(BitMapFont::createFrom(in.get()));
        }
        in->close();
    }
    return static_cast<GnoObject*>(font.get());
}

void ResFont::free() {
    font.reset();
}
