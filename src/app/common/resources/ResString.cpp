// SPDX-License-Identifier: MIT
#include "ResString.h"

#include "OspBase.h"

using Osp::Base::String;

namespace {

String** newTexts(String* text) {
    auto** texts = newArray<String*>(1);
    texts[0] = text;
    return texts;
}

}  // namespace

ResString::ResString(String* text)
    : texts(newTexts(text)) {}

ResString::ResString(String** texts)
    : texts(texts) {}

ResString::~ResString() {
    deleteTexts();
}

void ResString::replace(String* text) {
    deleteTexts();
    texts.reset(newTexts(text));
}

void ResString::replace(String** newTexts) {
    deleteTexts();
    texts.reset(newTexts);
}

void ResString::deleteTexts() {
    for (int32_t i = 0; i < length(texts); i++) {
        delete texts[i];
    }
    texts.reset();
}
