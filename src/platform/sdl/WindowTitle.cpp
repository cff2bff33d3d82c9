// SPDX-License-Identifier: MIT
#include "WindowTitle.h"

#include "HostMessage.h"
#include "HostWords.h"

namespace {

constexpr const char* kProgram = "Murmelo";

/// The screen's name; empty for a screen without one.
std::string nameOf(const ScreenTexts& texts) {
    return HostWords::text("screen" + texts.screen, texts.language);
}

}  // namespace

std::string WindowTitle::of(const ScreenTexts& texts) {
    const std::string screen = nameOf(texts);
    std::string title = screen + texts.title;
    if (!screen.empty() && !texts.title.empty()) {
        title = HostMessage{"screenWithTitle", {screen, texts.title}}.text(texts.language);
    }
    return title.empty() ? kProgram : title + " - " + kProgram;
}
