# SPDX-License-Identifier: MIT
# Tests of the command line tool, run as a shell does.
find_package(PkgConfig REQUIRED)
pkg_check_modules(SNDFILE REQUIRED IMPORTED_TARGET sndfile)

murmelo_tests(shell_tests
    SOURCES
        app/common/audio/AudioSupport.cpp
        shell/MurmeloFx_test.cpp
        shell/MurmeloFxFiles_test.cpp
        shell/ToolRunner.cpp
    LINK murmelo_audio PkgConfig::SNDFILE)
target_include_directories(shell_tests PRIVATE app/common/audio shell)
add_library(old_sndfile SHARED shell/old_sndfile.c)
target_link_libraries(old_sndfile PRIVATE PkgConfig::SNDFILE ${CMAKE_DL_LIBS})
add_library(no_libraries SHARED shell/no_libraries.c)
target_link_libraries(no_libraries PRIVATE ${CMAKE_DL_LIBS})
target_compile_definitions(shell_tests PRIVATE
    MURMELO_NO_LIBRARIES="$<TARGET_FILE:no_libraries>"
    MURMELO_OLD_SNDFILE="$<TARGET_FILE:old_sndfile>"
    MURMELO_FX="$<TARGET_FILE:murmelo-fx>" MURMELO_HEADLESS="$<TARGET_FILE:murmelo-headless>"
    MURMELO_VERSION="${murmelo_version}")
add_dependencies(shell_tests murmelo-fx murmelo-headless no_libraries old_sndfile)

# The tool's demonstration.
add_test(NAME MurmeloFx.demoMeasuresEveryEffect
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/shell/demo.sh $<TARGET_FILE:murmelo-fx> ${CMAKE_SOURCE_DIR})
set_tests_properties(MurmeloFx.demoMeasuresEveryEffect PROPERTIES TIMEOUT 1500)
