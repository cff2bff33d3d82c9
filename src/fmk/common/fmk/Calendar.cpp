// SPDX-License-Identifier: MIT
#include "Calendar.h"

Calendar* Calendar::instance = nullptr;

Calendar* Calendar::getInstance() {
    if (instance == nullptr) {
        instance = new Calendar();
    }
    return instance;
}

void Calendar::dispose() {
    delete instance;
    instance = nullptr;
}
