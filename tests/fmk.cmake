murmelo_tests(fmk_tests
    SOURCES
        fmk/common/fmk/Arithmetic_test.cpp
        fmk/common/fmk/ArrFunc_test.cpp
        fmk/common/fmk/GnoGraphics_test.cpp
        fmk/common/fmk/Rgb565_test.cpp
        fmk/common/fmk/Vector_test.cpp
        platform/osp/OspBase_test.cpp
        platform/osp/OspIo_test.cpp
    LINK murmelo_fmk)
