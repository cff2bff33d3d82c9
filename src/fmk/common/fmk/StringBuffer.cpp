// SPDX-License-Identifier: MIT
#include "StringBuffer.h"

#include "ArrFunc.h"
#include "OspBase.h"

#include <algorithm>
#include <memory>
#include <string>

using Osp::Base::String;

namespace {

constexpr int32_t kDefaultCapacity = 16;

int32_t lengthOf(const String* text) {
    return text == nullptr ? 0 : text->GetLength();
}

String textOf(const char* utf8) {
    return utf8 == nullptr ? String() : String(utf8);
}

int32_t lengthOf(const char16_t* text) {
    return text == nullptr ? 0 : static_cast<int32_t>(std::char_traits<char16_t>::length(text));
}

}  // namespace

StringBuffer::StringBuffer()
    : StringBuffer(kDefaultCapacity) {}

StringBuffer::StringBuffer(int32_t capacity)
    : characters(newArray<char16_t>(capacity)) {}

StringBuffer::StringBuffer(const String* text)
    : StringBuffer(lengthOf(text)) {
    append(text);
}

StringBuffer::StringBuffer(const char* utf8)
    : StringBuffer(textOf(utf8).GetLength()) {
    append(utf8);
}

StringBuffer::~StringBuffer() {
    deleteArrFunc(characters);
}

StringBuffer* StringBuffer::append(const String* text) {
    const int32_t count = lengthOf(text);
    ensureCapacity(used + count);
    for (int32_t i = 0; i < count; i++) {
        characters[used + i] = (*text)[i];
    }
    used += count;
    return this;
}

StringBuffer* StringBuffer::append(const char* utf8) {
    const String text = textOf(utf8);
    return append(&text);
}

StringBuffer* StringBuffer::append(char16_t character) {
    return insert(used, character);
}

StringBuffer* StringBuffer::append(const char16_t* text) {
    return insert(used, text, lengthOf(text));
}

StringBuffer* StringBuffer::append(const char16_t* text, int32_t off, int32_t len) {
    return text == nullptr ? this : insert(used, text + off, len);
}

StringBuffer* StringBuffer::append(GnoObject* object) {
    if (object == nullptr) {
        return this;
    }
    const std::unique_ptr<String> text(object->toString());
    return append(text.get());
}

StringBuffer* StringBuffer::append(int32_t value) {
    const String text = Osp::Base::Integer::ToString(value);
    return append(&text);
}

StringBuffer* StringBuffer::append(bool value) {
    return append(value ? "true" : "false");
}

StringBuffer* StringBuffer::insert(int32_t off, char16_t character) {
    return insert(off, &character, 1);
}

StringBuffer* StringBuffer::insert(int32_t off, const char16_t* text, int32_t len) {
    // An insert after the end of the text would leave characters that were never written.
    if (off < 0 || off > used || text == nullptr || len <= 0) {
        return this;
    }
    ensureCapacity(used + len);
    std::copy_backward(characters + off, characters + used, characters + used + len);
    std::copy_n(text, len, characters + off);
    used += len;
    return this;
}

char16_t StringBuffer::charAt(int32_t index) const {
    return index >= 0 && index < used ? characters[index] : u'\0';
}

int32_t StringBuffer::capacity() const {
    return ::length(characters);
}

void StringBuffer::setLength(int32_t length) {
    const int32_t wanted = std::max(length, 0);
    ensureCapacity(wanted);
    if (wanted > used) {
        std::fill(characters + used, characters + wanted, u'\0');
    }
    used = wanted;
}

StringBuffer* StringBuffer::deleteFrom(int32_t start, int32_t end) {
    const int32_t from = std::clamp(start, 0, used);
    const int32_t to = std::clamp(end, from, used);
    std::copy(characters + to, characters + used, characters + from);
    used -= to - from;
    return this;
}

void StringBuffer::ensureCapacity(int32_t minimum) {
    if (minimum <= capacity()) {
        return;
    }
    // capacity() <= 0xFFFFFF: doubling cannot overflow.
    auto* grown = newArray<char16_t>(std::max(minimum, 2 * capacity() + 2));
    std::copy_n(characters, used, grown);
    deleteArrFunc(characters);
    characters = grown;
}

String* StringBuffer::toString() {
    auto* text = new String();
    for (int32_t i = 0; i < used; i++) {
        text->Append(characters[i]);
    }
    return text;
}
