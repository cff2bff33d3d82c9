# SPDX-License-Identifier: MIT
# The benchmark of a frame.
find_package(PkgConfig REQUIRED)
pkg_check_modules(pixman REQUIRED IMPORTED_TARGET pixman-1)
murmelo_bench(frame_bench
    SOURCES
        ../tests/support/TestHost.cpp
        app/common/frame/Orm_bench.cpp
    LINK murmelo_app PkgConfig::pixman)
target_include_directories(frame_bench PRIVATE ../tests/support)
# The fill with which the frames are compared takes twice as long if its loop crosses a boundary of 64 bytes.
target_compile_options(frame_bench PRIVATE $<$<CXX_COMPILER_ID:GNU>:-falign-loops=64>)
