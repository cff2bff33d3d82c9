// SPDX-License-Identifier: MIT
// A text: one for all languages, or one for each.
#pragma once

#include "Array.h"
#include "Resource.h"

class ResString : public Resource {
public:
    using String = Osp::Base::String;

    /// Language-neutral. The string is owned from now on.
    explicit ResString(String* text);

    /// One text for each language. The counted array and its strings are owned from now on.
    explicit ResString(String** texts);
    ~ResString() override;

    /// The String** array, of one or five texts.
    void* get() override { return texts; }

    /// Keeps the texts, because there is no file to load them from again.
    void free() override {}

    int32_t getType() override { return kTypeString; }

    /// Replace the text by a new one, owned from now on; the old one is deleted.
    void replace(String* text);
    void replace(String** newTexts);

private:
    void deleteTexts();

    Array<String*> texts;  // the strings are owned
};
