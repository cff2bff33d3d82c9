// SPDX-License-Identifier: MIT
#include "RunVerdict.h"

void RunVerdict::settle(int32_t status, int32_t line, const std::string& message) {
    result = status;
    failure = (line > 0 ? "line " + std::to_string(line) + ": " : "") + message;
}
