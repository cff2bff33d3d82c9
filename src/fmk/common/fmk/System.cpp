// SPDX-License-Identifier: MIT
#include "System.h"

#include "OspSystem.h"

using Osp::System::SystemTime;

int32_t System::currentTimeMillis() {
    return GETUPTIMEMS();
}

int32_t GETUPTIMEMS() {
    int64_t uptimeMs = 0;
    SystemTime::GetUptime(uptimeMs);
    return static_cast<int32_t>(static_cast<uint64_t>(uptimeMs));  // the low 32 bits
}

int32_t GETTIMEMS() {
    int64_t ticksMs = 0;
    SystemTime::GetTicks(ticksMs);
    return static_cast<int32_t>(static_cast<uint64_t>(ticksMs));  // the low 32 bits
}
