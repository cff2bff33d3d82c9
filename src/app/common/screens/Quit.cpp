#include "Quit.h"

#include "GameInterface.h"
#include "Orm.h"

void Quit::now() {
    GameInterface::Active = false;
    Orm::dispose();
}
