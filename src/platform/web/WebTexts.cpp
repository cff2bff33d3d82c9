#include "WebTexts.h"

#include <utility>

namespace {

constexpr int32_t kFullQ10 = 1024;
constexpr int32_t kStepQ10 = kFullQ10 / 8;
constexpr const char* kHexDigits = "0123456789abcdef";

std::string field(const char* name, const std::string& value) {
    return std::string("\"") + name + "\":" + value;
}

std::string entry(const ScreenTexts::Entry& e) {
    const ScreenPlace& place = e.place;
    return "{" + field("text", WebTexts::quoted(e.text)) + "," +
           field("place", "[" + std::to_string(place.x) + "," + std::to_string(place.y) + "," +
                              std::to_string(place.w) + "," + std::to_string(place.h) + "]") +
           "," + field("isFocused", e.isFocused ? "true" : "false") + "}";
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

const char* WebTexts::ifNew(ScreenTexts texts) {
    if (texts.progressQ10 != ScreenTexts::kNoProgress) {
        texts.progressQ10 -= texts.progressQ10 % kStepQ10;
    }
    if (!json.empty() && texts == told) {
        return nullptr;
    }
    told = std::move(texts);
    json = toJson(told);
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

std::string WebTexts::toJson(const ScreenTexts& texts) {
    return "{" + field("language", quoted(texts.language)) + "," +
           field("screen", quoted(texts.screen)) + "," + field("title", quoted(texts.title)) + "," +
           field("arrows", list(texts.arrows)) + "," + field("heading", quoted(texts.heading)) +
           "," + field("message", quoted(texts.message)) + "," +
           field("isQuestion", texts.isQuestion ? "true" : "false") + "," +
           field("entries", list(texts.entries)) + "," + field("caption", quoted(texts.caption)) +
           "," + field("progressPercent", std::to_string(percentOf(texts.progressQ10))) + "," +
           field("softKeys", list(texts.softKeys)) + "}";
}
