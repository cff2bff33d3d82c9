// SPDX-License-Identifier: MIT
// The display's 480 x 800 picture in a window of any size: its pixels there.
//
// The program's pixels are doubled on the display, so strip and picture have 240 x 80 and 240 x 320
// of them. Each of the window's pixels is the mean of what it covers: the same as repeating the
// program's pixels to the next whole multiple and shrinking that smoothly. At a whole multiple each
// is repeated exactly.
#pragma once

#include "Host.h"
#include "WindowLayout.h"

#include <array>
#include <cstdint>
#include <vector>

class PictureScaler {
public:
    /// Around strip and picture: the glass of the strip at its darkest, as around the page.
    static constexpr uint32_t kBesideRgb = 0x180C14;

    /// Draws the picture, and kBesideRgb around it.
    /// @param picture       the upper ones of the display's doubled rows: 400 of 480, no padding
    /// @param target        windowWidth x windowHeight pixels 0x00RRGGBB
    /// @param stridePixels  from row to row
    void draw(const uint16_t* picture,
              uint32_t* target,
              int32_t stridePixels,
              int32_t windowWidth,
              int32_t windowHeight);

    /// Draws the changed rows again, into a target that has held the whole picture since a draw()
    /// of the same size.
    /// @param changed  the display's rows; of the doubled ones the upper ones count
    /// @returns where it has drawn: of the strip from the top down, then of the picture
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
