# SPDX-License-Identifier: MIT
# murmelo_library(name SOURCES ... LINK ... PRIVATE_LINK ...): makes the static library of a folder
# of the sources. Its include path is the calling folder (or INCLUDE, relative to it) and the
# include paths of the libraries after LINK: any other #include "Name.h" does not compile.
function(murmelo_library name)
    cmake_parse_arguments(ARG "" "INCLUDE" "SOURCES;LINK;PRIVATE_LINK" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR}/${ARG_INCLUDE})
    target_link_libraries(${name} PUBLIC murmelo_flags ${ARG_LINK} PRIVATE ${ARG_PRIVATE_LINK})
endfunction()
