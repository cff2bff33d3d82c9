// SPDX-License-Identifier: MIT
// Pictures are decoded when they are first needed, and again after they were freed.
#include "ResImage.h"
#include "TestRegistry.h"

namespace {

using ResImageTest = TestRegistry;

// Half transparent, and with channels that RGB565 keeps.
constexpr uint32_t kStraight = 0x80F88010;
// ((128 + 1) * channel) >> 8: 0xF8 -> 124, 0x80 -> 64, 0x10 -> 8
constexpr uint32_t kPremultiplied = 0x807C4008;

int32_t add(const char* path, bool premultiply, bool opaque) {
    Osp::Base::String text(path);
    return Res::addImage(&text, premultiply, opaque);
}

}  // namespace

TEST_F(ResImageTest, picturesAreDecodedOnFirstUse) {
    const int32_t id = add("/Res/a.png", false, false);
    writePicture("a.png", 3, 2, kStraight);
    AppImage* image = Res::getImage(id);
    ASSERT_NE(nullptr, image);
    EXPECT_EQ(3, image->w);
    EXPECT_EQ(2, image->h);
    EXPECT_EQ(std::vector<uint32_t>(6, kStraight), pixelsOf(*image));
    EXPECT_FALSE(image->opaque);
    EXPECT_EQ(image, Res::getImage(id));
}

TEST_F(ResImageTest, premultiplyFlagPremultiplies) {
    writePicture("a.png", 1, 1, kStraight);
    EXPECT_EQ(kPremultiplied, Res::getImage(add("/Res/a.png", true, false))->get(0, 0));
}

TEST_F(ResImageTest, opaqueFlagMarksThePicture) {
    writePicture("a.png", 1, 1, kStraight);
    const AppImage* image = Res::getImage(add("/Res/a.png", false, true));
    EXPECT_TRUE(image->opaque);
    EXPECT_EQ(kStraight, image->pixels[0]);
}

TEST_F(ResImageTest, withoutAnOpaqueFlagThePictureIsBlended) {
    writePicture("a.png", 1, 1, kStraight);
    Osp::Base::String path("/Res/a.png");
    const AppImage* image = Res::getImage(Res::addImage(&path, true));
    EXPECT_FALSE(image->opaque);
    EXPECT_EQ(kPremultiplied, image->pixels[0]);
}

TEST_F(ResImageTest, freeingReadsTheFileAgainOnNextUse) {
    writePicture("a.png", 1, 1, 0xFF000000);
    const int32_t id = add("/Res/a.png", false, false);
    EXPECT_EQ(1, Res::getImage(id)->w);
    writePicture("a.png", 2, 1, 0xFF000000);
    EXPECT_EQ(1, Res::getImage(id)->w);
    Res::free(id);
    EXPECT_EQ(2, Res::getImage(id)->w);
    writePicture("a.png", 3, 1, 0xFF000000);
    Res::freeAll();
    EXPECT_EQ(3, Res::getImage(id)->w);
}

TEST_F(ResImageTest, missingOrDamagedPicturesAreNullAndMayAppearLater) {
    const int32_t id = add("/Res/a.png", true, true);
    EXPECT_EQ(nullptr, Res::getImage(id));
    folders.write("Res/a.png", "");
    EXPECT_EQ(nullptr, Res::getImage(id));
    folders.write("Res/a.png", "x");
    EXPECT_EQ(nullptr, Res::getImage(id));
    folders.write("Res/a.png", "not a picture at all");
    EXPECT_EQ(nullptr, Res::getImage(id));
    const Bytes signature = TestPng::signature();
    writeBytes("Res/a.png", signature);
    EXPECT_EQ(nullptr, Res::getImage(id));
    writeBytes("Res/a.png", signature + TestPng::header(0x7FFFFFFF, 0x7FFFFFFF, 8, 6));
    EXPECT_EQ(nullptr, Res::getImage(id));
    writePicture("a.png", 1, 1, 0xFF000000);
    EXPECT_NE(nullptr, Res::getImage(id));
}

TEST_F(ResImageTest, filesCutAnywhereNeverCrash) {
    writePicture("whole.png", 5, 4, kStraight);
    const std::string whole = folders.read("Res/whole.png");
    for (size_t n = 0; n < whole.size(); n++) {
        folders.write("Res/cut.png", whole.substr(0, n));
        AppImage* image = Res::getImage(add("/Res/cut.png", true, false));
        if (image != nullptr) {
            EXPECT_EQ(5 * 4, image->w * image->h) << n;
        }
    }
}

TEST_F(ResImageTest, blankPicturesAreMadeOnUseAndBlankAgainAfterFree) {
    const int32_t id = Res::addImage(3, 2);
    AppImage* image = Res::getImage(id);
    EXPECT_EQ(3, image->w);
    EXPECT_EQ(std::vector<uint32_t>(6, 0), pixelsOf(*image));
    image->set(0xFFFFFFFF);
    EXPECT_EQ(0xFFFFFFFF, Res::getImage(id)->get(0, 0));
    Res::free(id);
    EXPECT_EQ(std::vector<uint32_t>(6, 0), pixelsOf(*Res::getImage(id)));
}

TEST_F(ResImageTest, picturesMadeInMemorySurviveFree) {
    const int32_t id = Res::addImage(new AppImage(2, 2, 0xFF123456));
    Res::freeAll();
    ASSERT_NE(nullptr, Res::getImage(id));
    EXPECT_EQ(0xFF123456, Res::getImage(id)->get(1, 1));
}

TEST_F(ResImageTest, askingForTheSizeDecodesNothing) {
    const int32_t id = add("/Res/a.png", false, false);
    writePicture("a.png", 3, 2, kStraight);
    int32_t w = -1;
    int32_t h = -1;
    Res::getImageSize(id, w, h);
    EXPECT_EQ(3, w);
    EXPECT_EQ(2, h);
    writePicture("a.png", 5, 4, kStraight);  // not seen if the first one were still kept
    EXPECT_EQ(5, Res::getImage(id)->w);
    Res::getImageSize(id, w, h);
    EXPECT_EQ(5, w);
    EXPECT_EQ(4, h);
    writePicture("a.png", 7, 6, kStraight);
    Res::getImageSize(id, w, h);
    EXPECT_EQ(5, w) << "of the picture that is loaded";
}

TEST_F(ResImageTest, whatIsNoPictureHasNoSize) {
    folders.write("Res/a.png", "no picture");
    const int32_t unknown = 12345;
    for (const int32_t id : {add("/Res/a.png", false, false), add("/Res/missing.png", false, false),
                             Res::addStr("text"), Res::Null, unknown}) {
        int32_t w = -1;
        int32_t h = -1;
        Res::getImageSize(id, w, h);
        EXPECT_EQ(0, w);
        EXPECT_EQ(0, h);
    }
}

TEST_F(ResImageTest, blankPicturesAndThoseMadeInMemoryHaveTheirSize) {
    int32_t w = -1;
    int32_t h = -1;
    Res::getImageSize(Res::addImage(8, 9), w, h);
    EXPECT_EQ(8, w);
    EXPECT_EQ(9, h);
    Res::getImageSize(Res::addImage(new AppImage(4, 3)), w, h);
    EXPECT_EQ(4, w);
    EXPECT_EQ(3, h);
}
