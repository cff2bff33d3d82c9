// SPDX-License-Identifier: MIT
#include "FileDialog.h"

#include "BusOptions.h"
#include "SessionBus.h"

#include <cstdint>
#include <functional>
#include <random>

namespace {

constexpr const char* kService = "org.freedesktop.portal.Desktop";
constexpr const char* kObject = "/org/freedesktop/portal/desktop";
constexpr const char* kChooser = "org.freedesktop.portal.FileChooser";
constexpr const char* kRequest = "org.freedesktop.portal.Request";
constexpr const char* kBus = "org.freedesktop.DBus";
constexpr int kForever = -1;

using Kind = FileDialog::Answer::Kind;

/// The first address in a dialog's answer. The answer is (u a{sv}) in D-Bus's notation; the
/// addresses are its value "uris", of type as.
FileDialog::Answer read(DBusMessage* response) {
    DBusMessageIter part;
    DBusMessageIter entries;
    uint32_t status = 1;
    if (dbus_message_iter_init(response, &part) == FALSE ||
        dbus_message_iter_get_arg_type(&part) != DBUS_TYPE_UINT32) {
        return {Kind::kCancelled, ""};
    }
    dbus_message_iter_get_basic(&part, &status);
    if (status != 0 || dbus_message_iter_next(&part) == FALSE ||
        dbus_message_iter_get_arg_type(&part) != DBUS_TYPE_ARRAY) {
        return {Kind::kCancelled, ""};
    }
    dbus_message_iter_recurse(&part, &entries);
    for (; dbus_message_iter_get_arg_type(&entries) == DBUS_TYPE_DICT_ENTRY;
         dbus_message_iter_next(&entries)) {
        DBusMessageIter entry;
        DBusMessageIter variant;
        DBusMessageIter uris;
        const char* name = "";
        dbus_message_iter_recurse(&entries, &entry);
        dbus_message_iter_get_basic(&entry, &name);
        dbus_message_iter_next(&entry);
        dbus_message_iter_recurse(&entry, &variant);
        if (std::string(name) != "uris" ||
            dbus_message_iter_get_arg_type(&variant) != DBUS_TYPE_ARRAY ||
            dbus_message_iter_get_element_type(&variant) != DBUS_TYPE_STRING) {
            continue;
        }
        dbus_message_iter_recurse(&variant, &uris);
        if (dbus_message_iter_get_arg_type(&uris) == DBUS_TYPE_STRING) {
            const char* uri = "";
            dbus_message_iter_get_basic(&uris, &uri);
            return {Kind::kChosen, uri};
        }
    }
    return {Kind::kCancelled, ""};
}

/// True if the service that shows the dialogs has left the bus: then no answer will come.
bool isEndOfService(DBusMessage* message) {
    const char* name = nullptr;
    const char* before = nullptr;
    const char* after = nullptr;
    return dbus_message_is_signal(message, kBus, "NameOwnerChanged") != FALSE &&
           dbus_message_get_args(message, nullptr, DBUS_TYPE_STRING, &name, DBUS_TYPE_STRING,
                                 &before, DBUS_TYPE_STRING, &after, DBUS_TYPE_INVALID) != FALSE &&
           std::string(name) == kService && *after == '\0';
}

FileDialog::Answer waitForUser(DBusConnection* bus, const std::string& handle) {
    for (;;) {
        while (DBusMessage* const next = dbus_connection_pop_message(bus)) {
            const SessionBus::Message message(next);
            const char* path = dbus_message_get_path(next);
            if (dbus_message_is_signal(next, kRequest, "Response") != FALSE && path != nullptr &&
                handle == path) {
                return read(next);
            }
            if (isEndOfService(next)) {
                return {Kind::kCancelled, ""};
            }
        }
        if (dbus_connection_read_write(bus, kForever) == FALSE) {
            return {Kind::kCancelled, ""};  // the bus itself is gone
        }
    }
}

std::string newToken() {
    std::random_device random;
    return "murmelo" + std::to_string(random());
}

FileDialog::Answer ask(const char* method,
                       const FileDialog::Frame& frame,
                       const std::function<void(BusOptions&)>& fill) {
    const SessionBus bus;
    if (!bus.isOpen()) {
        return {};
    }
    // Before the call: an answer can come at once.
    dbus_bus_add_match(
        bus.get(),
        (std::string("type='signal',member='Response',interface='") + kRequest + "'").c_str(),
        nullptr);
    dbus_bus_add_match(
        bus.get(),
        (std::string("type='signal',member='NameOwnerChanged',arg0='") + kService + "'").c_str(),
        nullptr);
    const SessionBus::Message call = SessionBus::newCall({kService, kObject, kChooser, method});
    DBusMessageIter arguments;
    const char* parent = frame.parent.c_str();
    const char* title = frame.title.c_str();
    dbus_message_iter_init_append(call.get(), &arguments);
    dbus_message_iter_append_basic(&arguments, DBUS_TYPE_STRING, &parent);
    dbus_message_iter_append_basic(&arguments, DBUS_TYPE_STRING, &title);
    BusOptions options(&arguments);
    options.addText("handle_token", newToken());
    fill(options);
    options.close();
    const SessionBus::Message reply = bus.call(*call);
    const char* handle = nullptr;
    if (reply == nullptr || dbus_message_get_args(reply.get(), nullptr, DBUS_TYPE_OBJECT_PATH,
                                                  &handle, DBUS_TYPE_INVALID) == FALSE) {
        return {};
    }
    return waitForUser(bus.get(), handle);
}

}  // namespace

FileDialog::Answer FileDialog::open(const Frame& frame, const std::string& filter) {
    return ask("OpenFile", frame,
               [&](BusOptions& options) { options.addFilter(filter.c_str(), "audio/*"); });
}

FileDialog::Answer
FileDialog::save(const Frame& frame, const std::string& name, const std::string& folder) {
    return ask("SaveFile", frame, [&](BusOptions& options) {
        options.addText("current_name", name);
        options.addPath("current_folder", folder);
    });
}
