# SPDX-License-Identifier: MIT
# murmelo_library(name SOURCES ... LINK ... PRIVATE_LINK ...): a static library of ours, one for each
# folder of the sources. The calling folder (or INCLUDE, relative to it) is its include path, and what
# it may include is that of the libraries after LINK: any other #include "Name.h" does not compile.
function(murmelo_library name)
    cmake_parse_arguments(ARG "" "INCLUDE" "SOURCES;LINK;PRIVATE_LINK" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR}/${ARG_INCLUDE})
    target_link_libraries(${name} PUBLIC murmelo_flags ${ARG_LINK} PRIVATE ${ARG_PRIVATE_LINK})
endfunction()
