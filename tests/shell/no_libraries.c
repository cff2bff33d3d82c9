// SPDX-License-Identifier: MIT
// Loaded before the program: simulates a machine without libsndfile or libsoxr. Libraries whose
// names begin with MURMELO_MISSING cannot be loaded.
#define _GNU_SOURCE
#include <dlfcn.h>
#include <stdlib.h>
#include <string.h>

typedef void* (*Open)(const char*, int);

void* dlopen(const char* name, int flags) {
    const char* const missing = getenv("MURMELO_MISSING");
    if (name != NULL && missing != NULL && strncmp(name, missing, strlen(missing)) == 0) {
        return NULL;
    }
    return ((Open)dlsym(RTLD_NEXT, "dlopen"))(name, flags);
}
