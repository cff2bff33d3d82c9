// SPDX-License-Identifier: MIT
#include "StartSocket.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace {

constexpr int kWaiting = 8;            // length of the queue of starts that are not served yet
constexpr timeval kMaxWait = {5, 0};   // with a program on the other side that does not send
constexpr size_t kLongest = PATH_MAX;  // bytes of a file's path
constexpr char kTaken = 'k';

/// FNV-1a: the same home has the same socket in each start.
uint64_t hashOf(const std::string& text) {
    uint64_t hash = 0xCBF29CE484222325U;
    for (const char c : text) {
        hash = (hash ^ static_cast<uint8_t>(c)) * 0x100000001B3U;
    }
    return hash;
}

sockaddr_un addressOf(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    return address;
}

bool isOfThisUser(int socket) {
    ucred other{};
    socklen_t length = sizeof other;
    return ::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &other, &length) == 0 &&
           other.uid == ::getuid();
}

void limitWaiting(int socket) {
    ::setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &kMaxWait, sizeof kMaxWait);
    ::setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, &kMaxWait, sizeof kMaxWait);
}

/// Reads everything that the other side sends until it closes. False if that is more than kLongest
/// bytes, or if nothing comes for kMaxWait.
bool readAll(int socket, std::string& text) {
    std::array<char, 512> bytes{};
    for (;;) {
        const ssize_t count = ::recv(socket, bytes.data(), bytes.size(), 0);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            return count == 0;
        }
        text.append(bytes.data(), static_cast<size_t>(count));
        if (text.size() > kLongest) {
            return false;
        }
    }
}

/// True for nothing, the last take, and a full path.
bool isAllowed(const std::string& file) {
    return file.empty() || file == StartSocket::kLastTake ||
           (file[0] == '/' && file.find('\0') == std::string::npos);
}

bool writeAll(int socket, const std::string& text) {
    size_t written = 0;
    while (written < text.size()) {
        const ssize_t count =
            ::send(socket, text.data() + written, text.size() - written, MSG_NOSIGNAL);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            return false;
        }
        written += static_cast<size_t>(count);
    }
    return true;
}

}  // namespace

StartSocket::StartSocket(std::function<bool(const std::string& file)> onStart)
    : onStart(std::move(onStart)) {}

StartSocket::~StartSocket() {
    close();
}

void StartSocket::close() {
    if (server < 0) {
        return;
    }
    ::unlink(path.c_str());
    ::close(endWriter);  // ends the poll() in listen()
    thread.join();
    ::close(endReader);
    ::close(std::exchange(server, -1));
}

std::string StartSocket::pathFor(const std::string& home) {
    const char* folder = std::getenv("XDG_RUNTIME_DIR");
    std::error_code error;
    if (folder == nullptr || folder[0] != '/' || !std::filesystem::is_directory(folder, error)) {
        return "";
    }
    char name[40];
    std::snprintf(name, sizeof name, "/murmelo-%016llx.socket",
                  static_cast<unsigned long long>(hashOf(home)));  // NOLINT: what %llx wants
    std::string path = std::string(folder) + name;
    return path.size() < sizeof(sockaddr_un::sun_path) ? path : "";
}

void StartSocket::open(const std::string& home) {
    path = pathFor(home);
    int end[2] = {};
    if (path.empty() || server >= 0) {
        return;
    }
    server = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (server < 0) {
        return;
    }
    ::unlink(path.c_str());
    const sockaddr_un address = addressOf(path);
    // bind() gives the socket's file the mode that the descriptor has.
    const bool isOpen =
        ::fchmod(server, 0600) == 0 &&
        ::bind(server, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
        ::chmod(path.c_str(), 0600) == 0 && ::listen(server, kWaiting) == 0 &&
        ::pipe2(end, O_CLOEXEC) == 0;
    if (!isOpen) {
        ::close(server);
        server = -1;
        return;
    }
    endReader = end[0];
    endWriter = end[1];
    thread = std::thread(&StartSocket::listen, this);
}

void StartSocket::listen() {
    std::array<pollfd, 2> watched = {{{server, POLLIN, 0}, {endReader, POLLIN, 0}}};
    for (;;) {
        if (::poll(watched.data(), watched.size(), -1) < 0 && errno != EINTR) {
            return;
        }
        if (watched[1].revents != 0) {
            return;
        }
        const int client = ::accept4(server, nullptr, nullptr, SOCK_CLOEXEC);
        if (client >= 0) {
            serve(client);
            ::close(client);
        }
    }
}

void StartSocket::serve(int client) {
    limitWaiting(client);
    std::string file;
    if (!isOfThisUser(client) || !readAll(client, file) || !isAllowed(file)) {
        return;
    }
    if (onStart(file)) {
        writeAll(client, std::string(1, kTaken));
    }
}

bool StartSocket::handOver(const std::string& home, const std::string& file) {
    const std::string path = pathFor(home);
    const int client = path.empty() ? -1 : ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (client < 0) {
        return false;
    }
    limitWaiting(client);
    const sockaddr_un address = addressOf(path);
    std::error_code error;
    const std::string fullPath =
        file.empty() || file == kLastTake ? file : std::filesystem::absolute(file, error).string();
    std::string reply;
    const bool isTaken =
        !error &&
        ::connect(client, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
        isOfThisUser(client) && writeAll(client, fullPath) && ::shutdown(client, SHUT_WR) == 0 &&
        readAll(client, reply) && reply == std::string(1, kTaken);
    ::close(client);
    return isTaken;
}
