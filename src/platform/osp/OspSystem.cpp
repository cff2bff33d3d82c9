// SPDX-License-Identifier: MIT
#include "OspSystem.h"

#include "Host.h"

#include <algorithm>

using Osp::Base::String;

namespace Osp::System {

namespace {

// More free space is reported as this: the largest signed 32-bit number.
constexpr int64_t kMaxBytesReported = 0x7FFFFFFF;

}  // namespace

result SystemTime::GetUptime(int64_t& uptimeMs) {
    uptimeMs = Host::current().uptimeMs();
    return E_SUCCESS;
}

result SystemTime::GetTicks(int64_t& ticksMs) {
    ticksMs = Host::current().ticksMs();
    return E_SUCCESS;
}

result SettingInfo::GetValue(const String& key, bool& value) {
    if (key != String("SilentMode") || hostFails("SettingInfo.GetValue")) {
        return E_FAILURE;
    }
    value = Host::current().isSilent();
    return E_SUCCESS;
}

result RuntimeInfo::GetValue(const String& key, int64_t& value) {
    int64_t bytes = -1;
    if (key == String("AvailableInternalStorage")) {
        bytes = Host::current().freePhoneBytes();
    } else if (key == String("AvailableExternalStorage")) {
        bytes = Host::current().freeCardBytes();
    }
    if (bytes < 0 || hostFails("RuntimeInfo.GetValue")) {
        return E_FAILURE;
    }
    value = std::min(bytes, kMaxBytesReported);
    return E_SUCCESS;
}

}  // namespace Osp::System
