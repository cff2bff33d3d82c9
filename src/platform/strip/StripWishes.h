// SPDX-License-Identifier: MIT
// Fulfils the wishes of the strip: those that are the same for every host by itself, the others by
// handlers that the host adds.
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

    /// The program has started; null: it has ended, and only the host's handlers work.
    void setDoors(HostDoors* offered) { doors = offered; }

    /// Sets the handler for a kind of wish. It replaces what this class would do.
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
