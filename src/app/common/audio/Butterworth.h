// A filter without ripple; no effect of the catalogue uses it.
#pragma once

class Butterworth {
public:
    static void static_ctor() {}

    static void static_dtor() {}
};
