// SPDX-License-Identifier: MIT
// A block of text is wrapped, aligned and clipped to its rectangle.
#include "PaTextArea.h"
#include "PixProps.h"
#include "TestRegistry.h"
#include "Vector.h"

namespace {

constexpr uint32_t kWhite = 0xFFFFFFFF;
constexpr uint32_t kGround = 0xFF000000;

// A word of n letters is 6 n - 2 wide, the gap between two words 5 (1 + 3 + 1). The ink of a line
// begins 4 below its top and is 6 high; lines are 12 apart.
class PaTextAreaTest : public TestRegistry {
public:
    using Rects = std::vector<std::vector<int32_t>>;

    PaTextAreaTest() {
        writeFont("blocks.bmf");
        font = Res::addFont("/Res/blocks.bmf");
    }

    void set(const char* text, int32_t w, int32_t align = 4) {
        area.set(Res::addStr(text), font, kWhite, align, 0, 0, w, 100);
    }

    static Rects take(Vector& vector) {
        Rects rects;
        for (int32_t i = 0; i < vector.size(); i++) {
            rects.push_back(rectOf(*static_cast<Bounds*>(vector.elementAt(i))));
        }
        Bounds::free(&vector);
        return rects;
    }

    Rects rows() {
        Vector vector;
        area.appendRowBounds(&vector);
        return take(vector);
    }

    Rects chars() {
        Vector vector;
        area.appendCharBounds(&vector);
        return take(vector);
    }

    /// Top and width of each row, for texts at the left.
    std::vector<std::vector<int32_t>> lines() {
        std::vector<std::vector<int32_t>> found;
        for (const auto& row : rows()) {
            EXPECT_EQ(0, row[0]);
            EXPECT_EQ(6, row[3]);
            found.push_back({row[1] - 4, row[2]});
        }
        return found;
    }

    int32_t font;
    PaTextArea area;
};

using Lines = std::vector<std::vector<int32_t>>;

}  // namespace

TEST_F(PaTextAreaTest, oneLineStandsInTheCorner) {
    set("ab c", 100);
    EXPECT_EQ((Rects{{0, 4, 4, 6}, {6, 4, 4, 6}, {15, 4, 4, 6}}), chars());
    EXPECT_EQ((Rects{{0, 4, 19, 6}}), rows());
    EXPECT_EQ(12, area.getTextHeight());
}

TEST_F(PaTextAreaTest, rowsBreakAtSpaces) {
    set("aa bb cc", 25);  // "aa bb" is 10 + 5 + 10
    EXPECT_EQ((Lines{{0, 25}, {12, 10}}), lines());
    set("aa bb cc", 24);
    EXPECT_EQ((Lines{{0, 10}, {12, 10}, {24, 10}}), lines());
    EXPECT_EQ(36, area.getTextHeight());
}

TEST_F(PaTextAreaTest, spacesBetweenRowsVanish) {
    set("aaa    bbb", 22);
    EXPECT_EQ((Lines{{0, 16}, {12, 16}}), lines());
}

TEST_F(PaTextAreaTest, leadingSpacesVanish) {
    set("   aa", 30);
    EXPECT_EQ((Lines{{0, 10}}), lines());
}

TEST_F(PaTextAreaTest, aRowBreaksAtTheFirstSpaceAfterAWordEvenIfMoreFollow) {
    set("aa   bb", 20);
    EXPECT_EQ((Lines{{0, 10}, {12, 10}}), lines());
}

TEST_F(PaTextAreaTest, aWordThatIsTooLongIsCutWhereItOverflows) {
    set("aaaaaaa", 22);  // four letters are 22 wide
    EXPECT_EQ((Lines{{0, 22}, {12, 16}}), lines());
    set("aaaaaaa", 21);
    EXPECT_EQ((Lines{{0, 16}, {12, 16}, {24, 4}}), lines());
}

