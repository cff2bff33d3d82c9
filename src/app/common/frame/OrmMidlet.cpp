// SPDX-License-Identifier: MIT
#include "OrmMidlet.h"

#include "ClassListEntry.h"
#include "FrameNeeds.h"
#include "Orm.h"

bool OrmMidlet::active = true;

OrmMidlet::OrmMidlet() {
    static_ctors();
    Orm::midlet = this;
}

OrmMidlet::~OrmMidlet() {
    static_dtors();
}

void OrmMidlet::destroyApp(bool unconditional) {
    if (unconditional) {
        Orm::dispose();
    }
}

void OrmMidlet::pauseApp() {
    Orm::setPaused(true);
}

void OrmMidlet::static_ctors() {
    int32_t count = 0;
    const ClassListEntry* entries = FrameNeeds::installed->classes(count);
    for (int32_t i = 0; i < count; i++) {
        entries[i].staticCtor();
    }
}

void OrmMidlet::static_dtors() {
    int32_t count = 0;
    const ClassListEntry* entries = FrameNeeds::installed->classes(count);
    for (int32_t i = 0; i < count; i++) {
        entries[i].staticDtor();
    }
}
