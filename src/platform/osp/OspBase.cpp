// SPDX-License-Identifier: MIT
#include "OspBase.h"

#include "Host.h"

#include <cmath>

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kLargestCodePoint = 0x10FFFF;

bool isContinuation(unsigned char byte) {
    return (byte & 0xC0) == 0x80;
}

/// Decodes one code point of a zero-terminated text and moves the pointer after it. Malformed bytes
/// give the replacement character.
char32_t nextCodePoint(const char*& utf8) {
    const auto lead = static_cast<unsigned char>(*utf8++);
    if (lead < 0x80) {
        return lead;
    }
    const int32_t more = lead >= 0xF0 ? 3 : (lead >= 0xE0 ? 2 : 1);
    if (lead < 0xC2 || lead > 0xF4) {
        return kReplacement;
    }
    char32_t codePoint = lead & (0x3FU >> more);
    for (int32_t i = 0; i < more; i++) {
        const auto byte = static_cast<unsigned char>(*utf8);
        if (!isContinuation(byte)) {
            return kReplacement;
        }
        codePoint = (codePoint << 6) | (byte & 0x3FU);
        utf8++;
    }
    return codePoint <= kLargestCodePoint ? codePoint : kReplacement;
}

void appendUtf16(std::u16string& text, char32_t codePoint) {
    if (codePoint < 0x10000) {
        text += static_cast<char16_t>(codePoint);
        return;
    }
    text += static_cast<char16_t>(0xD800 + ((codePoint - 0x10000) >> 10));
    text += static_cast<char16_t>(0xDC00 + ((codePoint - 0x10000) & 0x3FF));
}

void appendUtf8(std::string& utf8, char32_t codePoint) {
    auto put = [&utf8](char32_t byte) { utf8 += static_cast<char>(byte); };
    if (codePoint < 0x80) {
        put(codePoint);
        return;
    }
    if (codePoint < 0x800) {
        put(0xC0 | (codePoint >> 6));
    } else {
        if (codePoint < 0x10000) {
            put(0xE0 | (codePoint >> 12));
        } else {
            put(0xF0 | (codePoint >> 18));
            put(0x80 | ((codePoint >> 12) & 0x3F));
        }
        put(0x80 | ((codePoint >> 6) & 0x3F));
    }
    put(0x80 | (codePoint & 0x3F));
}

bool isHighSurrogate(char16_t c) {
    return c >= 0xD800 && c < 0xDC00;
}

bool isLowSurrogate(char16_t c) {
    return c >= 0xDC00 && c < 0xE000;
}

}  // namespace

const char* GetErrorMessage(result r) {
    switch (r) {
    case E_SUCCESS:
        return "Success";
    case E_KEY_NOT_FOUND:
        return "The key was not found";
    case E_KEY_ALREADY_EXIST:
        return "The key exists already";
    default:
        return "The operation failed";
    }
}

namespace Osp::Base {

String::String(const char* utf8) {
    while (*utf8 != '\0') {
        appendUtf16(text, nextCodePoint(utf8));
    }
}

String::String(const char16_t* text)
    : text(text) {}

bool String::StartsWith(const String& other, int32_t from) const {
    return from >= 0 && from <= GetLength() &&
           text.compare(static_cast<size_t>(from), other.text.size(), other.text) == 0;
}

bool String::EndsWith(const String& other) const {
    return StartsWith(other, GetLength() - other.GetLength());
}

void String::Append(int32_t value) {
    Append(Integer::ToString(value));
}

String String::SubString(int32_t start, int32_t count) const {
    String part;
    if (start >= 0 && start < GetLength() && count > 0) {
        part.text = text.substr(static_cast<size_t>(start), static_cast<size_t>(count));
    }
    return part;
}

std::string String::ToUtf8() const {
    std::string utf8;
    for (size_t i = 0; i < text.size(); i++) {
        char32_t codePoint = text[i];
        if (isHighSurrogate(text[i]) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
            codePoint = 0x10000 + ((codePoint - 0xD800) << 10) + (text[i + 1] - char32_t{0xDC00});
            i++;
        } else if (isHighSurrogate(text[i]) || isLowSurrogate(text[i])) {
            codePoint = kReplacement;
        }
        appendUtf8(utf8, codePoint);
    }
    return utf8;
}

String operator+(const String& a, const String& b) {
    String sum(a);
    sum.Append(b);
    return sum;
}

String Integer::ToString(int32_t value) {
    return String(std::to_string(value).c_str());
}

namespace Collection {

result ArrayList::Construct(int32_t capacity) {
    items.reserve(static_cast<size_t>(capacity));
    return E_SUCCESS;
}

result ArrayList::Add(Object& object) {
    items.push_back(&object);
    return E_SUCCESS;
}

Object* ArrayList::GetAt(int32_t index) {
    return index >= 0 && index < GetCount() ? items[static_cast<size_t>(index)] : nullptr;
}

void ArrayList::RemoveAll(bool deallocate) {
    if (deallocate) {
        for (Object* item : items) {
            delete item;
        }
    }
    items.clear();
}

}  // namespace Collection

void Runtime::Thread::Yield() {
    Host::current().yielded();
}

double Utility::Math::Sqrt(double value) {
    return std::sqrt(value);
}

}  // namespace Osp::Base
