// SPDX-License-Identifier: MIT
// The strip in the window: the mouse that points, messages, and wishes that need the desktop.
#pragma once

#include "Errands.h"
#include "Host.h"
#include "HostMessage.h"
#include "KeyRules.h"
#include "Strip.h"
#include "StripWish.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

union SDL_Event;

class SdlStrip {
public:
    using Clock = std::function<int64_t()>;

    /// @param folders  where sounds lie; not owned
    /// @param nowMs    the host's clock
    /// @param wake     rouses the event thread for deliver(); called on other threads
    SdlStrip(const HostFolders& folders, Clock nowMs, Errands::Wake wake = {});

    Strip& strip() { return row; }

    /// Code of the program's language ("de").
    const std::string& language() { return row.model().language(); }

    /// Something for the user in the program's language, with what may be done about it: look at
    /// the file, choose another microphone. What is told before the program has a language waits
    /// until the user had the time to choose one.
    void tell(const HostMessage& message);

    /// A picture of the screen was written there.
    void tellPicture(const std::string& path);

    /// Tells what has become of the desktop's programs that were started.
    void deliver() { errands.deliver(); }

    /// Looks at the program; the folder of sounds can have come with its first start.
    void look();

    /// True if the strip has used it; counts as a callback.
    bool key(StripKey key) { return row.key(key, nowMs()); }

    /// A key of the phone goes to the sheet while that lies over its picture. True if the sheet has
    /// it; counts as a callback.
    bool navigate(const KeyPress& press);

    /// Closes the sheet if it is open: a key means something else.
    void closeSheet();

    /// The mouse may have left the window.
    void handle(const SDL_Event& event);

private:
    void tellWaiting();
    void show(const std::string& path, bool isFolder);

    const HostFolders& folders;
    Clock nowMs;
    Errands errands;
    Strip row;
    std::vector<HostMessage> waiting;
};
