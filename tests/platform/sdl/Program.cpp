// SPDX-License-Identifier: MIT
// Starts, watches and ends another program.
#include "Program.h"

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

Program::Program(const std::vector<std::string>& command, const std::string& output) {
    std::vector<char*> arguments;
    for (const std::string& word : command) {
        arguments.push_back(const_cast<char*>(word.c_str()));  // NOLINT: execvp wants it so
    }
    arguments.push_back(nullptr);
    process = fork();
    if (process == 0) {
        sigset_t none;
        sigemptyset(&none);
        sigprocmask(SIG_SETMASK, &none, nullptr);
        if (!output.empty()) {
            dup2(open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDOUT_FILENO);
        }
        execvp(arguments[0], arguments.data());
        _exit(127);
    }
}

Program::~Program() {
    if (process > 0) {
        send(SIGKILL);
        waitpid(process, nullptr, 0);
    }
}

void Program::send(int signal) const {
    kill(process, signal);
}

int Program::waitForEnd(int64_t maxMs) {
    for (int64_t passedMs = 0; passedMs < maxMs; passedMs++) {
        int status = 0;
        if (waitpid(process, &status, WNOHANG) == process) {
            process = -1;
            return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return -1;
}

int64_t Program::processorTicks() const {
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string text;
    std::getline(file, text);
    std::istringstream fields(text.substr(text.rfind(')') + 2));
    std::string field;
    int64_t ticks = 0;
    for (int32_t i = 3; i <= 15 && fields >> field; i++) {
        ticks += i >= 14 ? std::stoll(field) : 0;  // user and system time
    }
    return ticks;
}

int64_t Program::sleeps() const {
    int64_t sleeps = 0;
    const std::string tasks = "/proc/" + std::to_string(process) + "/task";
    for (const auto& task : std::filesystem::directory_iterator(tasks)) {
        std::ifstream file(task.path() / "status");
        const std::string key = "voluntary_ctxt_switches:";
        for (std::string line; std::getline(file, line);) {
            if (line.compare(0, key.size(), key) == 0) {
                sleeps += std::stoll(line.substr(key.size()));
            }
        }
    }
    return sleeps;
}
