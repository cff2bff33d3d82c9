// SPDX-License-Identifier: MIT
// A translucent window with a caption and a progress bar, for a recording and for the work on a
// sound.
#pragma once

#include <cstdint>
#include <memory>

class Bounds;
class PaTextArea;

class Progress {
public:
    /// Paints the window over the present picture, with the caption and the bar at 0. The screen
    /// paints its background first.
    static void paintInit(int32_t captionId);

    /// Paints only the bar, unless it already shows this progress.
    /// @param progress  0 to 1024
    static void paintProgress(int32_t progress);
    static void flushProgress();

    /// True if the window is on the screen: from paintInit() until a whole picture covers it.
    static bool isVisible() { return visible; }

    static void static_ctor();
    static void static_dtor();

    static bool visible;
    static int32_t shownQ10;  // of the bar, 0 to 1024
    static std::unique_ptr<PaTextArea> caption;
    static std::unique_ptr<Bounds> bar;  // the trough

private:
    static void paintBar(int32_t filled);

    static int32_t paintedPx;  // how much of the bar is filled, as it stands on the screen
};
