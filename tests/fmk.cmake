# SPDX-License-Identifier: MIT
# The tests of the runtime.
murmelo_tests(fmk_tests
    SOURCES
        fmk/common/fmk/Arc_test.cpp
        fmk/common/fmk/Arithmetic_test.cpp
        fmk/common/fmk/ArrFunc_test.cpp
        fmk/common/fmk/ByteArrayInputStream_test.cpp
        fmk/common/fmk/ByteArrayOutputStream_test.cpp
        fmk/common/fmk/DataInputStream_test.cpp
        fmk/common/fmk/DataOutputStream_test.cpp
        fmk/common/fmk/Wrappers_test.cpp
        fmk/common/fmk/FileInputStream_test.cpp
        fmk/common/fmk/FileOutputStream_test.cpp
        fmk/common/fmk/GnoCanvas_test.cpp
        fmk/common/fmk/GnoGraphics_test.cpp
        fmk/common/fmk/GnoImage_test.cpp
        fmk/common/fmk/GnoObject_test.cpp
        fmk/common/fmk/Hashtable_test.cpp
        fmk/common/fmk/Integer_test.cpp
        fmk/common/fmk/Math_test.cpp
        fmk/common/fmk/RecordStore_test.cpp
        fmk/common/fmk/png2native_test.cpp
        fmk/common/fmk/Rgb565_test.cpp
        fmk/common/fmk/Services_test.cpp
        fmk/common/fmk/StringBuffer_test.cpp
        fmk/common/fmk/Utils_test.cpp
        fmk/common/fmk/Vector_test.cpp
        platform/Problem_test.cpp
        platform/SafeFile_test.cpp
        platform/osp/OspBase_test.cpp
        platform/osp/OspIo_test.cpp
    LINK murmelo_fmk)

# The browser's inflater, under a name of its own beside the native one.
find_path(STB_INCLUDE_DIR stb_image.h PATH_SUFFIXES stb REQUIRED)
add_library(murmelo_inflate_stb STATIC ${CMAKE_SOURCE_DIR}/src/fmk/common/fmk/InflateStb.cpp)
target_include_directories(murmelo_inflate_stb PRIVATE ${CMAKE_SOURCE_DIR}/src/fmk/common/fmk ${STB_INCLUDE_DIR})
target_compile_definitions(murmelo_inflate_stb PRIVATE Inflate=InflateStb)
target_compile_options(murmelo_inflate_stb PRIVATE -w)
target_link_libraries(murmelo_inflate_stb PRIVATE murmelo_flags)
murmelo_tests(inflate_tests
    SOURCES
        fmk/common/fmk/Inflate_test.cpp
    LINK murmelo_fmk murmelo_inflate_stb ZLIB::ZLIB)
target_include_directories(inflate_tests PRIVATE fmk/common/fmk)
target_compile_definitions(inflate_tests PRIVATE MURMELO_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
