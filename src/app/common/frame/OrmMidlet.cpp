#include "OrmMidlet.h"

#include "Orm.h"

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
