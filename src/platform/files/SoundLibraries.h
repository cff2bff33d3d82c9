// SPDX-License-Identifier: MIT
// Loads the libraries for sound files and for changing rates when a sound first needs one of them:
// loading takes longer than the work on most recordings.
#pragma once

#include <sndfile.h>
#include <soxr.h>

/// libsndfile's functions, without the prefix "sf_".
struct SndfileLibrary {
    decltype(&::sf_open) open = nullptr;
    decltype(&::sf_open_fd) openFd = nullptr;
    decltype(&::sf_open_virtual) openVirtual = nullptr;
    decltype(&::sf_close) close = nullptr;
    decltype(&::sf_command) command = nullptr;
    decltype(&::sf_format_check) formatCheck = nullptr;
    decltype(&::sf_readf_float) readFrames = nullptr;
    decltype(&::sf_write_short) writeShorts = nullptr;
    decltype(&::sf_error) error = nullptr;
    decltype(&::sf_error_number) errorNumber = nullptr;
    decltype(&::sf_strerror) strError = nullptr;

    /// Loads the library at the first call. Null if this machine does not have it.
    static const SndfileLibrary* get();
};

/// libsoxr's functions, without the prefix "soxr_".
struct SoxrLibrary {
    decltype(&::soxr_create) create = nullptr;
    decltype(&::soxr_process) process = nullptr;
    decltype(&::soxr_delete) destroy = nullptr;
    decltype(&::soxr_quality_spec) qualitySpec = nullptr;
    decltype(&::soxr_io_spec) ioSpec = nullptr;
    decltype(&::soxr_runtime_spec) runtimeSpec = nullptr;

    /// Loads the library at the first call. Null if this machine does not have it.
    static const SoxrLibrary* get();
};
