// SPDX-License-Identifier: MIT
// The program's entry, called by each back end's main() once its host is installed.
#pragma once

#include <cstdint>

/// Converts a result of the platform to the status of a program: 0 is success, of a failure the low
/// 16 bits are kept.
int exitStatusOf(uint32_t platformResult);

/// Runs the application until it ends. 0 is success; of a failure the low 16 bits of its result
/// come back.
extern "C" int OspMain(int argc, char** argv);
