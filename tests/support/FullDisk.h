// SPDX-License-Identifier: MIT
#pragma once

#include <csignal>
#include <sys/resource.h>

/// While it lives, no file of this process can grow beyond a size, as on a full disk.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit limit = {bytes, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }

    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before); }

private:
    rlimit before = {};
};
