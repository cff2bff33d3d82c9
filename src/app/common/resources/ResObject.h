// SPDX-License-Identifier: MIT
// Any object under an id. The registry does not own it.
#pragma once

#include "Resource.h"

class ResObject : public Resource {
public:
    explicit ResObject(GnoObject* object)
        : object(object) {}

    void* get() override { return object; }

    void free() override {}

    int32_t getType() override { return kTypeObject; }

private:
    GnoObject* object;  // not owned
};
