# SPDX-License-Identifier: MIT
# Sets murmelo_version, which the programs show and the package has: the number of the last release, and after it "+dev"
# while CHANGELOG.md lists changes below "Unreleased". So a report about a program tells whether it is a release.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/CHANGELOG.md)
file(READ ${CMAKE_SOURCE_DIR}/CHANGELOG.md changes)
string(FIND "${changes}" "\n## [Unreleased]" begin)
string(SUBSTRING "${changes}" ${begin} -1 changes)
string(FIND "${changes}" "\n## [${PROJECT_VERSION}]" end)
string(SUBSTRING "${changes}" 0 ${end} changes)
set(murmelo_version ${PROJECT_VERSION})
if(changes MATCHES "\n- ")
    string(APPEND murmelo_version "+dev")
endif()
