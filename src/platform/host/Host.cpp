// SPDX-License-Identifier: MIT
#include "Host.h"

#include <cassert>

namespace {

Host* installed = nullptr;

}  // namespace

Host& Host::current() {
    assert(installed != nullptr);
    return *installed;
}

void Host::install(Host* host) {
    installed = host;
}
