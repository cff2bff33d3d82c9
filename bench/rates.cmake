# SPDX-License-Identifier: MIT
# The benchmark of the conversion to another rate, and of the library that it is compared with.
pkg_check_modules(SAMPLERATE REQUIRED IMPORTED_TARGET samplerate)

murmelo_bench(rates_bench
    SOURCES platform/files/Resampler_bench.cpp
    LINK murmelo_files PkgConfig::SAMPLERATE)
