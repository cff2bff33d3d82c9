#include "WindowTitle.h"

#include "HostWords.h"

namespace {

constexpr const char* kProgram = "Murmelo";

/// Empty for a screen without a name of its own.
std::string nameOf(const ScreenTexts& texts) {
    return HostWords::text("screen" + texts.screen, texts.language);
}

}  // namespace

std::string WindowTitle::of(const ScreenTexts& texts) {
    const std::string screen = nameOf(texts);
    std::string title = screen;
    if (!texts.title.empty()) {
        title += (screen.empty() ? "" : ": ") + texts.title;
    }
    return title.empty() ? kProgram : title + " - " + kProgram;
}