TEST_F(PaTextAreaTest, aLongWordAfterAShortOneMovesToTheNextRowFirst) {
    set("b aaaaaa", 22);
    EXPECT_EQ((Lines{{0, 4}, {12, 22}, {24, 10}}), lines());
}

TEST_F(PaTextAreaTest, aGlyphWiderThanTheAreaStandsAloneAndTheTextGoesOn) {
    set("WaW", 20);
    EXPECT_EQ((Lines{{0, 30}, {12, 4}, {24, 30}}), lines());
    set("a WW b", 20);
    EXPECT_EQ((Lines{{0, 4}, {12, 30}, {24, 30}, {36, 4}}), lines());
}

TEST_F(PaTextAreaTest, lineFeedsEndRows) {
    set("aa\nb", 100);
    EXPECT_EQ((Lines{{0, 10}, {12, 4}}), lines());
}

TEST_F(PaTextAreaTest, emptyLinesTakeALineHeight) {
    set("a\n\nb\n\n\nc", 100);
    EXPECT_EQ((Lines{{0, 4}, {24, 4}, {60, 4}}), lines());
    EXPECT_EQ(72, area.getTextHeight());
}

TEST_F(PaTextAreaTest, leadingLineFeedsMoveTheTextDown) {
    set("\n\na", 100);
    EXPECT_EQ((Lines{{24, 4}}), lines());
    EXPECT_EQ(36, area.getTextHeight());
}

TEST_F(PaTextAreaTest, nothingAtTheEndTakesRoom) {
    set("a \n \n", 100);
    EXPECT_EQ((Lines{{0, 4}}), lines());
    EXPECT_EQ(12, area.getTextHeight());
}

TEST_F(PaTextAreaTest, aLineFeedAfterSpacesThatDidNotFitLeavesAnEmptyLine) {
    // The spaces overflow, so the row ends before them and not at the line feed.
    set("aaa   \nb", 20);
    EXPECT_EQ((Lines{{0, 16}, {24, 4}}), lines());
}

TEST_F(PaTextAreaTest, blanksAloneAreNoRow) {
    for (const char* text : {"", " ", "\n", "  \n \n "}) {
        set(text, 100);
        EXPECT_EQ(0, area.getNumRows()) << text;
        EXPECT_EQ(0, area.getTextHeight()) << text;
    }
}

TEST_F(PaTextAreaTest, unknownCharactersShowAsHollowSquares) {
    set("aXb", 100);
    EXPECT_EQ(3U, chars().size());
}

TEST_F(PaTextAreaTest, rowsAreAlignedByTheirInk) {
    set("aaa b", 21);  // rows of 16 and 4
    EXPECT_EQ((Rects{{0, 4, 16, 6}, {0, 16, 4, 6}}), rows());
    area.setTextAlign(8);
    EXPECT_EQ((Rects{{5, 4, 16, 6}, {17, 16, 4, 6}}), rows());
    area.setTextAlign(16);
    EXPECT_EQ((Rects{{2, 4, 16, 6}, {8, 16, 4, 6}}), rows());  // 10 - 8, 10 - 2
    area.setTextAlign(4);
    EXPECT_EQ((Rects{{0, 4, 16, 6}, {0, 16, 4, 6}}), rows());
}

TEST_F(PaTextAreaTest, leftOutdoesRightAndBothOutdoTheCentre) {
    set("b", 24);
    for (const auto& [align, x] :
         {std::pair{0, 0}, std::pair{4 | 8 | 16, 0}, std::pair{4 | 16, 0}, std::pair{8 | 16, 20},
          std::pair{16 | 1, 10}, std::pair{4 | 8, 0}}) {
        area.setTextAlign(align);
        EXPECT_EQ(x, rows()[0][0]) << align;
        EXPECT_EQ(align, area.getTextAlign());
    }
}

TEST_F(PaTextAreaTest, aGlyphWiderThanTheAreaHangsOutEvenly) {
    set("W", 20, 16);
    EXPECT_EQ((Rects{{-5, 4, 30, 6}}), rows());
}

