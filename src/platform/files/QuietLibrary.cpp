#include "QuietLibrary.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <iostream>
#include <unistd.h>

namespace {

/// Where standard error led before it was turned away; -1 while nothing is turned away, or if it
/// was closed.
volatile std::sig_atomic_t heardError = -1;

void writeToHeard(const char* words) {
    [[maybe_unused]] const ssize_t count = write(heardError, words, std::strlen(words));
}

/// Handles the signal of abort(), which ends the process after this all the same.
void sayAbort(int /*signal*/) {
    writeToHeard(program_invocation_short_name);
    writeToHeard(": the library that reads and writes sounds has ended the program\n");
}

/// A descriptor of /dev/null, -1 if there is none. Never one of the three standard streams: where
/// one of them was closed, it would take that place for good.
int openNowhere() {
    const int fd = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (fd < 0 || fd > STDERR_FILENO) {
        return fd;
    }
    const int above = fcntl(fd, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    close(fd);
    return above;
}

}  // namespace

QuietLibrary::QuietLibrary() {
    flush();
    turn(streams[0], STDOUT_FILENO);
    turn(streams[1], STDERR_FILENO);
    isOutermost = heardError < 0 && streams[1].kept >= 0;
    if (isOutermost) {
        heardError = streams[1].kept;
        std::signal(SIGABRT, sayAbort);
    }
}

QuietLibrary::~QuietLibrary() {
    if (isOutermost) {
        std::signal(SIGABRT, SIG_DFL);
        heardError = -1;
    }
    flush();  // what a library left in a buffer comes to nothing as well
    for (const Turned& stream : streams) {
        turnBack(stream);
    }
}

void QuietLibrary::flush() {
    std::cout.flush();
    std::fflush(stdout);
    std::fflush(stderr);
}

void QuietLibrary::turn(Turned& stream, int from) {
    static const int nowhere = openNowhere();
    if (nowhere < 0) {
        return;
    }
    stream.from = from;
    stream.kept = fcntl(from, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    stream.isTurned = dup2(nowhere, from) == from;
}

void QuietLibrary::turnBack(const Turned& stream) {
    if (stream.kept >= 0) {
        if (stream.isTurned) {
            dup2(stream.kept, stream.from);
        }
        close(stream.kept);
    } else if (stream.isTurned) {
        close(stream.from);
    }
}
