// SPDX-License-Identifier: MIT
// The outline and the angles of an arc are those of the true ellipse.
#include "Arc.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <string>
#include <utility>

namespace {

using Points = std::set<std::pair<int32_t, int32_t>>;

Points outline(int32_t w, int32_t h, int32_t startDeg, int32_t arcDeg) {
    Points points;
    Arc(w, h, startDeg, arcDeg).outline([&points](int32_t u, int32_t v) { points.insert({u, v}); });
    return points;
}

/// Rows of the w + 1 by h + 1 box, "#" for a point of the outline.
std::vector<std::string> drawn(int32_t w, int32_t h, const Points& points) {
    std::vector<std::string> rows(static_cast<size_t>(h + 1),
                                  std::string(static_cast<size_t>(w + 1), '.'));
    for (const auto& [u, v] : points) {
        rows.at(static_cast<size_t>((h - v) / 2)).at(static_cast<size_t>((w + u) / 2)) = '#';
    }
    return rows;
}

/// The distance in half pixels from the point to the ellipse, along its row or its column,
/// whichever is shorter.
double distance(int32_t w, int32_t h, int32_t u, int32_t v) {
    const double insideX = 1.0 - static_cast<double>(v) * v / (static_cast<double>(h) * h);
    const double insideY = 1.0 - static_cast<double>(u) * u / (static_cast<double>(w) * w);
    const double alongRow = std::abs(std::abs(u) - w * std::sqrt(std::max(0.0, insideX)));
    const double alongColumn = std::abs(std::abs(v) - h * std::sqrt(std::max(0.0, insideY)));
    return std::min(alongRow, alongColumn);
}

}  // namespace

TEST(Arc, smallCirclesLookRound) {
    EXPECT_EQ((std::vector<std::string>{".###.", "#...#", "#...#", "#...#", ".###."}),
              drawn(4, 4, outline(4, 4, 0, 360)));
    EXPECT_EQ((std::vector<std::string>{".##.", "#..#", "#..#", ".##."}),
              drawn(3, 3, outline(3, 3, 0, 360)));
    EXPECT_EQ((std::vector<std::string>{".#.", "#.#", ".#."}), drawn(2, 2, outline(2, 2, 0, 360)));
    EXPECT_EQ((std::vector<std::string>{"##", "##"}), drawn(1, 1, outline(1, 1, 0, 360)));
}

TEST(Arc, anEllipseWithoutWidthOrHeightIsALine) {
    EXPECT_EQ((std::vector<std::string>{"#######"}), drawn(6, 0, outline(6, 0, 0, 360)));
    EXPECT_EQ((std::vector<std::string>{"#", "#", "#", "#"}), drawn(0, 3, outline(0, 3, 0, 360)));
    EXPECT_EQ((std::vector<std::string>{"#"}), drawn(0, 0, outline(0, 0, 0, 360)));
}

TEST(Arc, everyPointOfTheOutlineLiesWithinHalfAPixelOfTheEllipse) {
    for (int32_t w = 1; w < 40; w++) {
        for (int32_t h = 1; h < 40; h++) {
            for (const auto& [u, v] : outline(w, h, 0, 360)) {
                ASSERT_LE(distance(w, h, u, v), 1.0 + 1e-9)
                    << w << " x " << h << " at " << u << ", " << v;
            }
        }
    }
}

TEST(Arc, theOutlineIsClosedAndTouchesAllFourEdges) {
    for (int32_t w = 0; w < 40; w++) {
        for (int32_t h = 0; h < 40; h++) {
            const Points points = outline(w, h, 0, 360);
            for (int32_t u = -w; u <= w; u += 2) {  // no column and no row is left out
                ASSERT_TRUE(std::any_of(points.begin(), points.end(),
                                        [u](const auto& p) { return p.first == u; }));
            }
            for (int32_t v = -h; v <= h; v += 2) {
                ASSERT_TRUE(std::any_of(points.begin(), points.end(),
                                        [v](const auto& p) { return p.second == v; }));
            }
            for (const auto& [u, v] : points) {
                ASSERT_TRUE(std::abs(u) <= w && std::abs(v) <= h);
                ASSERT_EQ(1U, points.count({-u, v}) * points.count({u, -v}));
            }
        }
    }
}

TEST(Arc, anglesRunCounterClockwiseFromThreeOClock) {
    const Arc arc(100, 100, 0, 90);
    EXPECT_TRUE(arc.isBetweenAngles(50, 0));
    EXPECT_TRUE(arc.isBetweenAngles(30, 30));
    EXPECT_TRUE(arc.isBetweenAngles(0, 50));
    EXPECT_FALSE(arc.isBetweenAngles(-1, 50));
    EXPECT_FALSE(arc.isBetweenAngles(50, -1));
    EXPECT_FALSE(arc.isBetweenAngles(-30, -30));
}

TEST(Arc, anglesAreStretchedWithTheBox) {
    const Arc arc(200, 100, 0, 45);
    EXPECT_TRUE(arc.isBetweenAngles(200, 100));
    EXPECT_FALSE(arc.isBetweenAngles(198, 100));
}

TEST(Arc, everySweepEqualsTheAngleOfEachPoint) {
    const double kPi = std::acos(-1.0);
    for (const int32_t start : {-725, -90, 0, 30, 90, 179, 180, 200, 270, 359, 500}) {
        for (const int32_t sweep : {-359, -180, -90, -1, 1, 45, 90, 179, 180, 181, 270, 359}) {
            const Arc arc(31, 31, start, sweep);
            const int32_t from = sweep < 0 ? start + sweep : start;
            for (int32_t u = -31; u <= 31; u += 2) {
                for (int32_t v = -31; v <= 31; v += 2) {
                    const double deg = std::atan2(v, u) * 180.0 / kPi;
                    const double past = std::fmod(deg - from + 3600.0, 360.0);
                    const double over = past - std::abs(sweep);
                    if (std::abs(over) < 1e-6 || past < 1e-6 || past > 360.0 - 1e-6) {
                        continue;  // on an edge: rounding decides
                    }
                    ASSERT_EQ(over < 0, arc.isBetweenAngles(u, v))
                        << start << " + " << sweep << " at " << u << ", " << v;
                }
            }
        }
    }
}

TEST(Arc, anArcOfNoDegreesIsEmptyAndOneOfMoreThan360IsWhole) {
    EXPECT_TRUE(outline(20, 10, 45, 0).empty());
    EXPECT_EQ(outline(20, 10, 0, 360), outline(20, 10, 45, 4000));
    EXPECT_EQ(outline(20, 10, 0, 360), outline(20, 10, 45, -2147483647 - 1));
}

TEST(Arc, theLargestEllipseDoesNotOverflow) {
    const Points points = outline(Arc::kMaxEdgePx, Arc::kMaxEdgePx, 0, 90);
    EXPECT_EQ(1U, points.count({Arc::kMaxEdgePx, 1}));
    EXPECT_EQ(1U, points.count({1, Arc::kMaxEdgePx}));
    EXPECT_FALSE(Arc::isDrawable(Arc::kMaxEdgePx + 1, 1));
    EXPECT_FALSE(Arc::isDrawable(1, -1));
}
