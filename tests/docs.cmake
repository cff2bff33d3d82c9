# What is written about the program is true.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
add_test(NAME docs/behaviour-names
    COMMAND Python3::Interpreter ${CMAKE_CURRENT_SOURCE_DIR}/docs/behaviour-names.py ${CMAKE_SOURCE_DIR})
add_test(NAME docs/headless-example
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/docs/headless-example.sh $<TARGET_FILE:murmelo-headless> ${CMAKE_SOURCE_DIR})
set_tests_properties(docs/headless-example PROPERTIES
    ENVIRONMENT "LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/lsan.supp:print_suppressions=0")
add_test(NAME check-layers/finds-breaches
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/tools/check-layers.sh ${CMAKE_SOURCE_DIR})
