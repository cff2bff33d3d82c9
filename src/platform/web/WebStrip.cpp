// SPDX-License-Identifier: MIT
#include "WebStrip.h"

#include "HostWords.h"
#include "SafeFile.h"
#include "ScreenNames.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

using Kind = StripWish::Kind;

WebStrip::WebStrip(WebPage& page, std::string settingsFolder, Clock nowMs)
    : page(page)
    , choicePath(std::move(settingsFolder) + "/microphone")
    , nowMs(std::move(nowMs)) {
    StripWishes& wishes = row.wishes();
    wishes.on(Kind::kOpen, [this](const StripWish&) { open(); });
    wishes.on(Kind::kMicrophones, [this](const StripWish&) { this->page.listMicrophones(); });
    wishes.on(Kind::kUseMicrophone, [this](const StripWish& wish) { useMicrophone(wish.index); });
    wishes.on(Kind::kSounds, [this](const StripWish&) { this->page.showSounds(); });
    wishes.on(Kind::kHelp, [this](const StripWish&) { help(); });
    wishes.on(Kind::kHostsOwn, [this](const StripWish& wish) { this->page.act(wish.index); });
}

void WebStrip::setDoors(HostDoors* offered) {
    doors = offered;
    row.setDoors(offered);
}

void WebStrip::look() {
    row.look(nowMs());
    showIfNew();
}

void WebStrip::showIfNew() {
    if (row.isNew()) {
        page.frameWaits();
    }
}

const std::string& WebStrip::language() {
    return row.model().language();
}

std::string WebStrip::word(const char* name) {
    return HostWords::text(name, language());
}

void WebStrip::tell(const HostMessage& message) {
    tell(message.text(language()), "", 0);
}

void WebStrip::tell(const std::string& text, const std::string& actionWord, int32_t act) {
    const StripWish action = actionWord.empty() ? StripWish() : StripWish::of(Kind::kHostsOwn, act);
    row.model().tell(text, action, actionWord, nowMs());
    showIfNew();
}

bool WebStrip::close() {
    const bool closed = row.key(StripKey::kClose, nowMs());
    showIfNew();
    return closed;
}

/// Lets the user choose a file if it can become the take now. Before the first menu too: the file
/// then waits for the menu.
void WebStrip::open() {
    const std::string screen = doors != nullptr ? doors->screenName() : "";
    if (ScreenNames::isBeforeMenu(screen) || (doors != nullptr && doors->canUseSound())) {
        page.pickFile();
    } else {
        tell({"notNow", {}});
    }
}

void WebStrip::help() {
    std::vector<std::string> text = {word("helpRecordKeys"), word("helpKeys")};
    if (hasFingersOnly) {
        text = {word("helpFingers")};
    }
    text.push_back(word("helpPlace"));
    text.push_back(word("helpPrivate"));
    row.model().showHelp(std::move(text));
}

std::string WebStrip::chosenMicrophone() const {
    std::array<char, 256> name{};
    const int fd = ::open(choicePath.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        return "";
    }
    const ssize_t bytes = ::read(fd, name.data(), name.size());
    ::close(fd);
    return {name.data(), static_cast<size_t>(std::max<ssize_t>(bytes, 0))};
}

void WebStrip::listMicrophones(std::vector<std::string> names) {
    microphones = std::move(names);
    const auto chosen = std::find(microphones.begin(), microphones.end(), chosenMicrophone());
    row.model().setMicrophones(microphones, chosen != microphones.end()
                                                ? static_cast<int32_t>(chosen - microphones.begin())
                                                : StripWish::kSystemsChoice);
    row.model().showMicrophones();
    if (microphones.empty()) {
        tell({"microphonesUnnamed", {}});
    }
    showIfNew();
}

void WebStrip::useMicrophone(int32_t index) {
    const bool isNamed = index >= 0 && static_cast<size_t>(index) < microphones.size();
    const std::string name = isNamed ? microphones[static_cast<size_t>(index)] : "";
    const std::string folder = choicePath.substr(0, choicePath.rfind('/'));
    static_cast<void>(::mkdir(folder.c_str(), S_IRWXU));  // an error: it exists already
    const int fd = SafeFile::create(choicePath);
    if (fd >= 0) {
        static_cast<void>(SafeFile::writeAll(fd, name.data(), name.size()));
        static_cast<void>(SafeFile::finish(fd));
        page.keepFile(choicePath, 0);
    }
    tell(isNamed ? HostMessage{"microphoneUsed", {name}} : HostMessage{"systemsMicrophone", {}});
}

void WebStrip::microphoneGiven(const std::string& name) {
    row.model().setMicrophoneName(name);
    const std::string chosen = chosenMicrophone();
    if (!chosen.empty() && !name.empty() && name != chosen) {
        tell({"microphoneAway", {chosen}});
    }
}

void WebStrip::onBringBack(std::function<void()> handler) {
    row.wishes().on(Kind::kBringBack,
                    [handler = std::move(handler)](const StripWish&) { handler(); });
}
