// SPDX-License-Identifier: MIT
// The folders that a test host maps.
#include "TestFolders.h"
#include "TestHost.h"

void TestHost::mapHome(const TestFolders& folders) {
    folders.makeFolder("home");
    mappedFolders.home = folders.path("home");
}

void TestHost::mapShipped() {
    mappedFolders.res = MURMELO_SHIPPED "/Res";
    mappedFolders.framework = MURMELO_SHIPPED "/framework";
}
