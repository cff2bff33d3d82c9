// SPDX-License-Identifier: MIT
// Geometry of a part of an ellipse: its outline by the midpoint rule, and what lies between its two
// angles.
//
// Points are counted from the centre in half pixels, u to the right and v upwards, so that boxes of
// even and odd size are both exact. Degrees run counter-clockwise from three o'clock and are
// stretched with the ellipse.
#pragma once

#include <cstdint>
#include <initializer_list>

class Arc {
public:
    /// The longest edge: with a longer one, products would not fit 64 bits.
    static constexpr int32_t kMaxEdgePx = 32767;

    /// @param w, h    the axes in pixels, 0 .. kMaxEdgePx
    /// @param arcDeg  negative runs clockwise
    Arc(int32_t w, int32_t h, int32_t startDeg, int32_t arcDeg);

    static bool isDrawable(int32_t w, int32_t h) {
        return w >= 0 && h >= 0 && w <= kMaxEdgePx && h <= kMaxEdgePx;
    }

    /// True if the point lies between the two angles or on one of them.
    bool isBetweenAngles(int32_t u, int32_t v) const;

    /// True if the point lies in the ellipse or on it.
    bool isInEllipse(int32_t u, int32_t v) const { return excess(u, v) <= 0; }

    /// Calls plot(u, v) for each point of the outline between the angles, for some points more than
    /// once.
    template <typename Plot>
    void outline(Plot plot) const;

private:
    struct Direction {
        int64_t xQ30, yQ30;
    };

    static Direction direction(int64_t deg);
    static int64_t cross(const Direction& a, int64_t x, int64_t y);
    int64_t excess(int64_t u, int64_t v) const;

    template <typename Plot>
    void plotFourfold(Plot plot, int32_t u, int32_t v) const;

    int32_t w;
    int32_t h;
    int64_t sweepDeg;
    Direction start;
    Direction end;
};

/// Greater than 0 outside the ellipse, less than 0 inside, 0 on it.
inline int64_t Arc::excess(int64_t u, int64_t v) const {
    const int64_t ww = int64_t{w} * w;
    const int64_t hh = int64_t{h} * h;
    return u * u * hh + v * v * ww - ww * hh;  // each term below 2**61
}

template <typename Plot>
void Arc::plotFourfold(Plot plot, int32_t u, int32_t v) const {
    for (const int32_t x : {u, -u}) {
        for (const int32_t y : {v, -v}) {
            if (isBetweenAngles(x, y)) {
                plot(x, y);
            }
        }
    }
}

template <typename Plot>
void Arc::outline(Plot plot) const {
    const int64_t ww = int64_t{w} * w;
    const int64_t hh = int64_t{h} * h;
    int32_t u = w & 1;
    int32_t v = h;
    plotFourfold(plot, u, v);
    // The flat part, column by column. Goes down a row if the point midway between two rows lies
    // outside.
    while (u + 2 <= w && (u + 2) * hh < (v - 1) * ww) {
        u += 2;
        v -= excess(u, v - 1) > 0 ? 2 : 0;
        plotFourfold(plot, u, v);
    }
    // The steep part, row by row, beginning with the rest of the flat part's last row.
    for (;;) {
        while (excess(u + 1, v) < 0) {
            u += 2;
            plotFourfold(plot, u, v);
        }
        if (v < 2) {
            break;
        }
        v -= 2;
        if (excess(u + 1, v) >= 0) {
            plotFourfold(plot, u, v);
        }
    }
    // The tips of an ellipse so flat that the steep part has no row of its own.
    while (u + 2 <= w) {
        u += 2;
        plotFourfold(plot, u, v);
    }
}
