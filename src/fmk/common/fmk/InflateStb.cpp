// SPDX-License-Identifier: MIT
#include "Inflate.h"

// Compiles only the library's inflater.
#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_PNG
#define STBI_NO_STDIO
#define STBI_NO_LINEAR
#define STBI_NO_HDR
#define STBI_NO_SIMD
#define STBI_NO_THREAD_LOCALS
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Weverything"
#ifndef __clang_analyzer__
#include <stb_image.h>
#else  // keeps clang-tidy out of the library
extern "C" int stbi_zlib_decode_buffer(char* out, int outSize, const char* packed, int packedSize);
#endif
#pragma clang diagnostic pop

void Inflate::unpack(const unsigned char* packed,
                     size_t packedSize,
                     unsigned char* out,
                     size_t outSize) {
    stbi_zlib_decode_buffer(reinterpret_cast<char*>(out), static_cast<int>(outSize),
                            reinterpret_cast<const char*>(packed), static_cast<int>(packedSize));
}
