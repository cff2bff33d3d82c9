// SPDX-License-Identifier: MIT
// Loaded before the program: writes to the file SYNC_LOG, in their order, "file PATH" or "folder
// PATH" for each sync, and "rename FROM TO" for each rename that succeeded. If SYNC_FOLDER_ERROR is
// set, each sync of a folder fails with that errno. As long as the file SYNC_HOLD is there, every
// sync waits.
#define _GNU_SOURCE
#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

static void note(const char* what, const char* first, const char* second) {
    const char* log = getenv("SYNC_LOG");
    const int fd = log != NULL ? open(log, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600) : -1;
    if (fd >= 0) {
        dprintf(fd, "%s %s%s%s\n", what, first, second[0] != 0 ? " " : "", second);
        close(fd);
    }
}

// Simulates a slow disk: waits as long as the file SYNC_HOLD is there.
static void hold(void) {
    const char* name = getenv("SYNC_HOLD");
    while (name != NULL && access(name, F_OK) == 0) {
        usleep(10000);
    }
}

int fsync(int fd) {
    hold();
    char link[64];
    char path[PATH_MAX] = "";
    struct stat facts = {0};
    snprintf(link, sizeof link, "/proc/self/fd/%d", fd);
    readlink(link, path, sizeof path - 1);
    fstat(fd, &facts);
    if (S_ISDIR(facts.st_mode)) {
        const char* reason = getenv("SYNC_FOLDER_ERROR");
        if (reason != NULL) {
            errno = atoi(reason);
            return -1;
        }
    }
    const int result = (int)syscall(SYS_fsync, fd);
    if (result == 0) {
        note(S_ISDIR(facts.st_mode) ? "folder" : "file", path, "");
    }
    return result;
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) {
    const int result = (int)syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags);
    if (result == 0) {
        note("rename", from, to);
    }
    return result;
}

int rename(const char* from, const char* to) {
    return renameat2(AT_FDCWD, from, AT_FDCWD, to, 0);
}
