// The program's entry, called by each back end's main() once its host is installed.
#pragma once

/// Runs the application until it ends. 0 is success; of a failure the low 16 bits of its result
/// come back.
extern "C" int OspMain(int argc, char** argv);
