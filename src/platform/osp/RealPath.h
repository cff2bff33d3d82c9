// SPDX-License-Identifier: MIT
// Turns a path of the phone into a real path, and refuses every path that would leave the mapped
// roots. Only the program's own files, which are read-only, may be links to anywhere.
#pragma once

#include "OspBase.h"

#include <string>

namespace Osp::Io {

/// What to do with a path whose last part is a symbolic link.
enum class LastLink {
    kFollow,  // use the target of the link
    kKeep,    // use the link itself
};

class RealPath {
public:
    /// Refuses a path under no mapped root, and one with ".." or an embedded zero. Below the
    /// writable roots it also refuses an absolute symbolic link on the way, and a relative one that
    /// leads out of the root. Below the read-only roots every link is followed.
    explicit RealPath(const Osp::Base::String& phonePath, LastLink lastLink = LastLink::kFollow);

    bool isValid() const { return !real.empty(); }

    /// False below the read-only roots.
    bool isWritable() const { return writable; }

    /// True if the path ends in "/": then it can only be a folder.
    bool saysFolder() const { return endsWithSlash; }

    /// The real path, empty if refused. It need not exist. Below the writable roots its symbolic
    /// links are resolved (one at the end only with LastLink::kFollow).
    const std::string& path() const { return real; }

private:
    std::string real;
    bool writable = false;
    bool endsWithSlash = false;
};

}  // namespace Osp::Io
