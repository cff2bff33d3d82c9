// SPDX-License-Identifier: MIT
// The faults and actions that a test plans on its host.
#include "TestHost.h"

#include <cassert>
#include <utility>

void TestHost::failNth(const std::string& operation, int32_t n) {
    assert(HostOperation::isKnown(operation));
    failures.failNth(operation, n);
}

void TestHost::onCall(const std::string& operation, std::function<void()> happens) {
    assert(HostOperation::isKnown(operation));
    happenings[operation] = std::move(happens);
}

bool TestHost::fails(const char* operation) {
    const auto happening = happenings.find(operation);
    if (happening != happenings.end()) {
        happening->second();
    }
    return failures.fails(operation);
}
