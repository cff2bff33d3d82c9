// SPDX-License-Identifier: MIT
// The application's clock.
#pragma once

#include <cstdint>

class System {
public:
    /// Milliseconds since the program started, as a 32-bit value; comparisons are signed.
    static int32_t currentTimeMillis();
};

/// Milliseconds of uptime, as System::currentTimeMillis() reports them.
int32_t GETUPTIMEMS();

/// The platform clock in milliseconds.
int32_t GETTIMEMS();
