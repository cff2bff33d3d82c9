# SPDX-License-Identifier: MIT
# The tests of images, fonts and the PNG encoder.
murmelo_tests(imaging_tests
    SOURCES
        app/common/imaging/AppImage_test.cpp
        app/common/imaging/AppImageRows_test.cpp
        app/common/imaging/BitMapCharacter_test.cpp
        app/common/imaging/BitMapFont_test.cpp
        app/common/imaging/Bounds_test.cpp
        app/common/imaging/BoundsAnchors_test.cpp
        app/common/imaging/BoundsLists_test.cpp
        app/common/imaging/ImageOps_test.cpp
        app/common/imaging/PixelArithmetic_test.cpp
        app/common/imaging/PixelRows_test.cpp
        app/common/imaging/PixProps_test.cpp
        app/common/imaging/PngEncoder_test.cpp
        app/common/imaging/Point_test.cpp
        app/common/imaging/StrUtils_test.cpp
    LINK murmelo_imaging)
