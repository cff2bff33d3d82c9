// SPDX-License-Identifier: MIT
#include "DesktopNotice.h"

#include "BusOptions.h"
#include "SessionBus.h"

#include <cstdint>

namespace {

constexpr const char* kService = "org.freedesktop.Notifications";
constexpr const char* kObject = "/org/freedesktop/Notifications";
constexpr const char* kName = "org.murmelo.Murmelo";  // of desktop entry and icon
constexpr uint8_t kUrgent = 2;

/// True if the desktop takes the signs & < > in the text for markup.
bool readsMarkup(const SessionBus& bus) {
    const SessionBus::Message call =
        SessionBus::newCall({kService, kObject, kService, "GetCapabilities"});
    const SessionBus::Message reply = bus.call(*call);
    char** names = nullptr;
    int count = 0;
    if (reply == nullptr ||
        dbus_message_get_args(reply.get(), nullptr, DBUS_TYPE_ARRAY, DBUS_TYPE_STRING, &names,
                              &count, DBUS_TYPE_INVALID) == FALSE) {
        return false;
    }
    bool isNamed = false;
    for (int i = 0; i < count; i++) {
        isNamed = isNamed || names[i] == std::string("body-markup");
    }
    dbus_free_string_array(names);
    return isNamed;
}

std::string withoutMarkup(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '&') {
            escaped += "&amp;";
        } else if (c == '<') {
            escaped += "&lt;";
        } else if (c == '>') {
            escaped += "&gt;";
        } else {
            escaped += c;
        }
    }
    return escaped;
}

void addText(DBusMessageIter* arguments, const std::string& text) {
    const char* letters = text.c_str();
    dbus_message_iter_append_basic(arguments, DBUS_TYPE_STRING, &letters);
}

}  // namespace

bool DesktopNotice::show(const std::string& title, const std::string& text) {
    const SessionBus bus;
    if (!bus.isOpen()) {
        return false;
    }
    const std::string carried = SessionBus::carried(text);
    const std::string body = readsMarkup(bus) ? withoutMarkup(carried) : carried;
    const SessionBus::Message call = SessionBus::newCall({kService, kObject, kService, "Notify"});
    const uint32_t replaced = 0;  // no earlier notice
    const int32_t shownMs = 0;    // until the user closes it
    DBusMessageIter arguments;
    DBusMessageIter actions;
    dbus_message_iter_init_append(call.get(), &arguments);
    addText(&arguments, "Murmelo");
    dbus_message_iter_append_basic(&arguments, DBUS_TYPE_UINT32, &replaced);
    addText(&arguments, kName);
    addText(&arguments, SessionBus::carried(title));
    addText(&arguments, body);
    dbus_message_iter_open_container(&arguments, DBUS_TYPE_ARRAY, "s", &actions);
    dbus_message_iter_close_container(&arguments, &actions);
    BusOptions hints(&arguments);
    hints.addByte("urgency", kUrgent);
    // Not "desktop-entry": some desktops close the notices of a known program as soon as it ends.
    hints.close();
    dbus_message_iter_append_basic(&arguments, DBUS_TYPE_INT32, &shownMs);
    return bus.call(*call) != nullptr;
}
