// SPDX-License-Identifier: MIT
#include "StripWishes.h"

#include "HostMessage.h"
#include "HostWords.h"

#include <utility>
#include <vector>

using Kind = StripWish::Kind;

void StripWishes::on(Kind kind, Handler handler) {
    handlers[kind] = std::move(handler);
}

void StripWishes::fulfil(const StripWish& wish, int64_t nowMs) {
    const auto handler = handlers.find(wish.kind);
    if (handler != handlers.end()) {
        handler->second(wish);
        return;
    }
    const std::string& language = model.language();
    switch (wish.kind) {
    case Kind::kSave:
        save(nowMs);
        break;
    case Kind::kEffect:
        if (doors != nullptr) {
            doors->showEffect(wish.index);
        }
        break;
    case Kind::kMicrophones:
        model.showMicrophones();
        break;
    case Kind::kHelp:
        help();
        break;
    case Kind::kOpen:
        model.tell(HostWords::text("dropHere", language), {}, "", nowMs);
        break;
    default:
        break;
    }
}

void StripWishes::help() {
    const std::string& language = model.language();
    std::vector<std::string> text = {HostWords::text("helpRecordKeys", language),
                                     HostWords::text("helpMoreKeys", language)};
    if (model.isMoreOffered()) {
        text.emplace_back(HostWords::text("helpFileKeys", language));
    }
    text.push_back(
        HostMessage{"helpFolder", {model.pathForHelp(feed.shownSoundFolder())}}.text(language));
    text.emplace_back(HostWords::text("helpStaysHere", language));
    model.showHelp(std::move(text));
}

/// Saves the sound, or tells why not. StripFeed tells of a saved sound when it is written.
void StripWishes::save(int64_t nowMs) {
    if (doors != nullptr && doors->saveSound()) {
        return;
    }
    const bool isNothing = doors != nullptr && doors->canUseSound();
    model.tell(HostWords::text(isNothing ? "nothingToSave" : "notNow", model.language()), {}, "",
               nowMs);
}
