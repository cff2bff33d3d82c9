// SPDX-License-Identifier: MIT
#include "SdlStrip.h"

#include "FileManager.h"
#include "HostWords.h"
#include "ProgramFolders.h"
#include "ScreenNames.h"

#include <SDL.h>

#include <filesystem>
#include <system_error>
#include <utility>

using Kind = StripWish::Kind;

namespace {

/// The wish that a tap on the message fulfils; none for most messages.
StripWish actionOf(const HostMessage& message) {
    const std::string row = message.row;
    StripWish wish;
    if (row == "exported" || row == "exportedNowhere") {
        wish.kind = Kind::kShowFile;
        wish.path = message.parts[0];
    } else if (row == "noMicrophone" || row == "microphoneUnusable" || row == "microphoneAway" ||
               row == "microphoneLeft") {
        wish.kind = Kind::kMicrophones;
    } else if (row == "takeReplaced") {
        wish.kind = Kind::kBringBack;
    }
    return wish;
}

const char* wordOf(const StripWish& wish) {
    switch (wish.kind) {
    case Kind::kShowFile:
        return "show";
    case Kind::kBringBack:
        return "bringBack";
    default:
        return "choose";
    }
}

HostMessage withShownPaths(HostMessage message) {
    for (std::string& part : message.parts) {
        part = ProgramFolders::shown(part);
    }
    return message;
}

}  // namespace

SdlStrip::SdlStrip(const HostFolders& folders, Clock nowMs, BackgroundWork::Wake wake)
    : folders(folders)
    , nowMs(std::move(nowMs))
    , backgroundWork(std::move(wake)) {
    row.wishes().on(Kind::kSounds,
                    [this](const StripWish&) { showFolder(this->folders.sounds()); });
    row.wishes().on(Kind::kShowFile, [this](const StripWish& wish) { showFile(wish.path); });
}

void SdlStrip::look() {
    row.feed().setSoundFolder(folders.sounds(), ProgramFolders::shown(folders.sounds()));
    row.look(nowMs());
    tellWaiting();
}

void SdlStrip::tellWaiting() {
    if (language().empty() || row.model().screenName() == ScreenNames::kFirstLanguage) {
        return;
    }
    for (const HostMessage& message : std::exchange(waiting, {})) {
        tell(message);
    }
}

void SdlStrip::tell(const HostMessage& message) {
    const std::string& language = row.model().language();
    if (language.empty()) {
        waiting.push_back(message);
        return;
    }
    const StripWish wish = actionOf(message);
    HostMessage shown = withShownPaths(message);
    for (std::string& part : shown.parts) {
        part = row.model().pathForMessage(part);
    }
    row.model().tell(shown.text(language), wish, HostWords::text(wordOf(wish), language), nowMs());
}

std::string SdlStrip::textOf(const HostMessage& message) {
    return withShownPaths(message).text(language());
}

void SdlStrip::tellPicture(const std::string& path) {
    const std::string& language = row.model().language();
    StripWish wish;
    wish.kind = Kind::kShowFile;
    wish.path = path;
    row.model().tell(
        HostMessage{"picture", {row.model().pathForMessage(ProgramFolders::shown(path))}}.text(
            language),
        wish, HostWords::text("show", language), nowMs());
}

void SdlStrip::showFolder(const std::string& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);  // it is missing before the first sound
    startShowing(folder, [folder] { return FileManager::show(folder); });
}

void SdlStrip::showFile(const std::string& path) {
    startShowing(std::filesystem::path(path).parent_path().string(),
                 [path] { return FileManager::showFile(path); });
}

void SdlStrip::startShowing(const std::string& folder, std::function<bool()> show) {
    backgroundWork.start([this, folder, show = std::move(show)] {
        const bool isShown = show();
        return [this, folder, isShown] {
            if (!isShown) {
                tell(HostMessage{"cannotShow", {folder}});
            }
            return false;
        };
    });
}

bool SdlStrip::navigate(const KeyPress& press) {
    HostKey key = HostKey::kMiddle;
    return KeyRules::isOfPhone(press, key) && row.navigate(key, nowMs());
}

void SdlStrip::closeSheet() {
    if (row.coversPicture()) {
        row.key(StripKey::kClose, nowMs());
    }
}

void SdlStrip::handle(const SDL_Event& event) {
    if (event.type == SDL_WINDOWEVENT && event.window.event == SDL_WINDOWEVENT_LEAVE) {
        row.point(-1, -1);
    }
}
