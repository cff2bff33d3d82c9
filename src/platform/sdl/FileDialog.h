// SPDX-License-Identifier: MIT
// The desktop's own dialog for files, over the session bus. Each call waits until the user has
// chosen: call it on a thread of its own.
#pragma once

#include <string>

class FileDialog {
public:
    struct Answer {
        enum class Kind {
            kChosen,
            kCancelled,
            kNoDialog,  // there is no desktop that has one
        };

        Kind kind = Kind::kNoDialog;
        std::string uri;  // of the chosen file
    };

    struct Frame {
        std::string parent;  // the window that it belongs to ("x11:1e00007"); empty: not known
        std::string title;
    };

    /// Asks for a sound file to open.
    /// @param filter  name of the kind of files that it shows
    static Answer open(const Frame& frame, const std::string& filter);

    /// Asks where to save. If the file exists, the dialog itself asks if it may be replaced.
    /// @param name    of the file, as a proposal
    /// @param folder  where the dialog begins
    static Answer save(const Frame& frame, const std::string& name, const std::string& folder);
};
