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
        later([copy = last] { return copy.syncToDisk(); });
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
    takeDeleted();
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

void TakeKeeper::takeDeleted() {
    const bool isOfFile = !fromFile.empty();
    const Problem problem = write(toLetGo());
    if (isOfFile) {
        reportError(problem);  // of a recording it is known already
    }
}

void TakeKeeper::end() {
    // A file is on the disk already: the kept recording is not given up for it.
    cuts = fromFile.empty();
    refused(write(toLetGo()));
}

void TakeKeeper::synced(const Problem& problem) {
    refused(problem);
    if (!problem && !last.isPending()) {  // else it was the sync of an earlier take
        tellWhatFits();
    }
}

void TakeKeeper::refused(const Problem& problem) {
    if (problem && cuts && last.isDiskFull()) {
        keepWhatFits(problem);
    } else {
        reportError(problem);
    }
}

/// Some disks take everything and find only at the sync that they are full: then half of it.
void TakeKeeper::keepWhatFits(const Problem& problem) {
    whole = last.waiting().size();
    size_t count = beginning == 0 ? whole : beginning / 2;
    if (beginning != 0 && count < static_cast<size_t>(kTenthSamples)) {
        cuts = false;
        reportError(problem);
        return;
    }
    if (const Problem none = last.writeWhatFits(count)) {
        reportError(none);
        return;
    }
    beginning = count;
    if (later) {
        later([copy = last] { return copy.syncToDisk(); });
    } else {
        synced(last.syncToDisk());
    }
}

void TakeKeeper::tellWhatFits() {
    const auto kept = static_cast<int64_t>(std::exchange(beginning, 0));
    const auto all = static_cast<int64_t>(whole);
    if (kept > 0 && kept < all) {
        HostMessage message{"diskFull", {}};
        message.tenths = {kept / kTenthSamples, (all + kTenthSamples / 2) / kTenthSamples};
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
