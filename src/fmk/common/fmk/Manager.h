// Makes players and recorders, none of which exist here: every call answers null.
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
