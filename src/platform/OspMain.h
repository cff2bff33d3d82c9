// The program's entry, called by each back end's main() once its host is installed.
#pragma once

#include <cstdint>

/// What a result of the platform is as a program's status: 0 stays success, of a failure the low 16
/// bits are kept.
int exitStatusOf(uint32_t platformResult);

/// Runs the application until it ends. 0 is success; of a failure the low 16 bits of its result
/// come back.
extern "C" int OspMain(int argc, char** argv);
