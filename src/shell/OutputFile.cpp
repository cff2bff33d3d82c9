// SPDX-License-Identifier: MIT
#include "OutputFile.h"

#include "SafeFile.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace {

constexpr mode_t kNewFileMode = 0666;  // before the umask

/// While an object exists, signals that would end the program are delayed.
class SignalPause {
public:
    SignalPause() {
        sigset_t all;
        sigfillset(&all);
        sigprocmask(SIG_SETMASK, &all, &before);
    }

    ~SignalPause() { sigprocmask(SIG_SETMASK, &before, nullptr); }

private:
    sigset_t before = {};
};

mode_t userMask() {
    const mode_t mask = umask(0);
    umask(mask);
    return mask;
}

}  // namespace

char OutputFile::unfinished[kPathBytes] = "";

OutputFile::OutputFile(std::string path)
    : path(std::move(path)) {}

OutputFile::~OutputFile() {
    discard();
}

bool OutputFile::open() {
    if (path == kStandard) {
        fd = dup(STDOUT_FILENO);
        return fd >= 0 || reportError("cannot be written", errno);
    }
    struct stat facts = {};
    if (stat(path.c_str(), &facts) != 0) {
        // Links that lead in a circle have no target that could be made.
        return errno == ENOENT ? openBeside() : reportError("cannot be written", errno);
    }
    if (S_ISDIR(facts.st_mode)) {
        return reportError("cannot be written", EISDIR);
    }
    if (S_ISREG(facts.st_mode)) {
        // Renaming would replace a file that its owner has protected.
        return access(path.c_str(), W_OK) == 0 ? openBeside()
                                               : reportError("cannot be written", errno);
    }
    fd = ::open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
    return fd >= 0 || reportError("cannot be written", errno);
}

bool OutputFile::openBeside() {
    path = SafeFile::realTarget(path);  // a link stays a link
    const std::string name = (fs::path(path).parent_path() / ".murmelo-fx.XXXXXX").string();
    if (name.size() >= kPathBytes) {
        return reportError("cannot be written", ENAMETOOLONG);
    }
    struct stat facts = {};
    const bool replaces = stat(path.c_str(), &facts) == 0;
    const mode_t mode = replaces ? facts.st_mode & 07777 : kNewFileMode & ~userMask();
    removeOnSignals();
    const SignalPause pause;
    std::vector<char> pattern(name.begin(), name.end());
    pattern.push_back('\0');
    fd = mkostemp(pattern.data(), O_CLOEXEC);
    if (fd < 0) {
        return reportError("cannot be written", errno);
    }
    beside = true;
    std::memcpy(unfinished, pattern.data(), pattern.size());
    return fchmod(fd, mode) == 0 || reportError("cannot be written", errno);
}

bool OutputFile::write(const void* bytes, size_t count) {
    if (fd < 0) {
        return count == 0;
    }
    return SafeFile::writeAll(fd, bytes, count) || reportError("cannot be written", errno);
}

bool OutputFile::commit() {
    if (fd < 0) {
        return false;
    }
    // Some disks report only here that they are full.
    if (!SafeFile::sync(fd)) {
        return reportError("cannot be written", errno);
    }
    const int closed = close(fd);
    fd = -1;
    if (closed != 0) {
        return reportError("cannot be written", errno);
    }
    if (!beside) {
        return true;
    }
    const SignalPause pause;
    if (!SafeFile::over(unfinished, path)) {
        return reportError("cannot be replaced", errno);
    }
    beside = false;
    unfinished[0] = '\0';
    return SafeFile::syncFolderOf(path) || reportError("may be lost in a power cut", errno);
}

bool OutputFile::reportError(const char* what, int number) {
    if (errorText.empty()) {
        errorText = std::string(what) + ": " + std::strerror(number);
    }
    discard();
    return false;
}

void OutputFile::discard() {
    if (fd >= 0) {
        close(fd);
        fd = -1;
    }
    if (beside) {
        const SignalPause pause;
        unlink(unfinished);
        unfinished[0] = '\0';
        beside = false;
    }
}

void OutputFile::removeOnSignals() {
    // If a file grows beyond the user's limit (ulimit -f), the write must fail; the signal would
    // end the program without a message.
    std::signal(SIGXFSZ, SIG_IGN);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE, SIGXCPU, SIGALRM, SIGVTALRM,
                             SIGUSR1, SIGUSR2}) {
        struct sigaction action = {};
        sigaction(signal, nullptr, &action);
        // If the caller (nohup) has set a signal to be ignored, it stays ignored.
        if (action.sa_handler == SIG_DFL) {
            action.sa_handler = onSignal;
            action.sa_flags = static_cast<int>(SA_RESETHAND);
            sigaction(signal, &action, nullptr);
        }
    }
}

void OutputFile::onSignal(int signal) {
    if (unfinished[0] != '\0') {
        unlink(unfinished);
    }
    raise(signal);  // now with its default action
}
