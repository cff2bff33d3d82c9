// SPDX-License-Identifier: MIT
#include "MicrophoneReasons.h"

#include "RateTo16k.h"

namespace {

struct Reason {
    const char* error;
    const char* word;
};

constexpr Reason kReasons[] = {
    {"NotAllowedError", "microphoneRefused"}, {"SecurityError", "microphoneRefused"},
    {"NotFoundError", "microphoneMissing"},   {"OverconstrainedError", "microphoneMissing"},
    {"InsecureError", "microphoneInsecure"},  // from the page: no API without https
};

}  // namespace

const char* MicrophoneReasons::wordOf(const std::string& error, int32_t rateHz) {
    if (error.empty()) {
        return RateTo16k::takes(rateHz) ? nullptr : "microphoneRate";
    }
    for (const Reason& reason : kReasons) {
        if (error == reason.error) {
            return reason.word;
        }
    }
    return "microphoneBusy";  // any other error: the device is there and allowed
}
