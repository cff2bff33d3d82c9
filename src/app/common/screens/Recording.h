// SPDX-License-Identifier: MIT
// Records the take, while the light blinks, the wheels turn, and the bar fills within twenty
// seconds.
#pragma once

#include "Screen.h"

class Recording : public Screen {
public:
    static constexpr int32_t kTakeMaxMs = 20000;

    void onEnter() override;
    void onExit() override;
    void onEvent(Event* event) override;
    Osp::Base::String** getSubscriptions() override;

private:
    void animate();
    void paintLight() const;
    static void finish(bool keepTake);
    static void giveUpTake();

    int32_t startMs = 0;
    int32_t markMs = 0;
    int32_t frame = 0;
};
