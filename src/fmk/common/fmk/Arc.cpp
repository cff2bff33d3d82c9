// SPDX-License-Identifier: MIT
#include "Arc.h"

#include <array>
#include <cstddef>
#include <cstdlib>

namespace {

constexpr int32_t kQuarterDeg = 90;
constexpr int32_t kFullDeg = 360;
constexpr size_t kSines = kQuarterDeg + 1;  // both ends of the quarter
constexpr double kPi = 3.14159265358979323846;

/// Sine by its power series, worked out by the compiler: the same on every machine.
constexpr int64_t sineQ30(int32_t deg) {
    const double angle = deg * kPi / 180.0;
    double term = angle;
    double sum = angle;
    for (int32_t n = 2; n < 24; n += 2) {
        term *= -angle * angle / (n * (n + 1));
        sum += term;
    }
    // rounded; NOLINTNEXTLINE(bugprone-incorrect-roundings): never negative, and not at run time
    return static_cast<int64_t>(sum * (1 << 30) + 0.5);
}

constexpr std::array<int64_t, kSines> makeQuarter() {
    std::array<int64_t, kSines> sines = {};
    for (int32_t deg = 0; deg <= kQuarterDeg; deg++) {
        sines[static_cast<size_t>(deg)] = sineQ30(deg);
    }
    return sines;
}

constexpr std::array<int64_t, kSines> kSinesQ30 = makeQuarter();

}  // namespace

Arc::Arc(int32_t w, int32_t h, int32_t startDeg, int32_t arcDeg)
    : w(w)
    , h(h)
    , sweepDeg(std::abs(int64_t{arcDeg}))
    , start(direction(arcDeg < 0 ? int64_t{startDeg} + arcDeg : startDeg))
    , end(direction(arcDeg < 0 ? startDeg : int64_t{startDeg} + arcDeg)) {}

Arc::Direction Arc::direction(int64_t deg) {
    const int64_t turned = (deg % kFullDeg + kFullDeg) % kFullDeg;
    const auto within = static_cast<size_t>(turned % kQuarterDeg);
    const int64_t sine = kSinesQ30[within];
    const int64_t cosine = kSinesQ30[kQuarterDeg - within];
    switch (turned / kQuarterDeg) {
    case 0:
        return {cosine, sine};
    case 1:
        return {-sine, cosine};
    case 2:
        return {-cosine, -sine};
    default:
        return {sine, -cosine};
    }
}

/// Greater than 0 if (x, y) lies counter-clockwise of the direction.
int64_t Arc::cross(const Direction& a, int64_t x, int64_t y) {
    return a.xQ30 * y - a.yQ30 * x;  // |x|, |y| below 2**30
}

bool Arc::isBetweenAngles(int32_t u, int32_t v) const {
    if (sweepDeg == 0 || sweepDeg >= kFullDeg) {
        return sweepDeg != 0;
    }
    const int64_t x = int64_t{u} * h;  // the ellipse stretched to a circle
    const int64_t y = int64_t{v} * w;
    const int64_t fromStart = cross(start, x, y);
    const int64_t fromEnd = cross(end, x, y);
    return sweepDeg <= kFullDeg / 2 ? fromStart >= 0 && fromEnd <= 0
                                    : fromStart >= 0 || fromEnd <= 0;
}
