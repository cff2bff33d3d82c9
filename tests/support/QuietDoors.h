// SPDX-License-Identifier: MIT
// A program that rests on a screen of the test's choice and does nothing. A test overrides the
// doors that it wants to use.
#pragma once

#include "Host.h"

#include <cstdint>
#include <string>
#include <vector>

class QuietDoors : public HostDoors {
public:
    std::string screenName() override { return screen; }

    int32_t currentEffect() override { return 0; }

    bool navigate(HostKey /*key*/) override { return false; }

    bool stopRecording() override { return false; }

    bool saveSound() override { return false; }

    bool useSound(const int16_t* /*samples*/, int32_t /*count*/) override { return false; }

    int32_t savedCount() override { return 0; }

    std::string savedName() override { return ""; }

    std::vector<uint8_t> canvasPng() override { return {}; }

    ScreenTexts texts() override {
        ScreenTexts texts;
        texts.language = language;
        texts.screen = screen;
        return texts;
    }

    std::string screen;
    std::string language = "en";
};
