// SPDX-License-Identifier: MIT
#include "Screen.h"

#include "G.h"

Osp::Base::String** Screen::getSubscriptions() {
    return G::eventTypesAllStd;
}
