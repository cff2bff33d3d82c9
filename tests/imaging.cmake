murmelo_tests(imaging_tests
    SOURCES
        app/common/imaging/AppImage_test.cpp
        app/common/imaging/BitMapCharacter_test.cpp
        app/common/imaging/BitMapFont_test.cpp
        app/common/imaging/Bounds_test.cpp
        app/common/imaging/PngEncoder_test.cpp
    LINK murmelo_imaging)
