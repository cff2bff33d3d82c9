// SPDX-License-Identifier: MIT
// Loaded before the program: each time the program reads the time of day, it jumps, in turns a day
// forward and an hour back, as if the user had set the clock. The monotonic clock does not change.
#define _GNU_SOURCE
#include <stdatomic.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <time.h>
#include <unistd.h>

static atomic_uint looks;

static time_t jump(void) {
    return (atomic_fetch_add(&looks, 1) & 1) != 0 ? 86400 : -3600;
}

int clock_gettime(clockid_t clock, struct timespec* now) {
    const int failed = (int)syscall(SYS_clock_gettime, clock, now);
    if (failed == 0 && (clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE)) {
        now->tv_sec += jump();
    }
    return failed;
}

int gettimeofday(struct timeval* restrict now, void* restrict zone) {
    (void)zone;
    struct timespec exact;
    const int failed = clock_gettime(CLOCK_REALTIME, &exact);
    now->tv_sec = exact.tv_sec;
    now->tv_usec = exact.tv_nsec / 1000;
    return failed;
}

time_t time(time_t* kept) {
    struct timespec exact;
    clock_gettime(CLOCK_REALTIME, &exact);
    if (kept != NULL) {
        *kept = exact.tv_sec;
    }
    return exact.tv_sec;
}
