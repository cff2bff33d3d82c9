# SPDX-License-Identifier: MIT
# A font of Debian (fonts-dejavu-core), as input for the font maker.
find_file(MURMELO_TEST_FONT DejaVuSans.ttf PATHS /usr/share/fonts/truetype/dejavu REQUIRED)

murmelo_tests(tools_tests
    SOURCES
        tools/bmfgen/CoverageMap_test.cpp
        tools/bmfgen/FontMaker_test.cpp
    LINK murmelo_fontmaker)
target_compile_definitions(tools_tests PRIVATE MURMELO_TEST_FONT="${MURMELO_TEST_FONT}")

add_test(NAME bmfgen.makesAFont
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/tools/sheets.sh makes-a-font
        $<TARGET_FILE:murmelo-bmfgen> ${CMAKE_SOURCE_DIR} ${MURMELO_TEST_FONT})
add_test(NAME bmfgen.refusesWhatIsNoFont
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/tools/sheets.sh refuses-no-font $<TARGET_FILE:murmelo-bmfgen> ${CMAKE_SOURCE_DIR})

# Checks that the pictures of README, of the page's manifest and for software centres show the present program (skipped
# without the drawing tools).
add_test(NAME Pictures.showTheProgramAsItIs
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/tools/made-pictures.sh ${CMAKE_SOURCE_DIR} ${CMAKE_BINARY_DIR})
set_tests_properties(Pictures.showTheProgramAsItIs PROPERTIES SKIP_RETURN_CODE 77 TIMEOUT 1500)

# Checks that the committed fonts match their outlines (skipped without the same versions of font and rasteriser).
add_test(NAME Fonts.matchTheirOutlines
    COMMAND ${CMAKE_SOURCE_DIR}/tools/make-fonts.sh --check $<TARGET_FILE:murmelo-bmfgen>)
set_tests_properties(Fonts.matchTheirOutlines PROPERTIES SKIP_RETURN_CODE 77)

add_test(NAME Gallery.showsEverythingAndAnEmptyFolder
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/tools/sheets.sh shows-everything
        $<TARGET_FILE:murmelo-gallery> ${CMAKE_SOURCE_DIR})
add_test(NAME Gallery.saysWhereItCannotWrite
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/tools/sheets.sh cannot-write $<TARGET_FILE:murmelo-gallery> ${CMAKE_SOURCE_DIR})
