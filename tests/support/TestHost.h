// SPDX-License-Identifier: MIT
// A back end for unit tests: the test moves its clock, names its folders, and plans its faults.
#pragma once

#include "FailurePlan.h"
#include "QuietHost.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

class TestFolders;

/// Installs itself for its lifetime.
class TestHost : public QuietHost {
public:
    TestHost() { install(this); }

    ~TestHost() override { install(nullptr); }

    int64_t uptimeMs() override { return nowMs; }

    int64_t ticksMs() override { return nowMs; }

    /// Each yield moves the clock by one millisecond.
    void yielded() override { nowMs++; }

    const HostFolders& folders() override { return mappedFolders; }

    bool isSilent() override { return silent; }

    int64_t freePhoneBytes() override { return phoneBytes; }

    int64_t freeCardBytes() override { return cardBytes; }

    void tell(const HostMessage& message, const std::string& sentence) override {
        told.push_back(message);
        sentences.push_back(sentence);
    }

    void kept(const std::string& path) override { keptPaths.push_back(path); }

    bool fails(const char* operation) override;

    /// Makes the n-th call of the operation after this fail (1: the next one). The operation must
    /// exist.
    void failNth(const std::string& operation, int32_t n);

    /// Calls happens just before each call of the operation.
    void onCall(const std::string& operation, std::function<void()> happens);

    /// Makes the folder "home" in folders, and maps it as the home.
    void mapHome(const TestFolders& folders);

    /// Maps the program's real pictures and fonts.
    void mapShipped();

    int64_t nowMs = 0;
    HostFolders mappedFolders;
    std::vector<HostMessage> told;
    std::vector<std::string> sentences;
    std::vector<std::string> keptPaths;
    bool silent = false;
    int64_t phoneBytes = 1 << 30;
    int64_t cardBytes = -1;

private:
    FailurePlan failures;
    std::map<std::string, std::function<void()>> happenings;
};
