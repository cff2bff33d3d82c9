// SPDX-License-Identifier: MIT
#include "SystemLanguage.h"

#include "Languages.h"

#include <cstdlib>
#include <sstream>

namespace {

constexpr int32_t kNone = -1;

std::string variable(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

/// Index of the language of a locale such as "de_AT.UTF-8"; kNone if the program does not have that
/// language.
int32_t indexOfLocale(const std::string& locale) {
    const std::string code = locale.substr(0, locale.find_first_of("_.@"));
    for (size_t i = 0; i < Languages::kCount; i++) {
        if (code == Languages::kAll[i].code) {
            return static_cast<int32_t>(i);
        }
    }
    return kNone;
}

}  // namespace

SystemLanguage::Environment SystemLanguage::environment() {
    return {variable("LANGUAGE"), variable("LC_ALL"), variable("LC_MESSAGES"), variable("LANG")};
}

int32_t SystemLanguage::indexOf(const Environment& environment) {
    std::string locale = environment.all;
    locale = !locale.empty() ? locale : environment.messages;
    locale = !locale.empty() ? locale : environment.lang;
    const std::string code = locale.substr(0, locale.find_first_of("_.@"));
    if (code.empty() || code == "C" || code == "POSIX") {
        return 0;  // as in gettext, LANGUAGE counts only if a locale is set
    }
    std::istringstream list(environment.language);
    for (std::string entry; std::getline(list, entry, ':');) {
        const int32_t index = indexOfLocale(entry);
        if (index != kNone) {
            return index;
        }
    }
    const int32_t index = indexOfLocale(locale);
    return index != kNone ? index : 0;
}
