// SPDX-License-Identifier: MIT
#include "EffectName.h"

#include "FxCatalogue.h"

#include <algorithm>
#include <cctype>
#include <vector>

namespace {

constexpr size_t kMinPrefix = 3;          // letters: a shorter beginning could fit several names
constexpr size_t kMaxNameLetters = 32;    // a longer text is no misspelt name
constexpr size_t kLettersPerMistake = 3;  // one mistake for every three letters is accepted

static_assert(FxCatalogue::kCount <= 10, "the number of an effect is one digit");

std::string lowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return text;
}

bool startsWith(const std::string& text, const std::string& start) {
    return text.compare(0, start.size(), start) == 0;
}

/// The smallest number of letters to insert, remove, replace, or swap with their neighbour that
/// turns a into b.
size_t mistakes(const std::string& a, const std::string& b) {
    std::vector<std::vector<size_t>> table(a.size() + 1, std::vector<size_t>(b.size() + 1));
    for (size_t i = 0; i <= a.size(); i++) {
        for (size_t j = 0; j <= b.size(); j++) {
            if (i == 0 || j == 0) {
                table[i][j] = i + j;
                continue;
            }
            const size_t other = a[i - 1] == b[j - 1] ? 0 : 1;
            table[i][j] =
                std::min({table[i - 1][j] + 1, table[i][j - 1] + 1, table[i - 1][j - 1] + other});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
                table[i][j] = std::min(table[i][j], table[i - 2][j - 2] + 1);
            }
        }
    }
    return table[a.size()][b.size()];
}

/// The number of mistakes in a text that may mean a name; 1 if one of them begins with the other.
size_t distance(const std::string& text, const std::string& name) {
    const size_t shorter = std::min(text.size(), name.size());
    if (shorter >= kMinPrefix && (startsWith(text, name) || startsWith(name, text))) {
        return 1;
    }
    return mistakes(text, name);
}

}  // namespace

int32_t EffectName::find(const std::string& text) {
    if (text.size() == 1 && text[0] >= '0' && text[0] < '0' + FxCatalogue::kCount) {
        return text[0] - '0';
    }
    return FxCatalogue::find(lowerCase(text).c_str());
}

std::string EffectName::nearest(const std::string& text) {
    if (text.size() > kMaxNameLetters) {
        return "";
    }
    const std::string small = lowerCase(text);
    const size_t maxMistakes = std::max<size_t>(small.size() / kLettersPerMistake, 1);
    size_t best = maxMistakes + 1;
    std::string found;
    for (int32_t effect = 0; effect < FxCatalogue::kCount; effect++) {
        const FxCatalogue::Effect& row = FxCatalogue::at(effect);
        for (const std::string name : {row.word, row.shownName}) {
            const size_t far = distance(small, name);
            if (far < best) {
                best = far;
                found = row.word;
            }
        }
    }
    return found;
}
