// The take is being recorded: the light blinks, the wheels turn, the bar fills for twenty seconds.
#pragma once

#include "State.h"

class Recording : public State {
public:
    static constexpr int32_t kTakeMaxMs = 20000;

    void onEnter() override;
    void onExit() override;
    void onEvent(Event* event) override;
    Osp::Base::String** getSubscriptions() override;

    static void static_ctor() {}

    static void static_dtor() {}

private:
    void animate();
    void paintLight() const;
    static void finish(bool keepTake);
    static void giveUpTake();

    int32_t startMs = 0;
    int32_t markMs = 0;
    int32_t frame = 0;
};
