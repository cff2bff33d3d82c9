# Beside pixman, which draws for many a desktop: both in the same run, on the same pictures.
find_package(PkgConfig REQUIRED)
pkg_check_modules(PIXMAN REQUIRED IMPORTED_TARGET pixman-1)

add_executable(imaging_bench
    app/common/imaging/Images_bench.cpp)
target_link_libraries(imaging_bench PRIVATE
    benchmark::benchmark_main
    murmelo_imaging
    PkgConfig::PIXMAN)
