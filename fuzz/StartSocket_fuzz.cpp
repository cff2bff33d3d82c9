// SPDX-License-Identifier: MIT
// Fuzzes what a second start sends to the program that runs: it is taken only if it names nothing,
// the last take or a full path, and then as it was sent; the sender is told which.
#include "StartSocket.h"
#include "TestFolders.h"

#include <atomic>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

constexpr size_t kMaxInputBytes = PATH_MAX + 100;

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

bool isAllowed(const std::string& file) {
    return file.size() <= PATH_MAX && file.find('\0') == std::string::npos &&
           (file.empty() || file == StartSocket::kLastTake || file[0] == '/');
}

/// A program that waits for other starts.
struct Listener {
    Listener()
        : socket([this](const std::string& file) {
            taken = file;
            starts++;
            return true;
        }) {
        ::setenv("XDG_RUNTIME_DIR", folders.path(".").c_str(), 1);
        socket.open("home");
        path = StartSocket::pathFor("home");
        require(!path.empty());
    }

    TestFolders folders;
    std::string taken;  // written before the reply is sent, read after it has come
    std::atomic<int32_t> starts{0};
    std::string path;
    StartSocket socket;
};

/// Sends the text. Returns true if the program says that it has taken it.
bool send(const std::string& path, const std::string& text) {
    const int client = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    require(::connect(client, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0);
    size_t sent = 0;
    while (sent < text.size()) {
        const ssize_t count = ::send(client, text.data() + sent, text.size() - sent, MSG_NOSIGNAL);
        if (count <= 0) {
            break;  // the program reads no further: the text is too long
        }
        sent += static_cast<size_t>(count);
    }
    ::shutdown(client, SHUT_WR);
    char reply = 0;
    const bool isTaken = ::recv(client, &reply, 1, 0) == 1;
    require(!isTaken || ::recv(client, &reply, 1, 0) == 0);  // one byte, and the end
    ::close(client);
    return isTaken;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size > kMaxInputBytes) {
        return 0;
    }
    static Listener program;
    const std::string text(data, data + size);
    const int32_t before = program.starts;
    const bool isTaken = send(program.path, text);
    require(isTaken == isAllowed(text));
    require(program.starts - before == (isTaken ? 1 : 0));
    require(!isTaken || program.taken == text);
    return 0;
}
