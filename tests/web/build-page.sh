#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the page of the source tree $1 for the tests that look at it. What the surrounding build sets for its own
# compiler is not for this one.
set -eu
cd "$1"
unset CFLAGS CXXFLAGS LDFLAGS CPPFLAGS CMAKE_C_COMPILER_LAUNCHER CMAKE_CXX_COMPILER_LAUNCHER
cmake --preset web >/dev/null
cmake --build --preset web
