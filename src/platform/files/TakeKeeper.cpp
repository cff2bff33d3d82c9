// SPDX-License-Identifier: MIT
#include "TakeKeeper.h"

#include "HostSound.h"

#include <utility>

namespace {

constexpr int64_t kTenthSamples = HostMicrophone::kRateHz / 10;

}  // namespace

TakeKeeper::TakeKeeper(std::string folder, Report report, Later later)
    : last(std::move(folder))
    , report(std::move(report))
    , later(std::move(later)) {}

void TakeKeeper::keep(const std::vector<int16_t>& samples) {
    reportError(write(samples));
}

Problem TakeKeeper::write(const std::vector<int16_t>& samples) {
    Problem problem = later ? last.write(samples) : last.keep(samples);
    if (!problem && later && !samples.empty()) {
        later([settled = last] { return settled.settle(); });
    }
    return problem;
}

void TakeKeeper::reportError(const Problem& problem) {
    if (problem) {
        const HostMessage whole = {"notKept", {problem.sentence()}};
        report(last.isDiskFull() ? HostMessage{"noRoomForCopy", {}}
                                 : HostMessage{"notKept", {LastTake::reasonOf(problem)}},
               whole.text("en"));
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

std::vector<int16_t> TakeKeeper::toLetGo() {
    return fromFile.empty() ? last.waiting() : std::exchange(fromFile, {});
}

void TakeKeeper::letGo() {
    const bool isOfFile = !fromFile.empty();
    const Problem problem = write(toLetGo());
    if (isOfFile) {
        reportError(problem);  // of a recording it is known already
    }
}

void TakeKeeper::end() {
    // A file is on the disk already: the kept recording is not given up for it.
    const bool isOfFile = !fromFile.empty();
    const Problem problem = write(toLetGo());
    if (problem && last.isDiskFull() && !isOfFile) {
        keepWhatFits();
    } else {
        reportError(problem);
    }
}

void TakeKeeper::keepWhatFits() {
    const size_t all = last.waiting().size();
    size_t kept = 0;
    if (const Problem problem = last.writeWhatFits(kept)) {
        reportError(problem);
        return;
    }
    if (later) {
        later([settled = last] { return settled.settle(); });
    } else {
        reportError(last.settle());
    }
    if (kept < all) {
        HostMessage message{"diskFull", {}};
        message.tenths = {static_cast<int64_t>(kept) / kTenthSamples,
                          (static_cast<int64_t>(all) + kTenthSamples / 2) / kTenthSamples};
        report(message, message.text("en"));
    }
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
