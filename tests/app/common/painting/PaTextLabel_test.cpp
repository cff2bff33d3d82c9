// SPDX-License-Identifier: MIT
// A line of text is as large as its ink, and follows its text and its language.
#include "PaTextLabel.h"
#include "PixProps.h"
#include "TestRegistry.h"

namespace {

class PaTextLabelTest : public TestRegistry {
public:
    PaTextLabelTest() {
        writeFont("blocks.bmf");
        font = Res::addFont("/Res/blocks.bmf");
    }

    int32_t font;
};

constexpr uint32_t kWhite = 0xFFFFFFFF;

}  // namespace

TEST_F(PaTextLabelTest, isAsWideAsItsInkAndAsHighAsTheFont) {
    PaTextLabel label(Res::addStr("ab"), font, kWhite);
    EXPECT_EQ((std::vector<int32_t>{0, 0, 10, 10}), rectOf(label));  // 4 + 1 + 1 + 4
}

TEST_F(PaTextLabelTest, withoutATextThereIsNothingToPaint) {
    PaTextLabel label;
    EXPECT_EQ((std::vector<int32_t>{0, 0, 0, 0}), rectOf(label));
    AppImage image(4, 4, 0xFF123456);
    Bounds clip(0, 0, 4, 4);
    label.paintOn(&image, 0, 0, &clip, nullptr);
    EXPECT_EQ(0xFF123456U, image.pixels[0]);
    EXPECT_EQ(0xFF123456U, image.pixels[15]);
}

TEST_F(PaTextLabelTest, inkBeginsInItsCorner) {
    PaTextLabel label(Res::addStr("ab"), font, 0xFF00FF00);
    Bounds::setPos(&label, 2, 3);
    AppImage image(20, 20, 0xFF000000);
    Bounds clip(0, 0, 20, 20);
    label.paintOn(&image, 1, 1, &clip, nullptr);
    for (int32_t i = 0; i < 400; i++) {
        const int32_t x = i % 20 - 3;
        const int32_t y = i / 20 - 4;
        // Blocks of 4 x 6 on a baseline 10 below the top.
        const bool ink = ((x >= 0 && x < 4) || (x >= 6 && x < 10)) && y >= 4 && y < 10;
        EXPECT_EQ(ink ? 0xFF00FF00 : 0xFF000000, image.pixels[i]) << x << ", " << y;
    }
}

TEST_F(PaTextLabelTest, isCutToTheClip) {
    PaTextLabel label(Res::addStr("ab"), font, kWhite);
    AppImage image(20, 20, 0xFF000000);
    Bounds clip(7, 5, 2, 1);
    label.paintOn(&image, 0, 0, &clip, nullptr);
    for (int32_t i = 0; i < 400; i++) {
        const bool ink = i / 20 == 5 && (i % 20 == 7 || i % 20 == 8);
        EXPECT_EQ(ink ? kWhite : 0xFF000000, image.pixels[i]) << i;
    }
}

TEST_F(PaTextLabelTest, modifiersFadeTheColour) {
    PaTextLabel label(Res::addStr("a"), font, kWhite);
    PixProps half(256, 256, 128);
    label.setPixProps(&half);
    AppImage image(4, 10, 0xFF000000);
    Bounds clip(0, 0, 4, 10);
    label.paintOn(&image, 0, 0, &clip, &half);
    EXPECT_NEAR(64, static_cast<int32_t>(image.get(0, 9) & 0xFF), 1);
}

TEST_F(PaTextLabelTest, withoutTextOrFontItIsEmpty) {
    AppImage image(20, 20, 0xFF000000);
    Bounds clip(0, 0, 20, 20);
    for (const auto& [text, fontId] :
         {std::pair{Res::Null, font}, std::pair{Res::addStr("ab"), Res::Null},
          std::pair{Res::addStr("ab"), Res::addFont("/Res/gone")}, std::pair{5000, font},
          std::pair{Res::addStr(""), font}}) {
        PaTextLabel label(text, fontId, kWhite);
        EXPECT_EQ(0, label.getWidth());
        label.paintOn(&image, 0, 0, &clip, nullptr);
    }
    EXPECT_EQ(std::vector<uint32_t>(400, 0xFF000000), pixelsOf(image));
}

TEST_F(PaTextLabelTest, followsAChangedTextOnRefresh) {
    const int32_t text = Res::addStr("ab");
    PaTextLabel label(text, font, kWhite);
    Res::replaceStr(text, new String("abc"));
    EXPECT_EQ(10, label.getWidth());
    label.refresh();
    EXPECT_EQ(16, label.getWidth());
    label.setText(Res::Null);
    EXPECT_EQ(0, label.getWidth());
    label.setText(text);
    label.setFont(Res::Null);
    EXPECT_EQ(0, label.getWidth());
}

TEST_F(PaTextLabelTest, colourMayChangeBetweenTwoPaints) {
    PaTextLabel label(Res::addStr("a"), font, kWhite);
    label.setColour(0xFF0000FF);
    EXPECT_EQ(0xFF0000FF, label.getColour());
    AppImage image(4, 10, 0xFF000000);
    Bounds clip(0, 0, 4, 10);
    label.paintOn(&image, 0, 0, &clip, nullptr);
    EXPECT_EQ(0xFF0000FF, image.get(0, 9));
}
