# SPDX-License-Identifier: MIT
# What is installed, and where: the three programs, their data, and the files that a desktop and a shell need. There are
# three components: "murmelo" is always installed, "byhand" only without a package manager, and "debian" only in a
# Debian package (Package.cmake).
include(GNUInstallDirs)

set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME murmelo)
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(murmelo_id org.murmelo.Murmelo)
set(murmelo_data ${CMAKE_INSTALL_DATADIR}/murmelo)
set(murmelo_icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
set(murmelo_papers ${CMAKE_INSTALL_DATADIR}/doc/murmelo)

# The programs find their data by a path relative to themselves, so that the installed tree can be moved as a whole.
file(RELATIVE_PATH murmelo_data_from_programs
    ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_DATADIR}/murmelo)
target_compile_definitions(murmelo_files PRIVATE MURMELO_INSTALLED_DATA="${murmelo_data_from_programs}")

# Makes the missing folders and notes them, so that uninstalling can remove exactly those. The notes are written to the
# build folder, or to the folder that the environment variable MURMELO_INSTALL_NOTES names.
set(murmelo_folders
    ${CMAKE_INSTALL_BINDIR}
    ${murmelo_data}/Res/strip
    ${murmelo_data}/framework/image/font
    ${murmelo_data}/icons
    ${CMAKE_INSTALL_DATADIR}/applications
    ${CMAKE_INSTALL_DATADIR}/metainfo
    ${CMAKE_INSTALL_MANDIR}/man1
    ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
    ${CMAKE_INSTALL_DATADIR}/zsh/site-functions
    ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d
    ${murmelo_papers}/licences
    ${murmelo_icons}/scalable/apps
    ${murmelo_icons}/symbolic/apps)
# The languages of the man pages besides English, and the sizes of the icons, are those of the files.
file(GLOB murmelo_man_languages CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}/docs/man docs/man/*/murmelo.1)
list(TRANSFORM murmelo_man_languages REPLACE "/.*" "")
foreach(language ${murmelo_man_languages})
    list(APPEND murmelo_folders ${CMAKE_INSTALL_MANDIR}/${language}/man1)
endforeach()
file(GLOB murmelo_icon_sizes CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}/res/icons res/icons/murmelo-*.png)
list(TRANSFORM murmelo_icon_sizes REPLACE "[^0-9]+" "")
foreach(size ${murmelo_icon_sizes})
    list(APPEND murmelo_folders ${murmelo_icons}/${size}x${size}/apps)
endforeach()
configure_file(cmake/MakeFolders.cmake.in ${CMAKE_BINARY_DIR}/MakeFolders.cmake @ONLY)
install(SCRIPT ${CMAKE_BINARY_DIR}/MakeFolders.cmake COMPONENT byhand)

install(TARGETS murmelo murmelo-headless murmelo-fx DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY res/Res res/framework DESTINATION ${murmelo_data})

foreach(size ${murmelo_icon_sizes})
    install(FILES res/icons/murmelo-${size}.png
        DESTINATION ${murmelo_icons}/${size}x${size}/apps RENAME ${murmelo_id}.png)
endforeach()
install(FILES art/icon.svg DESTINATION ${murmelo_icons}/scalable/apps RENAME ${murmelo_id}.svg)
install(FILES art/icon_symbolic.svg DESTINATION ${murmelo_icons}/symbolic/apps RENAME ${murmelo_id}-symbolic.svg)

# The program looks for the window's icon beside its pictures.
file(RELATIVE_PATH murmelo_icon_from_data
    ${CMAKE_INSTALL_FULL_DATADIR}/murmelo/icons
    ${CMAKE_INSTALL_FULL_DATADIR}/icons/hicolor/64x64/apps/${murmelo_id}.png)
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/install)
file(CREATE_LINK ${murmelo_icon_from_data} ${CMAKE_BINARY_DIR}/install/murmelo-64.png SYMBOLIC)
install(FILES ${CMAKE_BINARY_DIR}/install/murmelo-64.png DESTINATION ${murmelo_data}/icons)

install(FILES packaging/${murmelo_id}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/${murmelo_id}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

find_program(GZIP gzip REQUIRED)

# murmelo_gzip(source result): packs a file, without name and time, so that the same source always gives the same bytes.
function(murmelo_gzip source result)
    add_custom_command(OUTPUT ${result}
        COMMAND ${GZIP} -9nc ${source} > ${result}
        DEPENDS ${source} VERBATIM)
endfunction()

foreach(program murmelo murmelo-headless murmelo-fx)
    murmelo_gzip(${CMAKE_SOURCE_DIR}/docs/man/${program}.1 ${CMAKE_BINARY_DIR}/install/${program}.1.gz)
    list(APPEND murmelo_zipped ${CMAKE_BINARY_DIR}/install/${program}.1.gz)
    install(FILES ${CMAKE_BINARY_DIR}/install/${program}.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
    install(FILES packaging/completion/${program}.bash
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME ${program})
    install(FILES packaging/completion/${program}.fish
        DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
    install(FILES packaging/completion/_${program}
        DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions COMPONENT byhand)
    install(FILES packaging/completion/_${program}
        DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions COMPONENT debian EXCLUDE_FROM_ALL)
endforeach()

# The translated pages, of the programs that are not only for developers.
foreach(language ${murmelo_man_languages})
    file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/install/${language})
    foreach(program murmelo murmelo-fx)
        set(page ${CMAKE_BINARY_DIR}/install/${language}/${program}.1.gz)
        murmelo_gzip(${CMAKE_SOURCE_DIR}/docs/man/${language}/${program}.1 ${page})
        list(APPEND murmelo_zipped ${page})
        install(FILES ${page} DESTINATION ${CMAKE_INSTALL_MANDIR}/${language}/man1)
    endforeach()
endforeach()

# The authors and licences.
install(FILES packaging/debian/copyright DESTINATION ${murmelo_papers})
install(DIRECTORY res/licences DESTINATION ${murmelo_papers})
install(FILES packaging/debian/lintian-overrides
    DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME murmelo COMPONENT debian EXCLUDE_FROM_ALL)
add_custom_target(murmelo_papers DEPENDS ${murmelo_zipped})
add_dependencies(murmelo murmelo_papers)  # so that "cmake --install" works after ./run

# The last step, when all files are installed.
configure_file(cmake/NoteFiles.cmake.in ${CMAKE_BINARY_DIR}/NoteFiles.cmake @ONLY)
install(SCRIPT ${CMAKE_BINARY_DIR}/NoteFiles.cmake COMPONENT byhand)

# Removes what the last "cmake --install" has installed.
add_custom_target(uninstall
    COMMAND ${CMAKE_COMMAND} -DBUILD_DIR=${CMAKE_BINARY_DIR} -P ${CMAKE_SOURCE_DIR}/cmake/Uninstall.cmake
    COMMENT "" VERBATIM)
