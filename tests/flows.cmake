# SPDX-License-Identifier: MIT
# Whole journeys, each a script for the headless program, and the errors of that program when it
# cannot run.
add_executable(flow-heard flows/heard.cpp)
target_include_directories(flow-heard PRIVATE ${CMAKE_SOURCE_DIR}/src/shell)
target_link_libraries(flow-heard PRIVATE murmelo_audio murmelo_fmk murmelo_files)

file(GLOB flow_scripts CONFIGURE_DEPENDS flows/*.txt)
foreach(script ${flow_scripts})
    get_filename_component(flow ${script} NAME_WE)
    add_test(NAME flow/${flow}
        COMMAND flows/run-flow.sh ${script} $<TARGET_FILE:murmelo-headless>
            $<TARGET_FILE:flow-heard> ${CMAKE_SOURCE_DIR}
        WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
    set_tests_properties(flow/${flow} PROPERTIES TIMEOUT 1500)
endforeach()

foreach(case script-mistakes usage failed-expectations pictures-missing home-not-writable
        settings-not-writable second-instance sound-folder lock-in-the-way remove-stays-inside
        odd-scripts odd-sounds settings-out-of-reach settings-elsewhere)
    add_test(NAME flow-status/${case}
        COMMAND flows/run-status.sh ${case} $<TARGET_FILE:murmelo-headless> ${CMAKE_SOURCE_DIR}
        WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
    set_tests_properties(flow-status/${case} PROPERTIES
        TIMEOUT 1500)
endforeach()

foreach(bits 31 32)
    add_test(NAME flow-clock/${bits}
        COMMAND flows/clock.sh $<TARGET_FILE:murmelo-headless> ${CMAKE_SOURCE_DIR} ${bits}
        WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
    set_tests_properties(flow-clock/${bits} PROPERTIES
        TIMEOUT 3600 LABELS slow)
endforeach()
