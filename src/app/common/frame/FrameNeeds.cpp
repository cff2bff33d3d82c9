// SPDX-License-Identifier: MIT
#include "FrameNeeds.h"

FrameNeeds* FrameNeeds::installed;
