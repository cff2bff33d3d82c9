# SPDX-License-Identifier: MIT
# Read by CPack before it packs: who the package's maintainer is, "Name <mail address>". MURMELO_MAINTAINER says so if it
# was given when the build was configured; else it is who builds the package: DEBFULLNAME and DEBEMAIL as for Debian's own
# tools (DEBEMAIL may also be "Name <mail address>"), else git's user.name and user.email, else the user's name on this
# machine. Addresses of domains that are reserved for examples belong to nobody: they are refused.
set(maintainer "${CPACK_MURMELO_MAINTAINER}")
if(maintainer STREQUAL "")
    set(name "$ENV{DEBFULLNAME}")
    set(address "$ENV{DEBEMAIL}")
    if(address MATCHES "^(.*[^ ])? *<(.*)>$")
        set(address "${CMAKE_MATCH_2}")
        if(name STREQUAL "")
            set(name "${CMAKE_MATCH_1}")
        endif()
    endif()
    foreach(part name email)
        set(git_${part} "")
        execute_process(COMMAND git config user.${part} WORKING_DIRECTORY ${CMAKE_CURRENT_LIST_DIR}
            OUTPUT_VARIABLE git_${part} OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET RESULT_VARIABLE failed)
    endforeach()
    execute_process(COMMAND id -un OUTPUT_VARIABLE user OUTPUT_STRIP_TRAILING_WHITESPACE)
    cmake_host_system_information(RESULT host QUERY FQDN)
    foreach(candidate "${git_name}" "${user}")
        if(name STREQUAL "")
            set(name "${candidate}")
        endif()
    endforeach()
    foreach(candidate "${git_email}" "${user}@${host}")
        if(address STREQUAL "")
            set(address "${candidate}")
        endif()
    endforeach()
    set(maintainer "${name} <${address}>")
endif()
if(NOT maintainer MATCHES "^[^<>@]*[^<>@ ] <[^<>@ ]+@[^<>@ ]+>$")
    message(FATAL_ERROR "\"${maintainer}\" does not name the package's maintainer as \"Name <mail address>\". Configure "
        "again with -DMURMELO_MAINTAINER='Name <mail address>'.")
endif()
if(maintainer MATCHES "[@.]example\\.(org|com|net)>$" OR maintainer MATCHES "\\.invalid>$")
    message(FATAL_ERROR "The mail address of \"${maintainer}\" is an example. Configure again with "
        "-DMURMELO_MAINTAINER='Name <mail address>', or with -UMURMELO_MAINTAINER to name who builds the package.")
endif()
set(CPACK_PACKAGE_CONTACT "${maintainer}")
message(STATUS "The package's maintainer is ${maintainer}")
