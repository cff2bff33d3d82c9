// SPDX-License-Identifier: MIT
#include "OspProgram.h"

#include "GEngine.h"

OspProgram::OspProgram()
    : application(GEngine::CreateInstance())
    , loop(*application) {}

OspProgram::~OspProgram() = default;
