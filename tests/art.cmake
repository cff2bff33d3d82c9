# SPDX-License-Identifier: MIT
# The committed pictures match their sources and fit the screen (skipped without the drawing tools).
add_test(NAME Art.picturesMatchTheirSources COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/art/check-art.sh)
set_tests_properties(Art.picturesMatchTheirSources PROPERTIES SKIP_RETURN_CODE 77 TIMEOUT 1500)
