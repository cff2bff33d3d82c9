// SPDX-License-Identifier: MIT
#include "SpokenScreen.h"

#include "HostWords.h"

#include <utility>

namespace {

void add(std::string& all, const std::string& sentence) {
    if (!sentence.empty()) {
        all += (all.empty() ? "" : ". ") + sentence;
    }
}

std::string focusOf(const ScreenTexts& texts) {
    for (const ScreenTexts::Entry& entry : texts.entries) {
        if (entry.isFocused) {
            return entry.text;
        }
    }
    return "";
}

}  // namespace

std::string SpokenScreen::change(const ScreenTexts& texts, const std::string& message) {
    std::string screen;
    add(screen, HostWords::text("screen" + texts.screen, texts.language));
    for (const std::string& part : {texts.title, texts.heading, texts.message, texts.caption}) {
        add(screen, part);
    }
    const std::string focus = focusOf(texts);
    std::string keys;
    for (const ScreenTexts::Entry& key : texts.softKeys) {
        add(keys, key.text);
    }

    std::string spoken;
    if (std::exchange(lastScreen, screen) != screen) {
        add(spoken, screen);
        add(spoken, focus);
        add(spoken, keys);
    } else if (focus != lastFocus) {
        add(spoken, focus);
    }
    lastFocus = focus;
    if (std::exchange(lastMessage, message) != message) {
        add(spoken, message);
    }
    return spoken;
}
