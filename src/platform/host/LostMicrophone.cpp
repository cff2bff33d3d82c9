// SPDX-License-Identifier: MIT
#include "LostMicrophone.h"

#include "Host.h"

bool LostMicrophone::deliver(bool lost, HostDoors* doors) {
    if (!lost) {
        pressed = false;
        return false;
    }
    if (pressed || doors == nullptr || !doors->stopRecording()) {
        return false;
    }
    pressed = true;
    return true;
}
