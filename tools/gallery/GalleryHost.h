// SPDX-License-Identifier: MIT
// A back end with folders and nothing else: no display, no clock, no sound.
#pragma once

#include "QuietHost.h"

#include <string>

class GalleryHost : public QuietHost {
public:
    /// Installs itself for its lifetime.
    /// @param data        holds "Res" and "framework"
    /// @param candidates  used as "/Home/"
    GalleryHost(const std::string& data, const std::string& candidates) {
        mapped.res = data + "/Res";
        mapped.framework = data + "/framework";
        mapped.home = candidates;
        install(this);
    }

    GalleryHost(const GalleryHost&) = delete;
    GalleryHost& operator=(const GalleryHost&) = delete;

    ~GalleryHost() override { install(nullptr); }

    const HostFolders& folders() override { return mapped; }

private:
    HostFolders mapped;
};
