// Stands for "nothing": no text, no picture.
#pragma once

#include "Resource.h"

class ResNull : public Resource {
public:
    static void static_ctor() {}

    static void static_dtor() {}

    void* get() override { return nullptr; }

    void free() override {}

    int32_t getType() override { return kTypeNull; }
};
