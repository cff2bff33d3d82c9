// SPDX-License-Identifier: MIT
#include "TakeKeeper.h"

#include <utility>

TakeKeeper::TakeKeeper(std::string folder, ReportError reportError, Later later)
    : last(std::move(folder))
    , reportError(std::move(reportError))
    , later(std::move(later)) {}

void TakeKeeper::keep(const std::vector<int16_t>& samples) {
    if (const Problem problem = later ? last.write(samples) : last.keep(samples)) {
        reportError(problem);
    } else if (later && !samples.empty()) {
        later([settled = last] { return settled.settle(); });
    }
}

void TakeKeeper::recorded(const std::vector<int16_t>& samples) {
    fromFile.clear();
    isNewest = !samples.empty();
    keep(samples);
}

void TakeKeeper::used(std::vector<int16_t> samples) {
    letGo();
    isNewest = true;
    if (last.isThere()) {
        fromFile = std::move(samples);
    } else {
        keep(samples);
    }
}

void TakeKeeper::letGo() {
    keep(fromFile.empty() ? last.waiting() : std::exchange(fromFile, {}));
}

void TakeKeeper::broughtBack() {
    fromFile.clear();
    isNewest = true;
}

Problem TakeKeeper::forget() {
    fromFile.clear();
    isNewest = false;
    return last.forget();
}
