// SPDX-License-Identifier: MIT
// Holds which calls of which operations are to fail, for tests.
#pragma once

#include <cstdint>
#include <map>
#include <string>

class FailurePlan {
public:
    /// Makes the n-th call of the operation after this fail (1: the next one). Replaces an earlier
    /// plan for that operation.
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
    std::map<std::string, int64_t> remaining;  // for each operation: calls until one fails
};
