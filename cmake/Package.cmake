# SPDX-License-Identifier: MIT
# The Debian package: "cmake --build BUILD_DIR --target deb", or "cpack" there once everything is built.
set(MURMELO_MAINTAINER "" CACHE STRING
    "Maintainer of a Debian package that is built here, Name <mail address>; empty: who builds it (Maintainer.cmake)")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME murmelo)
set(CPACK_PACKAGE_VERSION ${murmelo_version})
set(CPACK_PACKAGE_VENDOR "Murmelo")
set(CPACK_MURMELO_MAINTAINER "${MURMELO_MAINTAINER}")
set(CPACK_MURMELO_CHANGELOG ${CMAKE_SOURCE_DIR}/packaging/debian/changelog)
set(CPACK_MURMELO_PAPERS ${murmelo_papers})
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_SOURCE_DIR}/cmake/Maintainer.cmake)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "voice changer with many effects and one marble")
set(CPACK_PACKAGE_DESCRIPTION
"Murmelo records up to twenty seconds of speech, turns it into a robot, a
giant, a hurried talker, a drunk or itself backwards, and plays it back. A
small glass marble on an old cassette recorder shows which.

Every result can be saved as WAV, FLAC, Ogg, Opus or MP3, and the texts come
in several languages.

Besides the program in a window there is murmelo-fx, which applies the
effects to sound files on the command line, and murmelo-headless, which runs
the whole application by a script, without a window or a sound card.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR})
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_SOURCE_DIR}/cmake/OldPackages.cmake ${CMAKE_SOURCE_DIR}/cmake/DebianChangelog.cmake
    ${CMAKE_SOURCE_DIR}/cmake/PublicFolders.cmake)
set(CPACK_INSTALL_CMAKE_PROJECTS
    "${CMAKE_BINARY_DIR};murmelo;murmelo;/"
    "${CMAKE_BINARY_DIR};murmelo;debian;/")

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libsndfile1, libsoxr0")  # loaded at run time, so not found as dependencies
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "libspeechd2, speech-dispatcher, zenity")  # for --speak; for --from-desktop without X11
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
include(CPack)

add_custom_target(deb
    COMMAND ${CMAKE_CPACK_COMMAND} --config ${CMAKE_BINARY_DIR}/CPackConfig.cmake
    DEPENDS murmelo murmelo-headless murmelo-fx murmelo_papers
    WORKING_DIRECTORY ${CMAKE_BINARY_DIR} USES_TERMINAL VERBATIM)
