// Helpers on lists; so far the lists need none.
#pragma once

class VectorUtils {
public:
    static void static_ctor() {}

    static void static_dtor() {}
};
