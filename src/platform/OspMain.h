// SPDX-License-Identifier: MIT
// The program's entry, called by each back end's main() once its host is installed.
#pragma once

#include <cstdint>

/// Converts a platform result to a process's exit status: 0 for success, else the low 16 bits of
/// the result.
int exitStatusOf(uint32_t platformResult);

/// Runs the application until it ends. Returns exitStatusOf() of its result.
extern "C" int OspMain(int argc, char** argv);