TEST_F(PaTextAreaTest, noAreaIsNarrowerThanItsLeastWidth) {
    set("aa bb", 3);
    EXPECT_EQ((std::vector<int32_t>{0, 0, 20, 100}), rectOf(area));
    EXPECT_EQ((Lines{{0, 10}, {12, 10}}), lines());
    area.setWidth(-5);
    EXPECT_EQ(20, area.getWidth());
    Bounds::setWidth(&area, 1);
    EXPECT_EQ(20, area.getWidth());
}

TEST_F(PaTextAreaTest, anotherWidthWrapsAgain) {
    set("aa bb", 20);
    EXPECT_EQ(2, area.getNumRows());
    area.setWidth(25);
    EXPECT_EQ(1, area.getNumRows());
    Bounds::setWidth(&area, 24);
    EXPECT_EQ(2, area.getNumRows());
    area.setSize(25, 7);
    EXPECT_EQ((std::vector<int32_t>{0, 0, 25, 7}), rectOf(area));
    EXPECT_EQ(1, area.getNumRows());
}

TEST_F(PaTextAreaTest, movingTheRectangleMovesTheText) {
    set("a", 20);
    Bounds::setPos(&area, 30, 40);
    EXPECT_EQ((Rects{{30, 44, 4, 6}}), rows());
    area.setOffsetY(-3);
    EXPECT_EQ((Rects{{30, 41, 4, 6}}), rows());
    EXPECT_EQ((Rects{{30, 41, 4, 6}}), chars());
    EXPECT_EQ(-3, area.getOffsetY());
}

TEST_F(PaTextAreaTest, withoutTextOrFontItIsEmpty) {
    AppImage image(50, 50, kGround);
    Bounds clip(0, 0, 50, 50);
    const int32_t text = Res::addStr("ab");
    for (const auto& [strId, fntId] :
         {std::pair{Res::Null, font}, std::pair{text, Res::Null}, std::pair{5000, font},
          std::pair{text, Res::addFont("/Res/gone.bmf")}, std::pair{font, text}}) {
        area.set(strId, fntId, kWhite, 16, 0, 0, 50, 50);
        EXPECT_EQ(0, area.getNumRows());
        EXPECT_EQ(0, area.getTextHeight());
        EXPECT_EQ(Rects(), rows());
        area.paintOn(&image, 0, 0, &clip, nullptr);
    }
    EXPECT_EQ(std::vector<uint32_t>(2500, kGround), pixelsOf(image));
}

TEST_F(PaTextAreaTest, setsOfSinglePropertiesComeToTheSame) {
    const int32_t text = Res::addStr("aaa b");
    area.setSize(21, 100);
    area.setColour(0xFF112233);
    area.setTextAlign(16);
    area.setFont(font);
    area.setText(text);
    EXPECT_EQ((Rects{{2, 4, 16, 6}, {8, 16, 4, 6}}), rows());
    EXPECT_EQ(text, area.getText());
    EXPECT_EQ(font, area.getFont());
    EXPECT_EQ(0xFF112233, area.getColour());
    area.setHeight(area.getTextHeight());
    EXPECT_EQ(24, area.getHeight());
    area.setText(Res::Null);
    EXPECT_EQ(0, area.getNumRows());
    EXPECT_EQ(Res::Null, area.getText());
}

TEST_F(PaTextAreaTest, refreshFollowsTheLanguageAndTheText) {
    auto** texts = newArray<String*>(2);
    texts[0] = new String("a");
    texts[1] = new String("aaa");
    const int32_t text = Res::addStr(texts);
    area.set(text, font, kWhite, 4, 0, 0, 50, 50);
    Res::setCurrLangIndex(1);
    EXPECT_EQ(1U, chars().size());
    area.refresh();
    EXPECT_EQ(3U, chars().size());
    Res::replaceStr(text, new String("aaaa"));
    area.refresh();
    EXPECT_EQ(4U, chars().size());
}

