// Finds a path of the phone in the real file system, and refuses every path that would leave the
// mapped roots.
#pragma once

#include "OspBase.h"

#include <string>

namespace Osp::Io {

/// What becomes of a path whose last part is a symbolic link.
enum class LastLink {
    kFollow,  // it is the path that the link leads to
    kKeep,    // it is the link itself
};

class RealPath {
public:
    /// Refused: a path under no mapped root, a ".." or an embedded zero in it, an absolute symbolic
    /// link on the way, and a relative one that climbs out of the root.
    explicit RealPath(const Osp::Base::String& phonePath, LastLink lastLink = LastLink::kFollow);

    bool isValid() const { return !real.empty(); }

    /// False below the read-only roots.
    bool isWritable() const { return writable; }

    /// Written with a last "/": can only be a folder.
    bool saysFolder() const { return endsWithSlash; }

    /// The real path with its symbolic links resolved (the last one only if it is followed); need
    /// not exist. Empty if refused.
    const std::string& path() const { return real; }

private:
    std::string real;
    bool writable = false;
    bool endsWithSlash = false;
};

}  // namespace Osp::Io
