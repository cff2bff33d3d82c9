// SPDX-License-Identifier: MIT
// The progress bar fills in proportion and repaints only itself.
#include "AppImage.h"
#include "Bounds.h"
#include "G.h"
#include "Header.h"
#include "PaTextArea.h"
#include "Progress.h"
#include "ScreensTest.h"
#include "Str.h"

namespace {

class ProgressTest : public ScreensTest {
protected:
    /// Columns of the bar's middle row that are filled.
    static int32_t filled() {
        const uint32_t trough = pixelAt(Progress::bar->w - 3);
        int32_t count = 0;
        for (int32_t x = 2; x < Progress::bar->w - 2; x++) {
            count += pixelAt(x) != trough ? 1 : 0;
        }
        return count;
    }

    static uint32_t pixelAt(int32_t x) {
        return G::scr->get(Progress::bar->x + x, Progress::bar->y + Progress::bar->h / 2);
    }

    static int32_t inner() { return Progress::bar->w - 4; }
};

}  // namespace

TEST_F(ProgressTest, beginsEmptyUnderItsCaption) {
    Progress::paintInit(Str::str_LBL_RECORDING);
    EXPECT_EQ(Str::str_LBL_RECORDING, Progress::caption->getText());
    EXPECT_EQ(0, filled());
    EXPECT_LT(Progress::caption->getY() + Progress::caption->getTextHeight(), Progress::bar->y + 1);
}

TEST_F(ProgressTest, fillsInProportion) {
    Progress::paintInit(Str::str_PLEASE_WAIT);
    Progress::paintProgress(512);
    EXPECT_EQ(inner() / 2, filled());
    Progress::paintProgress(256);
    EXPECT_EQ(inner() / 4, filled());
    Progress::paintProgress(0);
    EXPECT_EQ(0, filled());
}

TEST_F(ProgressTest, beginsToFillWithASingleColumn) {
    const int32_t first = (1024 + inner() - 1) / inner();  // the least that is a column
    Progress::paintProgress(first - 1);
    EXPECT_EQ(0, filled());
    Progress::paintProgress(first);
    EXPECT_EQ(1, filled());
}

TEST_F(ProgressTest, isFullAt1024AndNotBefore) {
    Progress::paintProgress(0);
    const uint32_t trough = pixelAt(inner() + 1);
    Progress::paintProgress(1023);
    EXPECT_EQ(trough, pixelAt(inner() + 1));
    Progress::paintProgress(1024);
    EXPECT_NE(trough, pixelAt(inner() + 1));
}

TEST_F(ProgressTest, staysInTheTroughWhateverItIsTold) {
    Progress::paintProgress(1024);
    const Pixels full = picture();
    Progress::paintProgress(5000);
    EXPECT_EQ(full, picture());
    Progress::paintProgress(0);
    const Pixels empty = picture();
    Progress::paintProgress(-1);
    EXPECT_EQ(empty, picture());
}

TEST_F(ProgressTest, onlyTheBarIsPaintedWhileItFills) {
    G::scr->set(0xFF00FF00);
    Progress::paintProgress(700);
    const Bounds& bar = *Progress::bar;
    EXPECT_EQ(Pixels(static_cast<size_t>(240 * bar.y), 0xFF00FF00), picture(0, 0, 240, bar.y));
    EXPECT_EQ(Pixels(static_cast<size_t>(bar.x * 320), 0xFF00FF00), picture(0, 0, bar.x, 320));
    const int32_t below = 320 - bar.y - bar.h;
    EXPECT_EQ(Pixels(static_cast<size_t>(240 * below), 0xFF00FF00),
              picture(0, bar.y + bar.h, 240, below));
}

TEST_F(ProgressTest, paintingTheSameProgressTwiceChangesNothing) {
    Progress::paintInit(Str::str_PLEASE_WAIT);
    Progress::paintProgress(300);
    const Pixels once = picture();
    Progress::paintProgress(300);
    EXPECT_EQ(once, picture());
}

TEST_F(ProgressTest, theWindowLeavesFacesAndWhatMovesFree) {
    constexpr int32_t kFirstOfFaces = 72;  // as drawn: tests/art/faces.py
    G::scr->set(0xFF00FF00);
    Progress::paintInit(Str::str_LBL_RECORDING);
    EXPECT_EQ(Pixels(240 * (320 - kFirstOfFaces), 0xFF00FF00),
              picture(0, kFirstOfFaces, 240, 320 - kFirstOfFaces));
}

TEST_F(ProgressTest, theWindowLeavesTheNameOfTheEffectFree) {
    Header::set(false, true, false, false);
    G::scr->set(0xFF000000);
    Header::paint(false);
    const Pixels name = picture(0, 0, 240, 26);
    Progress::paintInit(Str::str_PLEASE_WAIT);
    const Pixels after = picture(0, 0, 240, 26);
    for (size_t i = 0; i < name.size(); i++) {
        EXPECT_TRUE(name[i] == 0xFF000000 || name[i] == after[i]);
    }
}

TEST_F(ProgressTest, captionAndBarStandBetweenHeaderAndFaces) {
    Progress::paintInit(Str::str_LBL_RECORDING);
    EXPECT_LE(26, Progress::caption->getY());
    EXPECT_GE(71, Progress::bar->y + Progress::bar->h);
}