TEST_F(PaTextAreaTest, paintsItsInkAndNothingElse) {
    set("ab\nc", 30, 8);
    Bounds::setPos(&area, 3, 2);
    AppImage image(40, 40, kGround);
    Bounds clip(0, 0, 40, 40);
    area.paintOn(&image, 2, 1, &clip, nullptr);
    const Rects ink = chars();
    for (int32_t y = 0; y < 40; y++) {
        for (int32_t x = 0; x < 40; x++) {
            bool inked = false;
            for (const auto& r : ink) {
                Bounds glyph(r[0] + 2, r[1] + 1, r[2], r[3]);
                inked = inked || Bounds::contains(&glyph, x, y);
            }
            EXPECT_EQ(inked ? kWhite : kGround, image.get(x, y)) << x << ", " << y;
        }
    }
}

TEST_F(PaTextAreaTest, paintingIsCutToTheRectangleTheClipAndTheImage) {
    set("WWW", 20);
    Bounds::set(&area, -4, 5, 20, 20);
    area.setOffsetY(-2);
    AppImage image(30, 30, kGround);
    Bounds clip(2, 0, 10, 30);
    area.paintOn(&image, 0, 0, &clip, nullptr);
    for (int32_t y = 0; y < 30; y++) {
        for (int32_t x = 0; x < 30; x++) {
            // The rectangle covers columns -4 .. 15 and rows 5 .. 24, the clip columns 2 .. 11;
            // ink fills rows 7 .. 12 and 19 .. 24 (and 31 .. 36).
            const bool inked = x >= 2 && x < 12 && ((y >= 7 && y < 13) || (y >= 19 && y < 25));
            EXPECT_EQ(inked ? kWhite : kGround, image.get(x, y)) << x << ", " << y;
        }
    }
}

TEST_F(PaTextAreaTest, aRectangleLowerThanTheTextCutsIt) {
    set("a\na", 20);
    area.setHeight(6);
    AppImage image(20, 30, kGround);
    Bounds clip(0, 0, 20, 30);
    area.paintOn(&image, 0, 0, &clip, nullptr);
    EXPECT_EQ(kWhite, image.get(0, 5));
    EXPECT_EQ(kGround, image.get(0, 6));
    EXPECT_EQ(kGround, image.get(0, 16));
}

TEST_F(PaTextAreaTest, ownAndInheritedModifiersFadeTheColour) {
    set("a", 20);
    PixProps half(256, 256, 128);
    area.setPixProps(&half);
    AppImage image(20, 20, kGround);
    Bounds clip(0, 0, 20, 20);
    area.paintOn(&image, 0, 0, &clip, &half);
    EXPECT_NEAR(64, static_cast<int32_t>(image.get(0, 5) & 0xFF), 1);
}

TEST_F(PaTextAreaTest, paintsOnAfterTheFontWasFreed) {
    set("a", 20);
    Res::freeAll();
    AppImage image(20, 20, kGround);
    Bounds clip(0, 0, 20, 20);
    area.paintOn(&image, 0, 0, &clip, nullptr);
    EXPECT_EQ(kWhite, image.get(0, 5));
}

TEST_F(PaTextAreaTest, everyInkedCharacterOfALongTextAppearsOnceInOrder) {
    const std::string text = "lorem ipsum dolor sit amet consetetur sadipscing elitr\nsed diam "
                             "nonumy eirmod tempor invidunt ut labore\n\net dolore";
    size_t inked = 0;
    for (const char c : text) {
        inked += c != ' ' && c != '\n' ? 1 : 0;
    }
    for (int32_t w = 20; w < 400; w += 7) {
        set(text.c_str(), w);
        const Rects all = chars();
        ASSERT_EQ(inked, all.size()) << w;
        for (size_t i = 1; i < all.size(); i++) {
            const bool sameRow = all[i][1] == all[i - 1][1];
            EXPECT_TRUE(sameRow ? all[i][0] > all[i - 1][0] : all[i][1] > all[i - 1][1]);
        }
        for (const auto& row : rows()) {
            EXPECT_LE(row[0] + row[2], w);
        }
    }
}
