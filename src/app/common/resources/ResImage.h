// SPDX-License-Identifier: MIT
// A picture: from a file, decoded when it is first needed, or blank, or made in memory.
#pragma once

#include "OspBase.h"
#include "Resource.h"

#include <memory>

class AppImage;

class ResImage : public Resource {
public:
    using String = Osp::Base::String;

    /// @param premultiply  turn the file's straight colours into premultiplied ones, which every
    ///                     blend expects
    /// @param opaque       the picture has no transparent pixel: it is copied, not blended
    ResImage(const String& file, bool premultiply, bool opaque);

    /// Blank, every pixel transparent.
    ResImage(int32_t w, int32_t h);

    /// @param image  owned from now on
    explicit ResImage(AppImage* image);
    ~ResImage() override;

    /// The AppImage. Null if the file cannot be opened or is no picture; the next call tries again.
    void* get() override;

    /// The size of the AppImage, 0 x 0 if there is none. A file is read for it, but not decoded:
    /// many pictures are not painted for a long time, or never.
    void getSize(int32_t& width, int32_t& height);

    /// The next get() reads the file again, or makes a new blank picture. A picture that was made
    /// in memory is kept, because it could not be made again.
    void free() override;

    int32_t getType() override { return kTypeImage; }

private:
    AppImage* load();

    String file;  // empty: none
    int32_t w = 0;
    int32_t h = 0;
    bool premultiply = false;
    bool opaque = false;
    bool madeInMemory = false;
    std::unique_ptr<AppImage> image;  // null while not loaded
};
