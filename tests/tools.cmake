# A font of Debian (fonts-dejavu-core), only to have something to make bitmaps from.
find_file(MURMELO_TEST_FONT DejaVuSans.ttf PATHS /usr/share/fonts/truetype/dejavu REQUIRED)

murmelo_tests(tools_tests
    SOURCES
        tools/bmfgen/CoverageMap_test.cpp
        tools/bmfgen/FontMaker_test.cpp
    LINK murmelo_fontmaker)
target_compile_definitions(tools_tests PRIVATE MURMELO_TEST_FONT="${MURMELO_TEST_FONT}")

add_test(NAME bmfgen.makesAFont COMMAND murmelo-bmfgen ${MURMELO_TEST_FONT} 15 ${CMAKE_CURRENT_BINARY_DIR}/made.bmf)
add_test(NAME bmfgen.refusesWhatIsNoFont COMMAND murmelo-bmfgen ${CMAKE_CURRENT_LIST_FILE} 15 no.bmf)
set_tests_properties(bmfgen.refusesWhatIsNoFont PROPERTIES WILL_FAIL TRUE)
