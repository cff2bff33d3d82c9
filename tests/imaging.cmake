murmelo_tests(imaging_tests
    SOURCES
        app/common/imaging/AppImage_test.cpp
        app/common/imaging/Bounds_test.cpp
    LINK murmelo_imaging)
