# SPDX-License-Identifier: MIT
# The tests of the sound files and the effects.
murmelo_tests(audio_tests
    SOURCES
        app/common/audio/AudioSupport.cpp
        app/common/audio/EffectProof_test.cpp
        app/common/audio/FxCatalogue_test.cpp
        app/common/audio/GrainSearch_test.cpp
        app/common/audio/GranularSynth_test.cpp
        app/common/audio/Lpc_test.cpp
        app/common/audio/MathUtils_test.cpp
        app/common/audio/MeanFilter_test.cpp
        app/common/audio/Rnd_test.cpp
        app/common/audio/SampleKeep_test.cpp
        app/common/audio/SlowEffects.cpp
        app/common/audio/Survival_test.cpp
        app/common/audio/WavFile_test.cpp
        app/common/audio/WavProc_test.cpp
        app/common/audio/WavProps_test.cpp
        app/common/audio/WpMicPostProc_test.cpp
        app/common/audio/WpPitchAndTimeStretch_test.cpp
        app/common/audio/WpRobot_test.cpp
        app/common/audio/WpSimple_test.cpp
    LINK murmelo_audio)
target_compile_definitions(audio_tests PRIVATE $<$<BOOL:${MURMELO_SANITIZE}>:MURMELO_SANITIZED>)

# Most machines run the copy of each kernel that has 256-bit instructions. Here the same tests run the other one: its
# files are compiled once more, and so the library's own are not linked.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND NOT MURMELO_SANITIZE)
    get_target_property(folder murmelo_audio SOURCE_DIR)
    file(GLOB kernels CONFIGURE_DEPENDS ${folder}/*.cpp)
    foreach(source ${kernels})
        file(STRINGS ${source} uses REGEX "^MURMELO_KERNEL " LIMIT_COUNT 1)
        if(NOT uses)
            list(REMOVE_ITEM kernels ${source})
        endif()
    endforeach()
    add_executable(plain_audio_tests ${kernels} $<TARGET_OBJECTS:audio_tests>)
    target_compile_definitions(plain_audio_tests PRIVATE MURMELO_PLAIN_KERNELS)
    target_compile_options(plain_audio_tests PRIVATE -O3)
    target_link_libraries(plain_audio_tests PRIVATE murmelo_tests_support murmelo_audio GTest::gtest_main)
    add_test(NAME AudioOnAnyProcessor COMMAND plain_audio_tests)
    set_tests_properties(AudioOnAnyProcessor PROPERTIES TIMEOUT 1500)
endif()
