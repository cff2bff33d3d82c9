# SPDX-License-Identifier: MIT
# The benchmarks of the effects, and of the libraries that they are compared with.
find_package(PkgConfig REQUIRED)
pkg_check_modules(SOUNDTOUCH REQUIRED IMPORTED_TARGET soundtouch)
pkg_check_modules(RUBBERBAND REQUIRED IMPORTED_TARGET rubberband)
pkg_check_modules(SOX REQUIRED IMPORTED_TARGET sox)
pkg_check_modules(SPANDSP REQUIRED IMPORTED_TARGET spandsp)
pkg_check_modules(CODEC2 REQUIRED IMPORTED_TARGET codec2)

murmelo_bench(effects_bench
    SOURCES
        app/common/audio/Effects_bench.cpp
        app/common/audio/Limits.cpp
        app/common/audio/Peers.cpp
        app/common/audio/Speech.cpp
    LINK murmelo_audio
        PkgConfig::SOUNDTOUCH PkgConfig::RUBBERBAND PkgConfig::SOX PkgConfig::SPANDSP PkgConfig::CODEC2)
