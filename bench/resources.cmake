# SPDX-License-Identifier: MIT
# libpng decodes the same files in the same run, without converting them to the device's colours.
find_package(PNG REQUIRED)
murmelo_bench(resources_bench
    SOURCES
        ../tests/support/TestHost.cpp
        app/common/resources/Res_bench.cpp
    LINK murmelo_app)
target_include_directories(resources_bench PRIVATE ../tests/support)
target_compile_definitions(resources_bench PRIVATE MURMELO_SOURCE="${CMAKE_SOURCE_DIR}")
target_link_libraries(resources_bench PRIVATE PNG::PNG)
