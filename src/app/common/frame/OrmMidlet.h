// SPDX-License-Identifier: MIT
// Base of the application object: runs every class initialiser when it is made and every class
// finaliser when it is deleted.
#pragma once

#include "MIDlet.h"

class OrmMidlet : public MIDlet {
public:
    OrmMidlet();
    ~OrmMidlet() override;

    void destroyApp(bool unconditional) override;
    void pauseApp() override;

    void startApp() override {}

    virtual void onInit() {}

    virtual void onShutDown() {}

    /// All class initialisers, in the fixed order of FrameNeeds::classes().
    static void static_ctors();

    /// All class finalisers, in that same order.
    /// Deliberate: not reversed. A class that is finalised late must not use what an earlier one
    /// has released.
    static void static_dtors();

    static bool active;  // cleared when the user quits: one more frame, then the program ends
};
