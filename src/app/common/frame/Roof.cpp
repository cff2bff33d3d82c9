// SPDX-License-Identifier: MIT
#include "Roof.h"

Roof* Roof::installed;
