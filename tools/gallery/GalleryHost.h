// A back end with folders and nothing else: no display, no clock, no sound.
#pragma once

#include "Host.h"

class GalleryHost : public Host {
public:
    /// Installs itself for its lifetime.
    /// @param data        holds "Res" and "framework"
    /// @param candidates  stands in for "/Home/"
    GalleryHost(const std::string& data, const std::string& candidates) {
        mapped.res = data + "/Res";
        mapped.framework = data + "/framework";
        mapped.home = candidates;
        install(this);
    }

    GalleryHost(const GalleryHost&) = delete;
    GalleryHost& operator=(const GalleryHost&) = delete;

    ~GalleryHost() override { install(nullptr); }

    int64_t uptimeMs() override { return 0; }

    int64_t ticksMs() override { return 0; }

    void yielded() override {}

    const HostFolders& folders() override { return mapped; }

    int64_t freePhoneBytes() override { return -1; }

    bool pump(HostListener& /*listener*/, int64_t /*timeoutMs*/) override { return false; }

    void frameShown(HostFrame* /*frame*/) override {}

private:
    HostFolders mapped;
};
