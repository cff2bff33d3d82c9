// SPDX-License-Identifier: MIT
#include "WindowSizes.h"

#include "Host.h"
#include "WindowLayout.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

using Size = WindowMemory::Size;

namespace {

constexpr int32_t kDecorationPx = 40;  // kept free for a title bar
constexpr double kUsualDpi = 96;
constexpr double kMaxScale = 8;

constexpr Size kStackedStep = {120, 200};
constexpr Size kSideBySideStep = {240, 160};

/// The text as a number; 0 if it is not a number greater than 0.
double numberIn(const std::string& text) {
    char* end = nullptr;
    const double number = std::strtod(text.c_str(), &end);
    return end != text.c_str() && *end == 0 && std::isfinite(number) && number > 0 ? number : 0;
}

Size stepOf(Size now) {
    const WindowLayout layout(now.width, now.height);
    return layout.strip().x < layout.picture().x ? kSideBySideStep : kStackedStep;
}

/// How many whole steps fit into the size.
int32_t stepsIn(Size size, Size step) {
    return std::min(size.width / step.width, size.height / step.height);
}

}  // namespace

double
WindowSizes::desktopScale(bool isScaled, const std::string& xftDpi, const std::string& gdkScale) {
    if (isScaled) {
        return 1;
    }
    const double byDpi = numberIn(xftDpi) / kUsualDpi;
    const double scale = byDpi > 0 ? byDpi : numberIn(gdkScale);
    return scale > 0 ? std::clamp(scale, 1.0, kMaxScale) : 0;
}

Size WindowSizes::usual(double scale, Size room) {
    const Size size{static_cast<int32_t>(std::lround(scale * HostFrame::kWidthPx)),
                    static_cast<int32_t>(std::lround(scale * HostFrame::kHeightPx))};
    // A screen that is exactly as large as the phone's has no room for a title bar: none is kept
    // free.
    if (!room.isKnown() || (room.height >= size.height && room.width >= size.width)) {
        return size;
    }
    const int32_t fittingHeight = std::min(room.height - kDecorationPx,
                                           room.width * HostFrame::kHeightPx / HostFrame::kWidthPx);
    const int32_t height = std::max(fittingHeight, kMinHeight);
    return {height * HostFrame::kWidthPx / HostFrame::kHeightPx, height};
}

Size WindowSizes::larger(Size now, Size room) {
    const Size step = stepOf(now);
    const int32_t steps = stepsIn(now, step) + 1;
    const Size size{steps * step.width, steps * step.height};
    const bool fits = !room.isKnown() || (size.width <= room.width && size.height <= room.height);
    return fits ? size : now;
}

Size WindowSizes::smaller(Size now) {
    const Size step = stepOf(now);
    const int32_t steps = stepsIn({now.width - 1, now.height - 1}, step);
    const Size size{steps * step.width, steps * step.height};
    return size.width >= kMinWidth && size.height >= kMinHeight ? size : now;
}
