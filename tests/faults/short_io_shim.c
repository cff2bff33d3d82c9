// SPDX-License-Identifier: MIT
// Loaded before the program: each write() and read() moves only a few bytes at most, as may happen
// with a pipe, a disk in a network or a signal.
#define _GNU_SOURCE
#include <stddef.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <unistd.h>

enum { kMaxWritten = 1000, kMaxRead = 1500 };

static size_t least(size_t a, size_t b) {
    return a < b ? a : b;
}

ssize_t write(int file, const void* bytes, size_t count) {
    return syscall(SYS_write, file, bytes, least(count, kMaxWritten));
}

ssize_t read(int file, void* bytes, size_t count) {
    return syscall(SYS_read, file, bytes, least(count, kMaxRead));
}

ssize_t pread(int file, void* bytes, size_t count, off_t position) {
    return syscall(SYS_pread64, file, bytes, least(count, kMaxRead), position);
}

ssize_t pread64(int file, void* bytes, size_t count, off64_t position) {
    return syscall(SYS_pread64, file, bytes, least(count, kMaxRead), position);
}
