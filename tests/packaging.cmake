# SPDX-License-Identifier: MIT
# Tests of the installation and of uninstalling.
murmelo_tests(program_tests
    SOURCES platform/ProgramFolders_test.cpp
    LINK murmelo_files)

foreach(case journey-from-staging-folder effects-from-staging-folder readable-by-everybody moved-tree
        every-file-a-link folders-that-are-links
        window-program icons licences uninstalled-without-a-trace uninstalled-from-staging-folder)
    add_test(NAME packaging/${case}
        COMMAND packaging/installation.sh ${case} ${CMAKE_BINARY_DIR} ${CMAKE_SOURCE_DIR}
        WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
    list(APPEND packaging_tests packaging/${case})
endforeach()

add_test(NAME packaging/desktop-entry-and-metainfo
    COMMAND packaging/desktop.sh ${CMAKE_BINARY_DIR} ${CMAKE_SOURCE_DIR} ${murmelo_version} ${languages}
    WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
list(APPEND packaging_tests packaging/desktop-entry-and-metainfo)

add_test(NAME packaging/screenshots
    COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_SOURCE_DIR}/packaging/screenshots.py ${CMAKE_SOURCE_DIR} ${languages})
list(APPEND packaging_tests packaging/screenshots)

add_test(NAME packaging/maintainer
    COMMAND packaging/maintainer.sh ${CMAKE_SOURCE_DIR}
    WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
list(APPEND packaging_tests packaging/maintainer)

add_test(NAME packaging/man-pages-translated
    COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_SOURCE_DIR}/packaging/translations.py ${CMAKE_SOURCE_DIR})
list(APPEND packaging_tests packaging/man-pages-translated)

foreach(program murmelo murmelo-headless murmelo-fx)
    foreach(paper man-pages completions)
        add_test(NAME packaging/${paper}-${program}
            COMMAND packaging/${paper}.sh $<TARGET_FILE:${program}> ${CMAKE_SOURCE_DIR}
            WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
        list(APPEND packaging_tests packaging/${paper}-${program})
    endforeach()
    set_tests_properties(packaging/completions-${program} PROPERTIES SKIP_RETURN_CODE 77)  # no pseudo terminals
endforeach()

# Not with sanitizers or counters: such programs are not installed.
if(NOT MURMELO_SANITIZE AND NOT MURMELO_COVERAGE)
    add_test(NAME packaging/debian-package
        COMMAND packaging/debian-package.sh ${CMAKE_BINARY_DIR} ${CMAKE_SOURCE_DIR} ${murmelo_version} ${MURMELO_HARDENED}
        WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
    list(APPEND packaging_tests packaging/debian-package)
endif()

# Checks the hardening of the programs. Builds without optimisation or with counters are not hardened.
if(MURMELO_HARDENED)
    foreach(program murmelo murmelo-headless murmelo-fx)
        add_test(NAME packaging/hardening-${program}
            COMMAND packaging/hardening.sh $<TARGET_FILE:${program}>
            WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
        list(APPEND packaging_tests packaging/hardening-${program})
    endforeach()
    add_test(NAME packaging/build-flags
        COMMAND packaging/build-flags.sh ${CMAKE_BINARY_DIR} ${CMAKE_SOURCE_DIR}
        WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
    list(APPEND packaging_tests packaging/build-flags)
endif()

set_tests_properties(${packaging_tests} PROPERTIES
    TIMEOUT 1500)
