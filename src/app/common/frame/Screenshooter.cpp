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

/// Compares the event's text, because this key, which no phone of this program had, has no shared
/// name.
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
