# SPDX-License-Identifier: MIT
# Tests of the page in a browser, and of its web server.
add_test(NAME web/serve-web
    COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_SOURCE_DIR}/web/serve_test.py)
set_tests_properties(web/serve-web PROPERTIES TIMEOUT 930)
add_test(NAME web/pack-web
    COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_SOURCE_DIR}/web/pack_test.py)

if(NOT MURMELO_CHROMIUM OR NOT MURMELO_EMCC)
    set(missing "chromium or emscripten is missing: tools/install-packages web installs them")
    if(MURMELO_WEB)
        message(WARNING "The tests of the page in a browser are left out: ${missing}")
    else()
        message(STATUS "No tests of the page in a browser: ${missing}")
    endif()
elseif(MURMELO_WEB)
    # browser_test(name FILE ...): runs a script of tests/web in Chromium.
    function(browser_test name)
        add_test(NAME web/${name} COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_SOURCE_DIR}/web/${ARGN})
        set_tests_properties(web/${name} PROPERTIES
            LABELS browser TIMEOUT 1500 ENVIRONMENT "MURMELO_CHROMIUM=${MURMELO_CHROMIUM}")
    endfunction()

    browser_test(harness harness_test.py)

    # The page itself, built by its own preset beside this build.
    add_test(NAME web/page COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/web/build-page.sh ${CMAKE_SOURCE_DIR})
    set_tests_properties(web/page PROPERTIES
        LABELS browser TIMEOUT 1500 FIXTURES_SETUP page RESOURCE_LOCK page-build)
    # page_test(name FILE ...): as browser_test, with the page and murmelo-headless to compare it with.
    function(page_test name)
        browser_test(${name} ${ARGN})
        set_tests_properties(web/${name} PROPERTIES FIXTURES_REQUIRED page
            ENVIRONMENT "MURMELO_CHROMIUM=${MURMELO_CHROMIUM};MURMELO_PAGE=${CMAKE_SOURCE_DIR}/build/web;MURMELO_HEADLESS=$<TARGET_FILE:murmelo-headless>")
    endfunction()

    page_test(take take_test.py)
    page_test(pixels pixels_test.py)
    page_test(strip strip_test.py)
    page_test(sound sound_test.py)
    page_test(idle idle_test.py)
    page_test(fingers fingers_test.py)
    page_test(microphone microphone_test.py)
    page_test(takein takein_test.py)
    page_test(visits visits_test.py)
    page_test(access access_test.py)
    page_test(budgets budgets_test.py)
    page_test(words words_test.py)
    if(MURMELO_FIREFOX)
        page_test(firefox firefox_test.py)
        set_property(TEST web/firefox APPEND PROPERTY ENVIRONMENT "MURMELO_FIREFOX=${MURMELO_FIREFOX}")
    else()
        message(WARNING "The test of the page in Firefox is left out: firefox is missing: tools/install-packages web installs it")
    endif()
    page_test(large large_test.py)
endif()
