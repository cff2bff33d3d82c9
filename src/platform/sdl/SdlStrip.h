// SPDX-License-Identifier: MIT
// The strip in the window: the mouse that points, messages, and wishes that need the desktop.
#pragma once

#include "BackgroundWork.h"
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
    /// @param wake     wakes the event thread for deliver(); called on other threads
    SdlStrip(const HostFolders& folders, Clock nowMs, BackgroundWork::Wake wake = {});

    Strip& strip() { return row; }

    /// Code of the program's language ("de").
    const std::string& language() { return row.model().language(); }

    /// Shows a message in the program's language, with an action if there is one: show the file,
    /// choose another microphone. Before the program has a language, and while the user chooses
    /// one, messages wait.
    void tell(const HostMessage& message);

    /// The message in the program's language, with paths as the user knows them.
    std::string textOf(const HostMessage& message);

    /// Tells the user that a picture of the screen was written to that path.
    void tellPicture(const std::string& path);

    /// Tells the user if a program of the desktop could not be started.
    void deliver() { backgroundWork.deliver(); }

    /// Updates the strip from the program and the folder of sounds, and tells messages that have
    /// waited.
    void look();

    /// True if the strip has used it; counts as a callback.
    bool key(StripKey key) { return row.key(key, nowMs()); }

    /// Gives a key of the phone to the sheet while the sheet covers the picture. True if the sheet
    /// has used it; counts as a callback.
    bool navigate(const KeyPress& press);

    /// Closes the sheet if it is open, for a key that means something else.
    void closeSheet();

    /// Looks at a window event: the mouse may have left the window.
    void handle(const SDL_Event& event);

private:
    void tellWaiting();
    void showFolder(const std::string& folder);
    void showFile(const std::string& path);
    void startShowing(const std::string& folder, std::function<bool()> show);

    const HostFolders& folders;
    Clock nowMs;
    BackgroundWork backgroundWork;
    Strip row;
    std::vector<HostMessage> waiting;
};
