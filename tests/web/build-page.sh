#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the page of the source tree $1 for its tests, without the variables that the surrounding build sets for its own
# compiler.
set -eu
cd "$1"
unset CFLAGS CXXFLAGS LDFLAGS CPPFLAGS CMAKE_C_COMPILER_LAUNCHER CMAKE_CXX_COMPILER_LAUNCHER
cmake --preset web >/dev/null
cmake --build --preset web
