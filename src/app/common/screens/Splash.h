// The start picture; behind it, the check whether this phone can keep sounds at all.
#pragma once

#include "Screen.h"

class AppImage;

class Splash : public Screen {
public:
    /// While the program is paused nothing happens yet: the rest follows when it goes on.
    void onEnter() override;

    void onEvent(Event* event) override;

private:
    void begin();
    static void paintPicture(const char* path, int32_t h, int32_t y);
    static bool enoughStorage();

    bool waitsForResume = false;
};
