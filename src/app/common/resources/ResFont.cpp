#include "ResFont.h"

#include "BitMapFont.h"
#include "FileInputStream.h"
#include "MIDlet.h"

#include <memory>

ResFont::ResFont(const String& file)
    : file(file) {}

ResFont::~ResFont() {
    delete font;
}

void* ResFont::get() {
    if (font == nullptr) {
        const std::unique_ptr<FileInputStream> in(MIDlet::getResourceAsStream(file));
        // A file that did not open would give a font of hollow squares.
        if (in->available() > 0) {
            font = BitMapFont::createFrom(in.get());
        }
        in->close();
    }
    return static_cast<GnoObject*>(font);
}

void ResFont::free() {
    delete font;
    font = nullptr;
}
