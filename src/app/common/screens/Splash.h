// SPDX-License-Identifier: MIT
// The start picture. While it is shown, checks that this phone can keep sounds.
#pragma once

#include "Screen.h"

class AppImage;

class Splash : public Screen {
public:
    /// If the program is paused, most of the work is done only after the resume.
    void onEnter() override;

    void onEvent(Event* event) override;

private:
    void begin();
    static void paintPicture(const char* path, int32_t h, int32_t y);
    static bool enoughStorage();

    bool waitsForResume = false;
};
