# SPDX-License-Identifier: MIT
# Checks that the documentation of the program is true.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
add_test(NAME docs/behaviour-names
    COMMAND Python3::Interpreter ${CMAKE_CURRENT_SOURCE_DIR}/docs/behaviour-names.py ${CMAKE_SOURCE_DIR})
add_test(NAME docs/commands
    COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_SOURCE_DIR}/docs/commands.py ${CMAKE_BINARY_DIR} ${CMAKE_SOURCE_DIR})
add_test(NAME docs/lists
    COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_SOURCE_DIR}/docs/lists.py ${CMAKE_CTEST_COMMAND} ${CMAKE_BINARY_DIR} ${CMAKE_SOURCE_DIR})
add_test(NAME docs/many-files
    COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_SOURCE_DIR}/docs/many-files.py $<TARGET_FILE:murmelo-fx> ${CMAKE_SOURCE_DIR})
add_test(NAME docs/effects
    COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_SOURCE_DIR}/docs/effects.py $<TARGET_FILE:murmelo-fx> ${CMAKE_SOURCE_DIR})
add_executable(print-keys docs/print-keys.cpp)
target_include_directories(print-keys PRIVATE platform/host)
target_link_libraries(print-keys PRIVATE murmelo_tests_support murmelo_host)
add_test(NAME docs/keys
    COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_SOURCE_DIR}/docs/keys.py $<TARGET_FILE:print-keys> ${CMAKE_SOURCE_DIR})
add_test(NAME docs/script-words
    COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_SOURCE_DIR}/docs/script_words.py
        $<TARGET_FILE:murmelo-headless> ${CMAKE_SOURCE_DIR})
add_test(NAME docs/man-lists
    COMMAND Python3::Interpreter -B ${CMAKE_SOURCE_DIR}/tools/man-lists --check ${CMAKE_BINARY_DIR} ${CMAKE_SOURCE_DIR})
set_tests_properties(docs/commands docs/many-files PROPERTIES TIMEOUT 1500)
add_test(NAME check-layers/finds-breaches
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/tools/check-layers.sh ${CMAKE_SOURCE_DIR})
foreach(case result changed arguments)
    add_test(NAME tools/gate-${case} COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/tools/gate.sh ${case} ${CMAKE_SOURCE_DIR})
endforeach()
add_test(NAME tools/circles
    COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_SOURCE_DIR}/tools/circles.py ${CMAKE_SOURCE_DIR})
add_test(NAME tools/class-list
    COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_SOURCE_DIR}/tools/class_list.py ${CMAKE_SOURCE_DIR})
add_test(NAME tools/plain-words
    COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_SOURCE_DIR}/tools/plain_words.py ${CMAKE_SOURCE_DIR})
add_test(NAME tools/all-tests-run
    COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_SOURCE_DIR}/tools/all_run.py ${CMAKE_SOURCE_DIR})
add_test(NAME docs/floors
    COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_SOURCE_DIR}/tools/floors.py ${CMAKE_BINARY_DIR} ${CMAKE_SOURCE_DIR})
add_test(NAME docs/licences
    COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_SOURCE_DIR}/docs/licences.py ${CMAKE_SOURCE_DIR} --all)
add_test(NAME docs/purposes
    COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_SOURCE_DIR}/docs/purposes.py ${CMAKE_SOURCE_DIR})
add_test(NAME docs/speed-table
    COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_SOURCE_DIR}/docs/speed_table.py ${CMAKE_SOURCE_DIR})
add_test(NAME docs/versions
    COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_SOURCE_DIR}/docs/versions.py ${CMAKE_SOURCE_DIR} ${PROJECT_VERSION}
        $<TARGET_FILE:murmelo> $<TARGET_FILE:murmelo-headless> $<TARGET_FILE:murmelo-fx>)
