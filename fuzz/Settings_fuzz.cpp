// SPDX-License-Identifier: MIT
// Fuzzes the settings file: any bytes are read, changed and read again.
#include "OspApp.h"
#include "TestFolders.h"
#include "TestHost.h"

#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static TestHost host;
    static TestFolders folders;
    folders.write("settings", std::string(data, data + size));
    Osp::App::AppRegistry registry;
    registry.Open(folders.path("."));
    if (registry.Set("lang", "3") == E_KEY_NOT_FOUND) {
        registry.Add("lang", "3");
    }
    registry.Add("other", "7");
    Osp::App::AppRegistry later;
    later.Open(folders.path("."));
    int lang = -1;
    if (later.Get("lang", lang) != E_SUCCESS || lang != 3) {
        std::abort();
    }
    return 0;
}
