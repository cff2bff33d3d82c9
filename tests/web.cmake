# The page: what serves it, and what it does in a browser.
add_test(NAME web/serve-web
    COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_SOURCE_DIR}/web/serve_test.py)
set_tests_properties(web/serve-web PROPERTIES TIMEOUT 930)

if(MURMELO_WEB)
    if(NOT MURMELO_CHROMIUM)
        message(FATAL_ERROR "MURMELO_WEB needs chromium: tools/install-packages web")
    endif()
    # browser_test(name FILE ...): runs a script of tests/web in Chromium.
    function(browser_test name)
        add_test(NAME web/${name} COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_SOURCE_DIR}/web/${ARGN})
        set_tests_properties(web/${name} PROPERTIES
            LABELS browser TIMEOUT 1500 ENVIRONMENT "MURMELO_CHROMIUM=${MURMELO_CHROMIUM}")
    endfunction()

    browser_test(harness harness_test.py)
endif()
