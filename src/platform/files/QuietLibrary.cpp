// SPDX-License-Identifier: MIT
#include "QuietLibrary.h"

#include "SafeFile.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <iostream>
#include <mutex>
#include <unistd.h>

namespace {

/// One of the two streams, redirected to /dev/null. If there is no /dev/null, the library's output
/// is not hidden.
struct Turned {
    int from = -1;
    int kept = -1;  // copy of the original descriptor; -1 if that was closed
    bool isTurned = false;
};

/// Shared by all objects: the first one redirects the streams, the last one restores them.
struct State {
    std::mutex mutex;
    int objects = 0;
    std::array<Turned, 2> streams{Turned{STDOUT_FILENO}, Turned{STDERR_FILENO}};
};

State& shared() {
    static State* const state = new State;  // never freed: a thread may run longer than main()
    return *state;
}

/// The original standard error while it is redirected; -1 otherwise, or if it was closed. For the
/// signal handler, which must not take the lock.
volatile std::sig_atomic_t heardError = -1;

void writeToHeard(const char* words) {
    [[maybe_unused]] const ssize_t count = write(heardError, words, std::strlen(words));
}

/// Handles the signal of abort(). The process ends after this.
void sayAbort(int /*signal*/) {
    writeToHeard(program_invocation_short_name);
    writeToHeard(": the library that reads and writes sounds has ended the program\n");
}

/// A descriptor of /dev/null; -1 if there is none. Greater than 2: if a standard stream is closed,
/// open() would return its number.
int openNowhere() {
    const int fd = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (fd < 0 || fd > STDERR_FILENO) {
        return fd;
    }
    const int above = fcntl(fd, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    close(fd);
    return above;
}

void turn(Turned& stream) {
    static const int nowhere = openNowhere();
    if (nowhere < 0) {
        return;
    }
    stream.kept = fcntl(stream.from, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    stream.isTurned = dup2(nowhere, stream.from) == stream.from;
}

void turnBack(Turned& stream) {
    if (stream.kept >= 0) {
        if (stream.isTurned) {
            dup2(stream.kept, stream.from);
        }
        close(stream.kept);
    } else if (stream.isTurned) {
        close(stream.from);
    }
    stream = Turned{stream.from};
}

}  // namespace

QuietLibrary::QuietLibrary() {
    const std::lock_guard<std::mutex> lock(shared().mutex);
    if (shared().objects++ == 0) {
        flush();
        for (Turned& stream : shared().streams) {
            turn(stream);
        }
        heardError = shared().streams[1].kept;
        if (heardError >= 0) {
            std::signal(SIGABRT, sayAbort);
        }
    }
}

QuietLibrary::~QuietLibrary() {
    const std::lock_guard<std::mutex> lock(shared().mutex);
    if (--shared().objects == 0) {
        if (heardError >= 0) {
            std::signal(SIGABRT, SIG_DFL);
            heardError = -1;
        }
        flush();  // also drops what a library left in a buffer
        for (Turned& stream : shared().streams) {
            turnBack(stream);
        }
    }
}

void QuietLibrary::print(int stream, const std::string& text) {
    const std::lock_guard<std::mutex> lock(shared().mutex);
    int to = stream;
    for (const Turned& turned : shared().streams) {
        to = turned.from == stream && turned.isTurned ? turned.kept : to;
    }
    if (shared().objects == 0) {
        flush();  // keeps the order of the output
    }
    if (to >= 0) {
        SafeFile::writeAll(to, text.data(), text.size());
    }
}

void QuietLibrary::flush() {
    std::cout.flush();
    std::fflush(stdout);
    std::fflush(stderr);
}
