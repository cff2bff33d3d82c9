// SPDX-License-Identifier: MIT
// Takes the place of a calendar and does nothing: the application never shows a date.
#pragma once

#include "GnoObject.h"

class Calendar : public GnoObject {
public:
    /// The one instance, made by the first call.
    static Calendar* getInstance();

    /// Deletes the instance; the next getInstance() makes a new one.
    static void dispose();

    int32_t get(int32_t /*field*/) { return -1; }

    void set(int32_t /*field*/, int32_t /*value*/) {}

private:
    static Calendar* instance;
};
