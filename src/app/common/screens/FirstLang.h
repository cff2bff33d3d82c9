// The first start: the user picks a language, and every text follows the focus at once.
#pragma once

#include "Screen.h"

class FirstLang : public Screen {
public:
    void onEnter() override;

    void onEvent(Event* event) override;
};
