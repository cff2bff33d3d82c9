# SPDX-License-Identifier: MIT
# Device graphics, pictures and fonts; pixman and libpng do the same work in the same run.
find_package(Freetype REQUIRED)
find_package(PkgConfig REQUIRED)
find_package(PNG REQUIRED)
pkg_check_modules(PIXMAN REQUIRED IMPORTED_TARGET pixman-1)

murmelo_bench(graphics_bench
    SOURCES
        fmk/common/fmk/GnoGraphics_bench.cpp
        fmk/common/fmk/png2native_bench.cpp
        app/common/imaging/BitMapFont_bench.cpp
        ../tools/bmfgen/CoverageMap.cpp
        ../tools/bmfgen/FontMaker.cpp
    LINK murmelo_imaging PkgConfig::PIXMAN PNG::PNG Freetype::Freetype)
target_include_directories(graphics_bench PRIVATE ../tools/bmfgen)
target_compile_definitions(graphics_bench PRIVATE
    MURMELO_RES="${CMAKE_SOURCE_DIR}/res/Res"
    MURMELO_BENCH_FONT="/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf")
