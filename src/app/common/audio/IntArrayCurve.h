// A curve given by its points; no effect of the catalogue uses it.
#pragma once

class IntArrayCurve {
public:
    static void static_ctor() {}

    static void static_dtor() {}
};
