#include "SdlDoors.h"

#include "SoundFile.h"

#include <SDL.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>

namespace {

constexpr int32_t kMostPictures = 100000;

/// The first name in the folder that is still free; empty if there is none.
std::string freePictureName(const std::string& folder) {
    for (int32_t number = 0; number < kMostPictures; number++) {
        char name[32];
        std::snprintf(name, sizeof name, "/screen_%05d.png", number);
        std::error_code error;
        if (!std::filesystem::exists(folder + name, error)) {
            return folder + name;
        }
    }
    return "";
}

}  // namespace

SdlDoors::SdlDoors(const HostFolders& folders)
    : folders(folders) {}

bool SdlDoors::handle(const SDL_Event& event) {
    if (doors == nullptr) {
        return false;
    }
    if (event.type == SDL_DROPFILE) {
        const std::string path = event.drop.file;
        SDL_free(event.drop.file);
        return dropped(path);
    }
    if (event.type != SDL_KEYDOWN || event.key.repeat != 0) {
        return false;
    }
    const bool control = (event.key.keysym.mod & KMOD_CTRL) != 0;
    if (control && event.key.keysym.sym == SDLK_s) {
        return save();
    }
    if (event.key.keysym.sym == SDLK_F12) {
        takePicture();
    }
    return false;
}

bool SdlDoors::save() {
    if (doors->saveSound()) {
        return true;
    }
    Host::current().say(
        "a sound can be saved in the menu and at the choice of the effect, once there is one");
    return false;
}

bool SdlDoors::dropped(const std::string& path) {
    std::vector<int16_t> samples;
    const Problem problem = SoundFile::read(path, HostMicrophone::kRateHz,
                                            HostMicrophone::kLongestTakeSamples, samples);
    if (problem) {
        Host::current().say(problem.sentence());
        return false;
    }
    if (doors->useSound(samples.data(), static_cast<int32_t>(samples.size()))) {
        return true;
    }
    Host::current().say(
        "a sound file is taken in the menu and at the choice of the effect, if it holds any sound");
    return false;
}

bool SdlDoors::deliver() {
    if (offered.empty() || doors == nullptr ||
        !doors->useSound(offered.data(), static_cast<int32_t>(offered.size()))) {
        return false;
    }
    offered.clear();
    return true;
}

void SdlDoors::takePicture() {
    const std::string folder = folders.sounds();
    std::error_code error;
    std::filesystem::create_directories(
        folder, error);  // the start makes it, but not before the first language
    const std::string path = freePictureName(folder);
    const std::vector<uint8_t> png = doors->canvasPng();
    std::ofstream file(path, std::ios::binary);
    const auto* bytes = reinterpret_cast<const char*>(png.data());
    if (png.empty() || !file.write(bytes, static_cast<std::streamsize>(png.size())).flush()) {
        Host::current().say("the picture \"" + path + "\" cannot be written");
        return;
    }
    std::cout << path << std::endl;
    if (tellPicture) {
        tellPicture(path);
    }
}

void SdlDoors::tellSaved() {
    const int32_t saved = doors != nullptr ? doors->savedCount() : savedBefore;
    if (saved != savedBefore) {
        savedBefore = saved;
        std::cout << folders.sounds() << "/" << doors->savedName() << std::endl;
    }
}
