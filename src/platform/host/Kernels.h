// SPDX-License-Identifier: MIT
// A macro for the few loops that take most of the time.
#pragma once

#include <cstdint>

/// Before the definition of a function: it is compiled twice, once for every processor and once
/// with 256-bit integer and float instructions, and the program picks one when it is loaded.
///
/// Neither copy may fuse a multiplication with an addition: the target is "avx2", which does not
/// bring "fma" with it, and every file is also compiled with -ffp-contract=off. So both copies give
/// the same bits.
///
/// It does nothing with MURMELO_PLAIN_KERNELS (for tests of the copy for every processor), or if
/// the compiler or the loader does not support this: clang 14 lacks the attribute, only ELF has
/// indirect functions (which glibc resolves), and under a sanitizer the resolver would run before
/// the sanitizer's own start.
#if !defined(MURMELO_PLAIN_KERNELS) && defined(__GNUC__) && !defined(__clang__) &&                 \
    defined(__x86_64__) && defined(__ELF__) && defined(__GLIBC__) &&                               \
    !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define MURMELO_KERNEL_COPIES
#define MURMELO_KERNEL __attribute__((target_clones("avx2", "default")))
#else
#define MURMELO_KERNEL
#endif

/// The same with a third copy, for processors with 512-bit instructions. Only for loops over pixels
/// of whole numbers: the loops over sound are slower with it. gcc before 12 does not know the name
/// of these processors.
#if defined(MURMELO_KERNEL_COPIES) && __GNUC__ >= 12
#define MURMELO_PIXEL_KERNEL __attribute__((target_clones("arch=x86-64-v4", "avx2", "default")))
#else
#define MURMELO_PIXEL_KERNEL MURMELO_KERNEL
#endif

/// False if the compiler does not vectorise loops (that of the page): then a second loop for common
/// values gains little and only makes the program larger.
#if defined(__EMSCRIPTEN__)
constexpr bool kMakesVectors = false;
#else
constexpr bool kMakesVectors = true;
#endif

/// Before the definition of a function that kernels are made of: it becomes part of each of them,
/// so that it is compiled for the same processor.
#if defined(__GNUC__)
#define MURMELO_KERNEL_PART inline __attribute__((always_inline))
#else
#define MURMELO_KERNEL_PART inline
#endif
