# SPDX-License-Identifier: MIT
# Run by CPack before it packs: makes the package's folders readable for all users, whatever the umask of the build was.
file(GLOB_RECURSE entries LIST_DIRECTORIES TRUE "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*")
foreach(entry IN LISTS entries)
    if(IS_DIRECTORY "${entry}" AND NOT IS_SYMLINK "${entry}")
        file(CHMOD "${entry}" PERMISSIONS ${CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
    endif()
endforeach()
