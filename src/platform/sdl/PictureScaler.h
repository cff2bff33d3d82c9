// SPDX-License-Identifier: MIT
// Scales the display's 480 x 800 picture to a window of any size.
//
// The program's pixels are doubled on the display, so strip and picture have 240 x 80 and 240 x 320
// of them. Each of the window's pixels is the mean of what it covers: the same as enlarging to the
// next whole multiple by repeating pixels, and then shrinking smoothly. At a whole multiple each is
// repeated exactly.
#pragma once

#include "Host.h"
#include "WindowLayout.h"

#include <array>
#include <cstdint>
#include <vector>

class PictureScaler {
public:
    /// The colour around strip and picture: that of the strip's darkest glass, as in the page.
    static constexpr uint32_t kBesideRgb = 0x180C14;

    /// Draws the picture, and kBesideRgb around it.
    /// @param picture       the upper row of each equal pair of the display: 400 rows of 480, no
    /// gap
    /// @param target        windowWidth x windowHeight pixels 0x00RRGGBB
    /// @param stridePixels  from row to row
    void draw(const uint16_t* picture,
              uint32_t* target,
              int32_t stridePixels,
              int32_t windowWidth,
              int32_t windowHeight);

    /// Draws the changed rows again, into a target that has held the whole picture since a draw()
    /// of the same size.
    /// @param changed  rows of the display; only the upper row of each equal pair is looked at
    /// @returns the places that it has drawn: first those in the strip from the top down, then
    /// those in the picture
    std::vector<PicturePlace> drawChanged(const uint16_t* picture,
                                          uint32_t* target,
                                          int32_t stridePixels,
                                          const HostFrame::Rows& changed);

private:
    /// What one row or column of the window covers: one of the program's pixels, or two neighbours.
    struct Cover {
        int32_t first = 0;
        int32_t second = 0;
        int32_t firstWeight256 = 256;

        bool operator==(const Cover& other) const {
            return first == other.first && second == other.second &&
                   firstWeight256 == other.firstWeight256;
        }
    };

    /// Strip or picture.
    struct Part {
        PicturePlace place;
        std::vector<Cover> columns;
        std::vector<Cover> rows;  // of the program's 400
    };

    /// One of the program's rows in the window's columns.
    struct Line {
        int32_t row = -1;
        std::vector<uint32_t> pixels;
    };

    static Part partOf(const PicturePlace& place, int32_t firstRow, int32_t rows);
    static std::vector<Cover> covers(int32_t windowPixels, int32_t first, int32_t programPixels);
    static void blendColumns(const uint32_t* pixels,
                             const Cover* columns,
                             uint32_t* __restrict target,
                             size_t count);
    void prepare(int32_t windowWidth, int32_t windowHeight);
    void clearBeside(int32_t y, uint32_t* row, int32_t windowWidth) const;
    void drawPart(const Part& part,
                  const uint16_t* picture,
                  uint32_t* target,
                  int32_t stridePixels,
                  const HostFrame::Rows& changed,
                  std::vector<PicturePlace>& drawn);
    void drawRow(const Part& part, const uint16_t* picture, const Cover& row, uint32_t* target);
    const std::vector<uint32_t>& lineOf(const Part& part, const uint16_t* picture, int32_t row);

    int32_t preparedWidth = -1;
    int32_t preparedHeight = -1;
    std::array<Part, 2> parts;
    std::array<Line, 2> lines;  // of the part that is drawn: an even row and an odd one
};
