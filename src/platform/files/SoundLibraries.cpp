// SPDX-License-Identifier: MIT
#include "SoundLibraries.h"

#include <dlfcn.h>

namespace {

/// A library that stays loaded until the process ends.
class Loaded {
public:
    // RTLD_GLOBAL: a library that was preloaded can replace one of its functions.
    explicit Loaded(const char* name)
        : isWhole(dlopen(name, RTLD_NOW | RTLD_GLOBAL) != nullptr) {}

    template <typename Function>
    void find(Function*& function, const char* name) {
        function = isWhole ? reinterpret_cast<Function*>(dlsym(RTLD_DEFAULT, name)) : nullptr;
        isWhole = function != nullptr;
    }

    bool hasAll() const { return isWhole; }

private:
    bool isWhole;
};

bool load(SndfileLibrary& calls) {
    Loaded library("libsndfile.so.1");
    library.find(calls.open, "sf_open");
    library.find(calls.openFd, "sf_open_fd");
    library.find(calls.openVirtual, "sf_open_virtual");
    library.find(calls.close, "sf_close");
    library.find(calls.command, "sf_command");
    library.find(calls.formatCheck, "sf_format_check");
    library.find(calls.readFrames, "sf_readf_float");
    library.find(calls.writeShorts, "sf_write_short");
    library.find(calls.error, "sf_error");
    library.find(calls.errorNumber, "sf_error_number");
    library.find(calls.strError, "sf_strerror");
    return library.hasAll();
}

bool load(SoxrLibrary& calls) {
    Loaded library("libsoxr.so.0");
    library.find(calls.create, "soxr_create");
    library.find(calls.process, "soxr_process");
    library.find(calls.destroy, "soxr_delete");
    library.find(calls.qualitySpec, "soxr_quality_spec");
    library.find(calls.ioSpec, "soxr_io_spec");
    library.find(calls.runtimeSpec, "soxr_runtime_spec");
    return library.hasAll();
}

}  // namespace

const SndfileLibrary* SndfileLibrary::get() {
    static SndfileLibrary calls;
    static const bool isThere = load(calls);
    return isThere ? &calls : nullptr;
}

const SoxrLibrary* SoxrLibrary::get() {
    static SoxrLibrary calls;
    static const bool isThere = load(calls);
    return isThere ? &calls : nullptr;
}
