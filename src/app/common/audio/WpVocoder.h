// SPDX-License-Identifier: MIT
// A voice spoken by an instrument; no effect of the catalogue uses it.
#pragma once

#include "ClassLife.h"

class WpVocoder : public ClassLife {};
