// SPDX-License-Identifier: MIT
// Loaded before libsndfile: removes MPEG and Opus from its lists, as if the library was built
// without them.
#define _GNU_SOURCE
#include <dlfcn.h>
#include <sndfile.h>

typedef int (*Command)(SNDFILE*, int, void*, int);

int sf_command(SNDFILE* file, int command, void* data, int size) {
    const Command next = (Command)dlsym(RTLD_NEXT, "sf_command");
    const int result = next(file, command, data, size);
    if (command == SFC_GET_FORMAT_MAJOR || command == SFC_GET_FORMAT_SUBTYPE) {
        SF_FORMAT_INFO* info = data;
        if (info->format == SF_FORMAT_MPEG || info->format == SF_FORMAT_OPUS) {
            info->format = 0;
        }
    }
    return result;
}
