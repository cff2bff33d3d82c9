// SPDX-License-Identifier: MIT
// Would make players and recorders; there are none here, so every call returns null.
#pragma once

namespace Osp::Base {
class String;
}
class GnoPlayer;

class Manager {
public:
    static GnoPlayer* createPlayer(Osp::Base::String* /*locator*/, bool /*loop*/) {
        return nullptr;
    }

    static GnoPlayer* createRecorder(Osp::Base::String* /*locator*/) { return nullptr; }
};
