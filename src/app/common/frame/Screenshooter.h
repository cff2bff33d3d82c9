// Takes the screen's picture on one key. Where it would be stored is nobody's yet: see
// Orm::dumpToFile.
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

    /// Whether it is a press of the key that asks for the picture.
    static bool asksForPicture(Event* event);

private:
    Array<Osp::Base::String*> subscriptions;
};
