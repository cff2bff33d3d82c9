// SPDX-License-Identifier: MIT
#include "StripPictures.h"

#include "AppImage.h"
#include "BitMapFont.h"
#include "FileInputStream.h"
#include "ImageReader.h"
#include "MIDlet.h"

namespace {

std::unique_ptr<AppImage> readImage(const char* path) {
    const std::unique_ptr<FileInputStream> in(MIDlet::getResourceAsStream(path));
    std::unique_ptr<AppImage> image(ImageReader::read(in.get()));
    in->close();
    if (image != nullptr) {
        image->premult();
    }
    return image;
}

std::unique_ptr<BitMapFont> readFont(const char* path) {
    const std::unique_ptr<FileInputStream> in(MIDlet::getResourceAsStream(path));
    std::unique_ptr<BitMapFont> font;
    // A file that did not open would give a font of hollow squares.
    if (in->available() > 0) {
        font.reset(BitMapFont::createFrom(in.get()));
    }
    in->close();
    return font;
}

}  // namespace

StripPictures::StripPictures()
    : heads(readImage("/Res/strip/heads.png"))
    , icons(readImage("/Res/strip/icons.png"))
    , font(readFont("/Res/bmf13.bmf"))
    , titleFont(readFont("/Res/bmf15.bmf")) {}

StripPictures::~StripPictures() = default;
