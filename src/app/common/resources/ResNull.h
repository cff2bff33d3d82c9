// SPDX-License-Identifier: MIT
// Stands for "nothing": no text, no picture.
#pragma once

#include "Resource.h"

class ResNull : public Resource {
public:
    void* get() override { return nullptr; }

    void free() override {}

    int32_t getType() override { return kTypeNull; }
};
