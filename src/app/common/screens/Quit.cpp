// SPDX-License-Identifier: MIT
#include "Quit.h"

#include "Orm.h"
#include "OrmMidlet.h"

void Quit::now() {
    OrmMidlet::active = false;
    Orm::dispose();
}
