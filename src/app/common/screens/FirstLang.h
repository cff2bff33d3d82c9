// SPDX-License-Identifier: MIT
// The first start: the user chooses a language; all texts are shown in the language that has the
// focus.
#pragma once

#include "Screen.h"

class FirstLang : public Screen {
public:
    void onEnter() override;

    void onEvent(Event* event) override;
};
