# One set of flags for every target of ours: the same take and the same touches give the same bits everywhere.
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
    # No -fwrapv here: the sanitizer finds every overflow that was not written as meant.
    target_compile_options(murmelo_flags INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(murmelo_flags INTERFACE -fsanitize=address,undefined)
else()
    target_compile_options(murmelo_flags INTERFACE -fwrapv)
endif()

if(MURMELO_COVERAGE)
    target_compile_options(murmelo_flags INTERFACE --coverage -fprofile-update=atomic)
    target_link_options(murmelo_flags INTERFACE --coverage)
endif()

# Asserts stay on in the optimised build; its loops are written for the vectoriser.
set(CMAKE_CXX_FLAGS_RELEASE "-O3")
