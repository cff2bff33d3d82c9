// SPDX-License-Identifier: MIT
#include "WebTexts.h"

#include <utility>

namespace {

constexpr int32_t kFullQ10 = 1024;
constexpr int32_t kStepQ10 = kFullQ10 / 8;
constexpr const char* kHexDigits = "0123456789abcdef";

std::string field(const char* name, const std::string& value) {
    return std::string("\"") + name + "\":" + value;
}

const char* truth(bool is) {
    return is ? "true" : "false";
}

std::string
namedPlace(const std::string& text, const ScreenPlace& place, int32_t topPx, bool isFocused) {
    return field("text", WebTexts::quoted(text)) + "," +
           field("place", "[" + std::to_string(place.x) + "," + std::to_string(place.y - topPx) +
                              "," + std::to_string(place.w) + "," + std::to_string(place.h) + "]") +
           "," + field("isFocused", truth(isFocused));
}

std::string entry(const ScreenTexts::Entry& e) {
    return "{" + namedPlace(e.text, e.place, 0, e.isFocused) + "}";
}

/// The name by which the page knows a button of the strip: one of the five that are always there,
/// or the action of the message; "" for any other.
const char* idOf(const StripButton& button) {
    if (button.part == StripButton::Part::kMessage) {
        return "action";
    }
    if (button.part != StripButton::Part::kKeys) {
        return "";
    }
    switch (button.wish.kind) {
    case StripWish::Kind::kSave:
        return "save";
    case StripWish::Kind::kOpen:
        return "open";
    case StripWish::Kind::kMicrophones:
        return "microphones";
    case StripWish::Kind::kSounds:
        return "sounds";
    case StripWish::Kind::kHelp:
        return "help";
    default:
        return "";
    }
}

std::string buttonJson(const StripButton& button) {
    return "{" + namedPlace(button.name, button.place, StripModel::kHeightPx, button.isLit) + "," +
           field("id", WebTexts::quoted(idOf(button))) + "," +
           field("isEnabled", truth(button.isEnabled)) + "}";
}

std::string joined(const std::vector<std::string>& rows, std::string start) {
    for (const std::string& row : rows) {
        start += (start.empty() || row.empty() ? "" : " ") + row;
    }
    return start;
}

template <typename Entries>
std::string list(const Entries& entries) {
    std::string json;
    for (const ScreenTexts::Entry& e : entries) {
        json += (json.empty() ? "" : ",") + entry(e);
    }
    return "[" + json + "]";
}

int32_t percentOf(int32_t progressQ10) {
    return progressQ10 == ScreenTexts::kNoProgress ? -1 : progressQ10 * 100 / kFullQ10;
}

}  // namespace

const char* WebTexts::ifNew(ScreenTexts texts, const std::string& strip) {
    if (texts.progressQ10 != ScreenTexts::kNoProgress) {
        texts.progressQ10 -= texts.progressQ10 % kStepQ10;
    }
    if (!json.empty() && texts == told && strip == toldStrip) {
        return nullptr;
    }
    told = std::move(texts);
    toldStrip = strip;
    json = toJson(told);
    json.replace(json.size() - 1, 1, "," + field("strip", strip) + "}");
    return json.c_str();
}

std::string WebTexts::quoted(const std::string& utf8) {
    std::string json = "\"";
    for (const char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            json += '\\';
            json += c;
        } else if (byte < 0x20) {
            json += "\\u00";
            json += kHexDigits[byte >> 4];
            json += kHexDigits[byte & 15];
        } else {
            json += c;
        }
    }
    return json + "\"";
}

std::string WebTexts::stripJson(const StripModel& model) {
    std::string buttons;
    for (const StripButton& button : model.buttons()) {
        buttons += (buttons.empty() ? "" : ",") + buttonJson(button);
    }
    const bool isCovered = model.sheet() != StripModel::Sheet::kNone;
    return "{" + field("line", quoted(joined(model.lines(), ""))) + "," +
           field("isTelling", truth(model.isTelling())) + "," +
           field("sheet",
                 quoted(isCovered ? joined(model.sheetRows(), model.sheetTitle() + ".") : "")) +
           "," + field("buttons", "[" + buttons + "]") + "}";
}

std::string WebTexts::toJson(const ScreenTexts& texts) {
    return "{" + field("language", quoted(texts.language)) + "," +
           field("screen", quoted(texts.screen)) + "," + field("title", quoted(texts.title)) + "," +
           field("arrows", list(texts.arrows)) + "," + field("heading", quoted(texts.heading)) +
           "," + field("message", quoted(texts.message)) + "," +
           field("isQuestion", truth(texts.isQuestion)) + "," +
           field("entries", list(texts.entries)) + "," + field("caption", quoted(texts.caption)) +
           "," + field("progressPercent", std::to_string(percentOf(texts.progressQ10))) + "," +
           field("softKeys", list(texts.softKeys)) + "}";
}
