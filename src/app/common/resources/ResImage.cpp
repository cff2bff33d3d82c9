// SPDX-License-Identifier: MIT
#include "ResImage.h"

#include "AppImage.h"
#include "FileInputStream.h"
#include "ImageReader.h"
#include "MIDlet.h"

ResImage::ResImage(const String& file, bool premultiply, bool opaque)
    : file(file)
    , premultiply(premultiply)
    , opaque(opaque) {}

ResImage::ResImage(int32_t w, int32_t h)
    : w(w)
    , h(h) {}

ResImage::ResImage(AppImage* image)
    : madeInMemory(true)
    , image(image) {}

ResImage::~ResImage() = default;

void* ResImage::get() {
    if (image == nullptr && !madeInMemory) {
        image.reset(file.IsEmpty() ? new AppImage(w, h, 0) : load());
    }
    return static_cast<GnoObject*>(image.get());
}

void ResImage::getSize(int32_t& width, int32_t& height) {
    width = w;
    height = h;
    if (image != nullptr) {
        width = image->w;
        height = image->h;
    } else if (!file.IsEmpty()) {
        const std::unique_ptr<FileInputStream> in(MIDlet::getResourceAsStream(file));
        ImageReader::readSize(in.get(), width, height);
        in->close();
    }
}

AppImage* ResImage::load() {
    const std::unique_ptr<FileInputStream> in(MIDlet::getResourceAsStream(file));
    AppImage* loaded = ImageReader::read(in.get());
    if (loaded != nullptr) {
        if (premultiply) {
            loaded->premult();
        }
        loaded->opaque = opaque;
    }
    in->close();
    return loaded;
}

void ResImage::free() {
    if (!madeInMemory) {
        image.reset();
    }
}
