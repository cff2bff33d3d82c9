# SPDX-License-Identifier: MIT
# pixman, which many desktops draw with, does the same work in the same run, on the same pictures.
find_package(PkgConfig REQUIRED)
pkg_check_modules(PIXMAN REQUIRED IMPORTED_TARGET pixman-1)

murmelo_bench(imaging_bench
    SOURCES
        app/common/imaging/Images_bench.cpp
    LINK
        murmelo_imaging
        PkgConfig::PIXMAN)
