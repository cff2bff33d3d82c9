// SPDX-License-Identifier: MIT
// A media player that plays nothing: sound goes through the audio device.
#pragma once

#include "GnoObject.h"

class PlayerListener;

class GnoPlayer : public GnoObject {
public:
    void start() {}

    void stop() {}

    void pause() {}

    void resume() {}

    void startRecord() {}

    void deallocate() {}

    void close() {}

    void setLoopCount(int32_t /*count*/) {}

    /// -1: no medium.
    int32_t getMediaState() const { return -1; }

    /// Null: a player has no controls.
    GnoObject* getControl(Osp::Base::String* /*type*/) { return nullptr; }

    /// Keeps one listener (not owned), the one added last.
    void addPlayerListener(PlayerListener* added) { listener = added; }

    /// Removes the listener if it is the one that is kept.
    void removePlayerListener(PlayerListener* removed) {
        if (listener == removed) {
            listener = nullptr;
        }
    }

    PlayerListener* getPlayerListener() const { return listener; }

private:
    PlayerListener* listener = nullptr;
};
