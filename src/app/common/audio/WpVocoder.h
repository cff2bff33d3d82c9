// A voice spoken by an instrument; no effect of the catalogue uses it.
#pragma once

class WpVocoder {
public:
    static void static_ctor() {}

    static void static_dtor() {}
};
