murmelo_bench(frame_bench
    SOURCES
        ../tests/support/TestHost.cpp
        app/common/frame/Orm_bench.cpp
    LINK murmelo_app)
target_include_directories(frame_bench PRIVATE ../tests/support)
