# SPDX-License-Identifier: MIT
# Compares every screen in every language, pixel for pixel. UPDATE=1 tests/flows/screens.sh ... writes a new sheet.
if(MURMELO_TOOLS)
    set(index 0)
    foreach(language ${languages})
        add_test(NAME screens_${language}
            COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/flows/screens.sh
                $<TARGET_FILE:murmelo-headless> $<TARGET_FILE:murmelo-sheet>
                ${CMAKE_SOURCE_DIR}/res/sample/hello.wav ${index}
                ${CMAKE_CURRENT_SOURCE_DIR}/data/screens/${language}.png)
        set_tests_properties(screens_${language} PROPERTIES TIMEOUT 1500)
        math(EXPR index "${index} + 1")
    endforeach()

    add_executable(strip-states flows/strip.cpp)
    target_link_libraries(strip-states PRIVATE
        murmelo_tests_support murmelo_strip murmelo_resources murmelo_audio murmelo_headless_host)
    foreach(language ${languages})
        add_test(NAME strip_${language}
            COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/flows/strip.sh
                $<TARGET_FILE:strip-states> $<TARGET_FILE:murmelo-sheet>
                ${language} ${CMAKE_CURRENT_SOURCE_DIR}/data/strip/${language}.png)
        set_tests_properties(strip_${language} PROPERTIES TIMEOUT 1500)
    endforeach()

    add_executable(screen-messages flows/messages.cpp app/common/screens/ScreensTest.cpp)
    target_include_directories(screen-messages PRIVATE app/common/screens)
    target_link_libraries(screen-messages PRIVATE
        murmelo_tests_support murmelo_app murmelo_headless_host murmelo_files)
    add_test(NAME screen_messages
        COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/flows/messages.sh
            $<TARGET_FILE:screen-messages> $<TARGET_FILE:murmelo-sheet>
            ${CMAKE_CURRENT_SOURCE_DIR}/data/screens/messages.png)
    set_tests_properties(screen_messages PROPERTIES TIMEOUT 1500)
endif()
