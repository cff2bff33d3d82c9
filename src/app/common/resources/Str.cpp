// SPDX-License-Identifier: MIT
#include "Str.h"

#include "Array.h"
#include "Languages.h"
#include "OspBase.h"
#include "Res.h"
#include "StrTexts.h"

using Osp::Base::String;

namespace {

/// A new counted array of new strings.
String** newTexts(const Translations& translations) {
    auto** texts = newArray<String*>(Res::kLanguages);
    for (int32_t language = 0; language < Res::kLanguages; language++) {
        texts[language] = new String(translations.utf8[language]);
    }
    return texts;
}

/// The same of the names of the languages.
String** newLanguageNames() {
    auto** names = newArray<String*>(Res::kLanguages);
    for (int32_t language = 0; language < Res::kLanguages; language++) {
        names[language] = new String(Languages::kAll[language].name);
    }
    return names;
}

}  // namespace

void Str::static_ctor() {
    const Array<String*> names(newLanguageNames());
    str_LangNameIds = Res::addLanguageNames(names);
    int32_t count = 0;
    const StrTexts* rows = StrTexts::rows(count);
    for (int32_t i = 0; i < count; i++) {
        *rows[i].id = Res::addStr(newTexts(rows[i].texts));
    }
}

void Str::static_dtor() {
    deleteArrFunc(str_LangNameIds);
    str_LangNameIds = nullptr;
}
