# SPDX-License-Identifier: MIT
# The benchmark of the time from "Play" to the first sample.
find_package(PkgConfig REQUIRED)
pkg_check_modules(BENCH_SNDFILE REQUIRED IMPORTED_TARGET sndfile)
murmelo_bench(play_delay_bench
    SOURCES
        app/common/audio/Speech.cpp
        app/common/screens/PlayDelay_bench.cpp
    LINK murmelo_app murmelo_headless_host PkgConfig::BENCH_SNDFILE)
target_include_directories(play_delay_bench PRIVATE app/common/audio)
target_compile_definitions(play_delay_bench PRIVATE MURMELO_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
