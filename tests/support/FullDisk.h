// SPDX-License-Identifier: MIT
// Limits the size of this process's files, as a full disk does.
#pragma once

#include <csignal>
#include <sys/resource.h>

/// While an object exists, writing a file beyond this size fails.
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
