# SPDX-License-Identifier: MIT
# The same flags for every target of the project, so that the same take and the same touches give the same bits
# everywhere.
add_library(murmelo_flags INTERFACE)

target_compile_options(murmelo_flags INTERFACE
    -Wall -Wextra -Wconversion
    $<$<CXX_COMPILER_ID:GNU>:-Wshadow=local>
    # A fused multiply-add rounds once instead of twice and changes the sound.
    -ffp-contract=off)

if(MURMELO_WERROR)
    target_compile_options(murmelo_flags INTERFACE -Werror)
endif()

if(MURMELO_SANITIZE)
    # No -fwrapv: the sanitizer must find every overflow that is not marked as intended (wrapAdd and so on).
    target_compile_options(murmelo_flags INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(murmelo_flags INTERFACE -fsanitize=address,undefined)
    add_library(murmelo_intended_leaks OBJECT cmake/IntendedLeaks.cpp)
    target_sources(murmelo_flags INTERFACE $<TARGET_OBJECTS:murmelo_intended_leaks>)
else()
    target_compile_options(murmelo_flags INTERFACE -fwrapv)
endif()

if(MURMELO_COVERAGE)
    target_compile_options(murmelo_flags INTERFACE --coverage -fprofile-update=atomic)
    target_link_options(murmelo_flags INTERFACE --coverage)
endif()

# Optimised programs are hardened, as Debian's hardening=+all asks: they are loaded at a random address, their table of
# library functions is read-only from the start, and an overwritten stack or a library call that would overrun its
# buffer ends them. Not with sanitizers or counters, which check the same places, and not without optimisation, which
# _FORTIFY_SOURCE needs.
set(MURMELO_HARDENED OFF)
if(MURMELO_HARDEN AND CMAKE_BUILD_TYPE MATCHES "^(Release|RelWithDebInfo|MinSizeRel)$"
        AND NOT (MURMELO_SANITIZE OR MURMELO_COVERAGE OR MURMELO_FUZZ))
    set(MURMELO_HARDENED ON)
    target_compile_options(murmelo_flags INTERFACE
        -fPIE -fstack-protector-strong -Wformat -Werror=format-security)
    if(NOT CMAKE_CXX_FLAGS MATCHES "_FORTIFY_SOURCE")  # CPPFLAGS may name another level
        target_compile_options(murmelo_flags INTERFACE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
    endif()
    target_link_options(murmelo_flags INTERFACE -pie -Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
endif()

# Asserts stay on in the optimised build; its loops are written for the vectoriser. For the page a small size is more
# important, because it is downloaded.
set(CMAKE_CXX_FLAGS_RELEASE "-O3")
if(EMSCRIPTEN)
    # With -Os alone emscripten does not inline: then each element of a new vector costs a call.
    set(CMAKE_CXX_FLAGS_RELEASE "-Os -finline-functions")
endif()

# murmelo_reads_options(FILE...): files that mostly hold the code of the library that reads the command line. With the
# sanitizers this code takes longest to compile of all; it need not be fast there.
function(murmelo_reads_options)
    if(MURMELO_SANITIZE)
        set_source_files_properties(${ARGN} PROPERTIES COMPILE_OPTIONS -O0)
    endif()
endfunction()
