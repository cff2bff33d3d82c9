// SPDX-License-Identifier: MIT
#include "SessionBus.h"

#include <algorithm>
#include <cstdlib>
#include <sys/stat.h>

namespace {

/// Empty if there is no session bus: the library itself would start one.
std::string busAddress() {
    const char* address = std::getenv("DBUS_SESSION_BUS_ADDRESS");
    if (address != nullptr && std::string(address).rfind("autolaunch:", 0) != 0) {
        return address;
    }
    const char* folder = std::getenv("XDG_RUNTIME_DIR");
    const std::string path = std::string(folder != nullptr ? folder : "") + "/bus";
    struct stat facts = {};
    return ::stat(path.c_str(), &facts) == 0 && S_ISSOCK(facts.st_mode) ? "unix:path=" + path : "";
}

}  // namespace

SessionBus::SessionBus() {
    dbus_threads_init_default();
    const std::string address = busAddress();
    if (address.empty()) {
        return;
    }
    connection.reset(dbus_connection_open_private(address.c_str(), nullptr));
    if (connection != nullptr && dbus_bus_register(connection.get(), nullptr) == FALSE) {
        connection.reset();
    }
    if (connection != nullptr) {
        dbus_connection_set_exit_on_disconnect(connection.get(), FALSE);
    }
}

SessionBus::Message SessionBus::newCall(const Method& method) {
    return Message(
        dbus_message_new_method_call(method.service, method.object, method.interface, method.name));
}

SessionBus::Message SessionBus::call(DBusMessage& message, int maxWaitMs) const {
    return Message(
        dbus_connection_send_with_reply_and_block(connection.get(), &message, maxWaitMs, nullptr));
}

std::string SessionBus::carried(const std::string& text) {
    std::string carried = text;
    std::replace(carried.begin(), carried.end(), '\0', '?');
    if (dbus_validate_utf8(carried.c_str(), nullptr) == FALSE) {
        std::replace_if(
            carried.begin(), carried.end(), [](char c) { return (c & 0x80) != 0; }, '?');
    }
    return carried;
}
