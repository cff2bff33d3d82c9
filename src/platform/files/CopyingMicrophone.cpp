// SPDX-License-Identifier: MIT
#include "CopyingMicrophone.h"

#include <array>
#include <utility>

namespace {

constexpr int32_t kPieceSamples = 1600;

}  // namespace

CopyingMicrophone::CopyingMicrophone(HostMicrophone& real,
                                     std::function<void()> onTakeDeleted,
                                     Keep keep)
    : real(real)
    , onTakeDeleted(std::move(onTakeDeleted))
    , keep(std::move(keep)) {}

void CopyingMicrophone::prepare() {
    onTakeDeleted();
    real.prepare();
}

bool CopyingMicrophone::start(HostMicrophoneListener& listener) {
    if (!real.start(listener)) {
        return false;
    }
    copy.clear();
    isStarted = true;
    return true;
}

int32_t CopyingMicrophone::take(int16_t* samples, int32_t count) {
    const int32_t taken = real.take(samples, count);
    copy.insert(copy.end(), samples, samples + taken);
    return taken;
}

void CopyingMicrophone::release() {
    if (std::exchange(isStarted, false)) {
        std::array<int16_t, kPieceSamples> rest{};
        while (take(rest.data(), kPieceSamples) > 0) {
        }
    }
    real.release();
    std::vector<int16_t> heard = std::exchange(copy, {});
    if (!heard.empty()) {
        keep(std::move(heard));
    }
}
