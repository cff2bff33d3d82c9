// SPDX-License-Identifier: MIT
#include "WindowLayout.h"

#include "Host.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int32_t kWidth = HostFrame::kWidthPx;
constexpr int32_t kHeight = HostFrame::kHeightPx;
constexpr int32_t kStripHeight = HostFrame::kCanvasTopPx;
constexpr int32_t kPictureHeight = kHeight - kStripHeight;

/// The largest rectangle with the proportions width : height, in the middle of the window.
PicturePlace fit(int32_t width, int32_t height, int32_t windowWidth, int32_t windowHeight) {
    PicturePlace place;
    if (int64_t{windowWidth} * height < int64_t{windowHeight} * width) {
        place.width = windowWidth;
        place.height = static_cast<int32_t>(int64_t{windowWidth} * height / width);
    } else {
        place.width = static_cast<int32_t>(int64_t{windowHeight} * width / height);
        place.height = windowHeight;
    }
    place.x = (windowWidth - place.width) / 2;
    place.y = (windowHeight - place.height) / 2;
    return place;
}

/// part / whole of a length, rounded.
int32_t share(int32_t length, int32_t part, int32_t whole) {
    return static_cast<int32_t>((int64_t{length} * part + whole / 2) / whole);
}

/// Turns a coordinate of the window into one of the display. The window's pixels first to first +
/// shown - 1 show length pixels of the display.
int32_t scaled(double place, int32_t first, int32_t shown, int32_t length) {
    return static_cast<int32_t>(std::floor((place - first) / std::max(shown, 1) * length));
}

}  // namespace

WindowLayout::WindowLayout(int32_t windowWidth, int32_t windowHeight) {
    // The size of a display pixel in the window for each arrangement, times the same factor.
    const int64_t stacked = std::min(int64_t{windowWidth} * 2 * kHeight * kPictureHeight,
                                     int64_t{windowHeight} * 2 * kWidth * kPictureHeight);
    const int64_t sideBySide = std::min(int64_t{windowWidth} * kHeight * kPictureHeight,
                                        int64_t{windowHeight} * 2 * kWidth * kHeight);
    if (sideBySide > stacked) {
        putSideBySide(windowWidth, windowHeight);
    } else {
        stack(windowWidth, windowHeight);
    }
}

void WindowLayout::stack(int32_t windowWidth, int32_t windowHeight) {
    const PicturePlace both = fit(kWidth, kHeight, windowWidth, windowHeight);
    stripPlace = both;
    stripPlace.height = share(both.height, kStripHeight, kHeight);
    picturePlace = both;
    picturePlace.y += stripPlace.height;
    picturePlace.height -= stripPlace.height;
}

void WindowLayout::putSideBySide(int32_t windowWidth, int32_t windowHeight) {
    const PicturePlace both = fit(2 * kWidth, kPictureHeight, windowWidth, windowHeight);
    stripPlace = both;
    stripPlace.width = both.width / 2;
    stripPlace.height = share(stripPlace.width, kStripHeight, kWidth);
    stripPlace.y += (both.height - stripPlace.height) / 2;
    picturePlace = both;
    picturePlace.x += stripPlace.width;
    picturePlace.width = stripPlace.width;
}

DisplayPoint WindowLayout::at(double x, double y) const {
    if (stripPlace.contains(x, y)) {
        return at(x, y, WindowPart::kStrip);
    }
    return picturePlace.contains(x, y) ? at(x, y, WindowPart::kPicture) : DisplayPoint{};
}

DisplayPoint WindowLayout::at(double x, double y, WindowPart part) const {
    if (part == WindowPart::kNone) {
        return at(x, y);
    }
    const bool onStrip = part == WindowPart::kStrip;
    const PicturePlace& place = onStrip ? stripPlace : picturePlace;
    const int32_t top = onStrip ? 0 : kStripHeight;
    const int32_t height = onStrip ? kStripHeight : kPictureHeight;
    return {part, scaled(x, place.x, place.width, kWidth),
            top + scaled(y, place.y, place.height, height)};
}
