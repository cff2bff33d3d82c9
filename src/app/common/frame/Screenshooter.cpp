// SPDX-License-Identifier: MIT
#include "Screenshooter.h"

#include "Event.h"
#include "Orm.h"
#include "OspBase.h"

using Osp::Base::String;

namespace {

constexpr const char* kKey = "Keycode: 42";

}  // namespace

Screenshooter::Screenshooter()
    : subscriptions(newArray<String*>(1)) {
    subscriptions[0] = Orm::EV_T_KEY_PRESS;
    Orm::registerListener(this);
}

Screenshooter::~Screenshooter() {
    if (Orm::listeners != nullptr) {
        Orm::unregisterListener(this);
    }
}

/// Compares the text, because this key has no shared name: none of the program's phones had it.
bool Screenshooter::asksForPicture(Event* event) {
    return event->type == Orm::EV_T_KEY_PRESS && event->subType != nullptr &&
           *event->subType == String(kKey);
}

void Screenshooter::onEvent(Event* event) {
    if (asksForPicture(event)) {
        String path("screenshot.png");
        Orm::dumpToFile(Orm::getScreen(), &path);
    }
}
