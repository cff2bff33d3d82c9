// SPDX-License-Identifier: MIT
// Fulfils the wishes of the strip: what every host can do by itself, and the rest by handlers that
// the host adds.
#pragma once

#include "StripFeed.h"
#include "StripModel.h"
#include "StripWish.h"

#include <cstdint>
#include <functional>
#include <map>

class StripWishes {
public:
    using Handler = std::function<void(const StripWish& wish)>;

    /// @param model, feed  not owned
    StripWishes(StripModel& model, StripFeed& feed)
        : model(model)
        , feed(feed) {}

    /// Null: the program has ended, nothing but what the host handles is fulfilled.
    void setDoors(HostDoors* offered) { doors = offered; }

    /// From now on the host fulfils that kind of wish, also one that this class could fulfil.
    void on(StripWish::Kind kind, Handler handler);

    /// True if there is a handler for it.
    bool handles(StripWish::Kind kind) const { return handlers.count(kind) != 0; }

    /// Save, Effect, Help and the list of microphones need no handler; Open without one tells that
    /// a file can be dropped. Other wishes without a handler do nothing.
    void fulfil(const StripWish& wish, int64_t nowMs);

private:
    void save(int64_t nowMs);
    void help();

    StripModel& model;
    StripFeed& feed;
    HostDoors* doors = nullptr;
    std::map<StripWish::Kind, Handler> handlers;
};
