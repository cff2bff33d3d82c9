// What a computer offers beyond the phone: sound files as the take, saving by a key, pictures of
// the screen.
#pragma once

#include "Host.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

union SDL_Event;

class SdlDoors {
public:
    /// @param folders  where saved sounds and pictures lie; not owned
    explicit SdlDoors(const HostFolders& folders);

    void setDoors(HostDoors* offered) { doors = offered; }

    /// What else is to be told of a picture that F12 has written.
    void onPicture(std::function<void(const std::string& path)> told) {
        tellPicture = std::move(told);
    }

    /// A sound that becomes the take as soon as the program rests in its menu. @param samples  16
    /// kHz mono
    void offer(std::vector<int16_t> samples) { offered = std::move(samples); }

    /// Ctrl+S saves, F12 takes a picture, a file dropped on the window becomes the take. What
    /// cannot be done is told by Host::say(). @returns whether a callback was delivered
    bool handle(const SDL_Event& event);

    /// Hands over the offered sound if it is time. @returns whether a callback was delivered
    bool deliver();

    /// Prints the real path of a sound that was saved since the last call.
    void tellSaved();

private:
    bool save();
    bool dropped(const std::string& path);
    void takePicture();

    const HostFolders& folders;
    HostDoors* doors = nullptr;
    std::vector<int16_t> offered;  // empty: none
    int32_t savedBefore = 0;
    std::function<void(const std::string& path)> tellPicture;
};
