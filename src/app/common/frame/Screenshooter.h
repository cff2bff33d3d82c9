// SPDX-License-Identifier: MIT
// Would take a picture of the screen on one key, but the picture is not stored (Orm::dumpToFile
// does nothing).
#pragma once

#include "Array.h"
#include "Listener.h"

class Screenshooter : public Listener {
public:
    /// Registers itself.
    Screenshooter();
    ~Screenshooter() override;

    void onEvent(Event* event) override;

    Osp::Base::String** getSubscriptions() override { return subscriptions; }

    /// True if the event is a press of the key that takes the picture.
    static bool asksForPicture(Event* event);

private:
    Array<Osp::Base::String*> subscriptions;
};
