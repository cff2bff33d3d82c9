#include "SdlStrip.h"

#include "FileManager.h"
#include "StripTexts.h"

#include <SDL.h>

#include <cstdlib>
#include <filesystem>
#include <utility>

using Kind = StripWish::Kind;

namespace {

/// A path as the user knows it: below the home it begins with "~".
std::string shortened(const std::string& path) {
    const char* home = std::getenv("HOME");
    const std::string start = home != nullptr ? home : "";
    const bool isBelow = start.size() > 1 && path.compare(0, start.size(), start) == 0 &&
                         path.size() > start.size() && path[start.size()] == '/';
    return isBelow ? "~" + path.substr(start.size()) : path;
}

bool stripKeyOf(int32_t symbol, uint16_t modifiers, StripKey& key) {
    if (symbol >= SDLK_1 && symbol <= SDLK_8 && (modifiers & KMOD_SHIFT) == 0) {
        key = static_cast<StripKey>('1' + (symbol - SDLK_1));
        return true;
    }
    switch (symbol) {
    case SDLK_s:
    case SDLK_o:
    case SDLK_m:
        key = static_cast<StripKey>(symbol);
        return true;
    case SDLK_QUESTION:
        key = StripKey::kHelp;
        return true;
    case SDLK_ESCAPE:
        key = StripKey::kClose;
        return true;
    default:
        return false;
    }
}

}  // namespace

SdlStrip::SdlStrip(const HostFolders& folders, Clock nowMs)
    : folders(folders)
    , nowMs(std::move(nowMs)) {
    row.wishes().on(Kind::kSounds,
                    [this](const StripWish&) { show(this->folders.sounds(), true); });
    row.wishes().on(Kind::kShowFile, [this](const StripWish& wish) { show(wish.path, false); });
}

void SdlStrip::look() {
    row.feed().setSoundFolder(folders.sounds(), shortened(folders.sounds()));
    row.look(nowMs());
}

void SdlStrip::tell(const std::string& sentence) {
    row.model().tell(sentence, {}, "", nowMs());
}

void SdlStrip::tellPicture(const std::string& path) {
    const std::string& language = row.model().language();
    StripWish wish;
    wish.kind = Kind::kShowFile;
    wish.path = path;
    row.model().tell(StripTexts::sentence(StripText::kPicture, language, {shortened(path)}), wish,
                     StripTexts::text(StripText::kShow, language), nowMs());
}

/// A file is shown by its folder.
void SdlStrip::show(const std::string& path, bool isFolder) {
    const std::string folder = isFolder ? path : std::filesystem::path(path).parent_path().string();
    std::error_code error;
    std::filesystem::create_directories(folder, error);  // before the first sound there is none
    if (!FileManager::show(folder)) {
        tell(StripTexts::sentence(StripText::kCannotShow, row.model().language(),
                                  {shortened(folder)}));
    }
}

bool SdlStrip::handle(const SDL_Event& event) {
    if (event.type == SDL_KEYDOWN) {
        return keyPressed(event.key);
    }
    if (event.type == SDL_WINDOWEVENT && event.window.event == SDL_WINDOWEVENT_LEAVE) {
        row.point(-1, -1);
    }
    return false;
}

bool SdlStrip::keyPressed(const SDL_KeyboardEvent& key) {
    constexpr int kForOthers = KMOD_CTRL | KMOD_ALT | KMOD_GUI;
    StripKey stripKey = StripKey::kClose;
    // With a shift "?" is the slash's key on many keyboards.
    const bool isQuestion = key.keysym.sym == SDLK_SLASH && (key.keysym.mod & KMOD_SHIFT) != 0;
    const int32_t symbol = isQuestion ? SDLK_QUESTION : key.keysym.sym;
    return key.repeat == 0 && (key.keysym.mod & kForOthers) == 0 &&
           stripKeyOf(symbol, key.keysym.mod, stripKey) && row.key(stripKey, nowMs());
}
