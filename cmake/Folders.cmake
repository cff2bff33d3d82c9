# Every folder of the sources is on the include path, so that #include "WavProc.h" finds it anywhere.
# Which folder may include which is held by tools/check-layers.
set(MURMELO_INCLUDE_DIRS
    ${CMAKE_SOURCE_DIR}/src/fmk/common/fmk
    ${CMAKE_SOURCE_DIR}/src/app/common
    ${CMAKE_SOURCE_DIR}/src/app/common/audio
    ${CMAKE_SOURCE_DIR}/src/app/common/imaging
    ${CMAKE_SOURCE_DIR}/src/app/common/frame
    ${CMAKE_SOURCE_DIR}/src/app/common/resources
    ${CMAKE_SOURCE_DIR}/src/app/common/painting
    ${CMAKE_SOURCE_DIR}/src/app/common/screens
    ${CMAKE_SOURCE_DIR}/src/platform
    ${CMAKE_SOURCE_DIR}/src/platform/osp)

# A static library of ours: sources relative to the calling folder, the libraries it stands on after LINK.
function(murmelo_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK;PRIVATE_LINK" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${MURMELO_INCLUDE_DIRS})
    target_link_libraries(${name} PUBLIC murmelo_flags ${ARG_LINK} PRIVATE ${ARG_PRIVATE_LINK})
endfunction()
