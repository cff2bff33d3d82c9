# SPDX-License-Identifier: MIT
# Tests of faults outside the program: a full disk, a removed folder, damaged files, a kill, a signal, a changed clock.
# Each test states the outcomes that it demands at its beginning.
find_package(Python3 REQUIRED COMPONENTS Interpreter)

murmelo_tests(fault_tests
    SOURCES
        app/common/audio/AudioSupport.cpp
        app/common/screens/ScreensTest.cpp
        faults/ClockJumps_test.cpp
        faults/SoundMutations_test.cpp
    LINK murmelo_app murmelo_headless_host murmelo_files)
target_include_directories(fault_tests PRIVATE app/common/screens app/common/audio)
target_compile_definitions(fault_tests PRIVATE MURMELO_SOURCE_DIR="${CMAKE_SOURCE_DIR}")

# fault_test(name SCRIPT [ARGUMENT ...]): runs tests/faults/SCRIPT ARGUMENT ... PROGRAM SOURCE.
function(fault_test name script)
    add_test(NAME faults/${name}
        COMMAND ${Python3_EXECUTABLE} -B ${CMAKE_CURRENT_SOURCE_DIR}/faults/${script} ${ARGN}
            $<TARGET_FILE:murmelo-headless> ${CMAKE_SOURCE_DIR})
    set_tests_properties(faults/${name} PROPERTIES
        SKIP_RETURN_CODE 77
        TIMEOUT 3000
        LABELS faults
        ENVIRONMENT "MURMELO_SANITIZED=$<BOOL:${MURMELO_SANITIZE}>")
endfunction()

fault_test(disk-full-by-size disk_full.py limit)
fault_test(disk-full-on-a-small-disk disk_full.py tmpfs)
fault_test(home-gone home_gone.py)
fault_test(end-signal end_signal.py)
fault_test(damaged-sounds sound_files.py)
fault_test(huge-sounds huge_sounds.py $<TARGET_FILE:murmelo-fx>)
fault_test(damaged-settings damaged.py settings)
fault_test(damaged-resources damaged.py resources)
fault_test(kill kill.py)
# Each of these does hundreds of runs. They are started first, and ./test leaves them out with the sanitizers.
foreach(name damaged-sounds damaged-settings damaged-resources kill)
    set_tests_properties(faults/${name} PROPERTIES COST 1000 LABELS "faults;slow")
endforeach()

# The monkey: some of its events in each run of the tests, and a check that it finds faults. For a million events:
# tests/faults/monkey.py --events 1000000 build/asan/murmelo-headless .
fault_test(monkey monkey.py --seed 1 --events $<IF:$<OR:$<BOOL:${MURMELO_SANITIZE}>,$<BOOL:${MURMELO_COVERAGE}>>,4000,10000> --finds ${CMAKE_CURRENT_BINARY_DIR})
add_test(NAME faults/monkey-finds-and-shrinks
    COMMAND ${Python3_EXECUTABLE} -B ${CMAKE_CURRENT_SOURCE_DIR}/faults/monkey_test.py ${CMAKE_SOURCE_DIR})
set_tests_properties(faults/monkey-finds-and-shrinks PROPERTIES TIMEOUT 1500 LABELS faults)

# Checks that a program that hangs is distinguished from one that only waits on a busy machine.
add_test(NAME faults/hangs-are-told-from-waiting
    COMMAND ${Python3_EXECUTABLE} -B ${CMAKE_CURRENT_SOURCE_DIR}/faults/journey_test.py)
set_tests_properties(faults/hangs-are-told-from-waiting PROPERTIES TIMEOUT 1500 LABELS faults)

add_library(clock_shim SHARED faults/clock_shim.c)
fault_test(clock clock.py $<TARGET_FILE:clock_shim>)

add_library(sync_shim SHARED faults/sync_shim.c)
fault_test(sync sync.py $<TARGET_FILE:sync_shim> $<TARGET_FILE:murmelo-fx>)
add_library(short_io_shim SHARED faults/short_io_shim.c)
fault_test(short-io short_io.py $<TARGET_FILE:short_io_shim> $<TARGET_FILE:murmelo-fx>)

# The same with a window, on an X server and a sound server of their own.
foreach(mode end clock)
    add_test(NAME faults/desktop-${mode}
        COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/platform/sdl/with-desktop
            ${Python3_EXECUTABLE} -B ${CMAKE_CURRENT_SOURCE_DIR}/faults/desktop.py ${mode}
            $<TARGET_FILE:clock_shim> $<TARGET_FILE:murmelo> ${CMAKE_SOURCE_DIR})
    set_tests_properties(faults/desktop-${mode} PROPERTIES
        SKIP_RETURN_CODE 77 TIMEOUT 930 RUN_SERIAL TRUE LABELS "faults;desktop")
endforeach()
