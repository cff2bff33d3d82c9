// The strip in the window: keys, the mouse that points, and wishes that need the desktop.
#pragma once

#include "Host.h"
#include "Strip.h"
#include "StripWish.h"

#include <cstdint>
#include <functional>
#include <string>

union SDL_Event;
struct SDL_KeyboardEvent;

class SdlStrip {
public:
    using Clock = std::function<int64_t()>;

    /// @param folders  where sounds lie; not owned
    /// @param nowMs    the host's clock
    SdlStrip(const HostFolders& folders, Clock nowMs);

    Strip& strip() { return row; }

    /// Code of the program's language ("de").
    const std::string& language() { return row.model().language(); }

    /// A sentence for the user, also without a program that runs.
    void tell(const std::string& sentence);

    /// A picture of the screen was written there.
    void tellPicture(const std::string& path);

    /// Looks at the program; the folder of sounds can have come with its first start.
    void look();

    /// A key that means something to the strip, or the mouse that left the window. Keys with Ctrl,
    /// Alt or the window key are for others.
    /// @returns true if the strip has used it; counts as a callback
    bool handle(const SDL_Event& event);

private:
    bool keyPressed(const SDL_KeyboardEvent& key);
    void show(const std::string& path, bool isFolder);

    const HostFolders& folders;
    Clock nowMs;
    Strip row;
};
