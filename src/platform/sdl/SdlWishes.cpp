// SPDX-License-Identifier: MIT
#include "SdlWishes.h"

#include "HostMessage.h"
#include "SdlDoors.h"
#include "SdlStrip.h"

#include <algorithm>
#include <utility>

using Kind = StripWish::Kind;

SdlWishes::SdlWishes(SdlStrip& strip, SdlDoors& files, Microphones microphones)
    : strip(strip)
    , files(files)
    , microphones(std::move(microphones)) {
    StripWishes& wishes = strip.strip().wishes();
    wishes.on(Kind::kSave, [this](const StripWish&) { this->files.save(); });
    wishes.on(Kind::kExport, [this](const StripWish&) { this->files.exportSound(); });
    wishes.on(Kind::kOpen, [this](const StripWish&) { this->files.openFile(); });
    wishes.on(Kind::kBringBack, [this](const StripWish&) { this->files.bringBack(); });
    wishes.on(Kind::kForget, [this](const StripWish&) { this->files.forget(); });
    wishes.on(Kind::kMicrophones, [this](const StripWish&) { showMicrophones(); });
    wishes.on(Kind::kUseMicrophone, [this](const StripWish& wish) { useMicrophone(wish.index); });
    strip.strip().model().setOffersMore(true);
}

void SdlWishes::showMicrophones() {
    if (microphones.isFixed()) {
        return;
    }
    list();  // the names of the last time, until the new ones come
    strip.strip().model().showMicrophones();
    microphones.ask();
}

void SdlWishes::show(std::vector<std::string> names) {
    listed = std::move(names);
    isListed = true;
    list();
}

void SdlWishes::list() {
    const std::string name = microphones.chosen();
    const auto chosen = std::find(listed.begin(), listed.end(), name);
    const auto place = static_cast<int32_t>(chosen - listed.begin());
    StripModel& model = strip.strip().model();
    if (name.empty() || chosen != listed.end()) {
        model.setMicrophones(listed, name.empty() ? StripWish::kSystemsChoice : place);
        return;
    }
    std::vector<std::string> names = listed;
    if (isListed) {
        names.push_back(HostMessage{"notConnected", {name}}.text(strip.language()));
    }
    model.setMicrophones(names, place, place);
}

void SdlWishes::useMicrophone(int32_t index) {
    if (index == StripWish::kSystemsChoice) {
        microphones.use("");
    } else if (index >= 0 && index < static_cast<int32_t>(listed.size())) {
        microphones.use(listed[static_cast<size_t>(index)]);
    }
}
