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

}  // namespace

StripPictures::StripPictures()
    : heads(readImage("/Res/strip/heads.png"))
    , icons(readImage("/Res/strip/icons.png"))
    , font(BitMapFont::createFromFile("/Res/bmf13.bmf"))
    , titleFont(BitMapFont::createFromFile("/Res/bmf15.bmf")) {}

StripPictures::~StripPictures() = default;
