# Every screen in every language, pixel for pixel. UPDATE=1 tests/flows/screens.sh ... makes a sheet anew.
if(MURMELO_TOOLS)
    set(index 0)
    foreach(language en de es fr it)
        add_test(NAME screens_${language}
            COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/flows/screens.sh
                $<TARGET_FILE:murmelo-headless> $<TARGET_FILE:murmelo-sheet>
                ${CMAKE_SOURCE_DIR}/res/sample/hello.wav ${index}
                ${CMAKE_CURRENT_SOURCE_DIR}/data/screens/${language}.png)
        set_tests_properties(screens_${language} PROPERTIES TIMEOUT 300
            ENVIRONMENT "LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/lsan.supp:print_suppressions=0")
        math(EXPR index "${index} + 1")
    endforeach()
endif()
