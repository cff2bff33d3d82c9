// Marks an inner loop that the compiler builds twice, for AVX2 and for every x86-64, and chooses
// between when the program is loaded. Elsewhere, and under the sanitizers, it is one plain
// function.
//
// Both versions give the same bits: AVX2 alone brings no fused multiply-add.
#pragma once

#if defined(__GNUC__) && !defined(__clang__) && defined(__x86_64__) && defined(__ELF__) &&         \
    !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define MURMELO_KERNEL __attribute__((target_clones("avx2", "default")))
#else
#define MURMELO_KERNEL
#endif
