// SPDX-License-Identifier: MIT
#include "HostWords.h"

#include "HostWordTables.h"

#include <algorithm>

namespace {

size_t indexOf(const std::string& language) {
    const auto* found =
        std::find_if(std::begin(Languages::kAll), std::end(Languages::kAll),
                     [&language](const Language& row) { return language == row.code; });
    return found != std::end(Languages::kAll)
               ? static_cast<size_t>(found - std::begin(Languages::kAll))
               : 0;
}

std::vector<HostWords::Row> all() {
    std::vector<HostWords::Row> rows;
    for (const auto table :
         {HostWordTables::ofKeys(), HostWordTables::ofRecording(), HostWordTables::ofFiles(),
#ifndef __EMSCRIPTEN__
          HostWordTables::ofDesktop(), HostWordTables::ofReasons()
#endif
         }) {
        rows.insert(rows.end(), table.begin(), table.end());
    }
    return rows;
}

}  // namespace

const std::vector<HostWords::Row>& HostWords::rows() {
    static const std::vector<Row> kAll = all();
    return kAll;
}

const char* HostWords::text(const Row& row, const std::string& language) {
    return row.texts[indexOf(language)];
}

const char* HostWords::text(const std::string& name, const std::string& language) {
    for (const Row& row : rows()) {
        if (name == row.name) {
            return text(row, language);
        }
    }
    return "";
}

std::string HostWords::reason(const std::string& english, const std::string& language) {
#ifndef __EMSCRIPTEN__
    for (const Row& row : HostWordTables::ofReasons()) {
        if (english == row.texts[0]) {
            return text(row, language);
        }
    }
#else
    (void)language;
#endif
    return english;
}
