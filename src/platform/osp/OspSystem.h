// SPDX-License-Identifier: MIT
// The phone's clock, settings and device facts, and the events of its screen.
#pragma once

#include "OspBase.h"

#include <cstdint>

namespace Osp::System {

enum class BatteryLevel { kCritical, kLow, kFull };

class IScreenEventListener {
public:
    virtual ~IScreenEventListener() = default;

    virtual void OnScreenOn() = 0;
    virtual void OnScreenOff() = 0;
};

class SystemTime {
public:
    /// Milliseconds since the program started. (The phone counted from its own start; a desktop
    /// machine that has been up for weeks would wrap 32 bits.)
    static result GetUptime(int64_t& uptimeMs);

    /// The device clock in milliseconds.
    static result GetTicks(int64_t& ticksMs);
};

class SettingInfo {
public:
    /// Knows "SilentMode". For any other key it fails and does not change value.
    static result GetValue(const Osp::Base::String& key, bool& value);
};

class RuntimeInfo {
public:
    /// Knows "AvailableInternalStorage" and "AvailableExternalStorage", in bytes, at most
    /// 0x7FFFFFFF. Fails without changing value if the amount is unknown.
    static result GetValue(const Osp::Base::String& key, int64_t& value);
};

}  // namespace Osp::System
