// SPDX-License-Identifier: MIT
// Finds a path of the phone in the real file system, and refuses every path that would leave the
// mapped roots. Only the program's own files, which are read-only, may be links to anywhere.
#pragma once

#include "OspBase.h"

#include <string>

namespace Osp::Io {

/// What to do with a path whose last part is a symbolic link.
enum class LastLink {
    kFollow,  // it is the path that the link leads to
    kKeep,    // it is the link itself
};

class RealPath {
public:
    /// Refused: a path under no mapped root, and a ".." or an embedded zero in it. Below the
    /// writable roots also an absolute symbolic link on the way, and a relative one that climbs out
    /// of the root; below the read-only roots every link is followed.
    explicit RealPath(const Osp::Base::String& phonePath, LastLink lastLink = LastLink::kFollow);

    bool isValid() const { return !real.empty(); }

    /// False below the read-only roots.
    bool isWritable() const { return writable; }

    /// Written with a last "/": can only be a folder.
    bool saysFolder() const { return endsWithSlash; }

    /// The real path; need not exist. Empty if refused. Below the writable roots its symbolic links
    /// are resolved (the last one only if it is followed).
    const std::string& path() const { return real; }

private:
    std::string real;
    bool writable = false;
    bool endsWithSlash = false;
};

}  // namespace Osp::Io
