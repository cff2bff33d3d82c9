// SPDX-License-Identifier: MIT
// Which calls of which operations a test wants to fail.
#pragma once

#include <cstdint>
#include <map>
#include <string>

class FailurePlan {
public:
    /// The n-th next call of the operation (1: the next one) fails. Replaces what was planned for
    /// that operation.
    void failNth(const std::string& operation, int64_t n) { remaining[operation] = n; }

    /// Counts one call.
    /// @returns true if it is to fail
    bool fails(const std::string& operation) {
        const auto found = remaining.find(operation);
        if (found == remaining.end() || --found->second > 0) {
            return false;
        }
        remaining.erase(found);
        return true;
    }

private:
    std::map<std::string, int64_t> remaining;  // by operation: calls until one fails
};
