// The display's 480 x 800 picture in a window of any size: where it lies, and its pixels there.
//
// The program's pixels are doubled on the display, so the picture has 240 x 400 of them. Where they
// fit at two or more of the window's pixels each, they all get the same whole number, and black
// bands take what is left. A smaller window is filled, each of its pixels the mean of what it
// covers.
#pragma once

#include "Host.h"

#include <cstdint>
#include <vector>

/// A part of the window, in its own pixels.
struct PicturePlace {
    int32_t x = 0;
    int32_t y = 0;
    int32_t width = 0;
    int32_t height = 0;

    bool operator==(const PicturePlace& other) const {
        return x == other.x && y == other.y && width == other.width && height == other.height;
    }
};

/// Rows of the window, one below the other.
struct RowBand {
    int32_t top = 0;
    int32_t count = 0;
};

class PictureScaler {
public:
    /// Where the picture lies in a window of that size.
    static PicturePlace place(int32_t windowWidth, int32_t windowHeight);

    /// Draws the picture (rows of 480 without padding), with black around it.
    /// @param target        windowWidth x windowHeight pixels 0x00RRGGBB
    /// @param stridePixels  from row to row
    void draw(const uint16_t* picture,
              uint32_t* target,
              int32_t stridePixels,
              int32_t windowWidth,
              int32_t windowHeight);

    /// Draws again what shows one of the changed rows, into a target that has held the whole
    /// picture since draw() in the same size. Of the program's doubled rows the upper ones count.
    /// @returns where it has drawn, from the top down
    std::vector<RowBand> drawChanged(const uint16_t* picture,
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

    static std::vector<Cover> covers(int32_t windowPixels, int32_t programPixels);
    void drawRow(const uint16_t* picture, const Cover& row, uint32_t* target);
    void drawWholePixels(const uint16_t* row, uint32_t* target) const;

    PicturePlace prepared;
    std::vector<Cover> columns;
    std::vector<Cover> rows;
};
