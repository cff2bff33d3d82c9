// SPDX-License-Identifier: MIT
#include "FileDialog.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <dbus/dbus.h>
#include <functional>
#include <memory>
#include <random>
#include <sys/stat.h>

namespace {

constexpr const char* kService = "org.freedesktop.portal.Desktop";
constexpr const char* kObject = "/org/freedesktop/portal/desktop";
constexpr const char* kChooser = "org.freedesktop.portal.FileChooser";
constexpr const char* kRequest = "org.freedesktop.portal.Request";
constexpr const char* kBus = "org.freedesktop.DBus";
constexpr int kStartMs = 25000;  // a desktop may start its dialogs only now
constexpr int kForever = -1;
constexpr uint32_t kFilterByMimeType = 1;

using Kind = FileDialog::Answer::Kind;

struct Closing {
    void operator()(DBusConnection* bus) const {
        dbus_connection_close(bus);
        dbus_connection_unref(bus);
    }
};

struct Letting {
    void operator()(DBusMessage* message) const { dbus_message_unref(message); }
};

using Bus = std::unique_ptr<DBusConnection, Closing>;
using Message = std::unique_ptr<DBusMessage, Letting>;

/// Empty if there is no session bus: the library itself would start one.
std::string busAddress() {
    if (const char* address = std::getenv("DBUS_SESSION_BUS_ADDRESS")) {
        return address;
    }
    const char* folder = std::getenv("XDG_RUNTIME_DIR");
    const std::string path = std::string(folder != nullptr ? folder : "") + "/bus";
    struct stat facts = {};
    return ::stat(path.c_str(), &facts) == 0 && S_ISSOCK(facts.st_mode) ? "unix:path=" + path : "";
}

/// Null if there is none.
Bus openBus() {
    dbus_threads_init_default();
    const std::string address = busAddress();
    Bus bus(address.empty() ? nullptr : dbus_connection_open_private(address.c_str(), nullptr));
    if (bus != nullptr && dbus_bus_register(bus.get(), nullptr) == FALSE) {
        bus.reset();
    }
    return bus;
}

/// One dictionary entry of the options of a call.
class Options {
public:
    explicit Options(DBusMessageIter* call) {
        dbus_message_iter_open_container(call, DBUS_TYPE_ARRAY, "{sv}", &entries);
        this->call = call;
    }

    void add(const char* name,
             const char* signature,
             const std::function<void(DBusMessageIter*)>& value) {
        DBusMessageIter entry;
        DBusMessageIter variant;
        dbus_message_iter_open_container(&entries, DBUS_TYPE_DICT_ENTRY, nullptr, &entry);
        dbus_message_iter_append_basic(&entry, DBUS_TYPE_STRING, &name);
        dbus_message_iter_open_container(&entry, DBUS_TYPE_VARIANT, signature, &variant);
        value(&variant);
        dbus_message_iter_close_container(&entry, &variant);
        dbus_message_iter_close_container(&entries, &entry);
    }

    void addText(const char* name, const std::string& text) {
        add(name, "s", [&](DBusMessageIter* value) {
            const char* letters = text.c_str();
            dbus_message_iter_append_basic(value, DBUS_TYPE_STRING, &letters);
        });
    }

    /// Adds a path as bytes that end with 0, because it need not be valid text.
    void addPath(const char* name, const std::string& path) {
        add(name, "ay", [&](DBusMessageIter* value) {
            DBusMessageIter bytes;
            const char* start = path.c_str();
            dbus_message_iter_open_container(value, DBUS_TYPE_ARRAY, "y", &bytes);
            dbus_message_iter_append_fixed_array(&bytes, DBUS_TYPE_BYTE, &start,
                                                 static_cast<int>(path.size() + 1));
            dbus_message_iter_close_container(value, &bytes);
        });
    }

    /// Shows files of one kind only, until the user asks for all of them.
    void addFilter(const char* title, const char* mimeType) {
        add("filters", "a(sa(us))", [&](DBusMessageIter* value) {
            DBusMessageIter filters;
            DBusMessageIter filter;
            DBusMessageIter rules;
            DBusMessageIter rule;
            dbus_message_iter_open_container(value, DBUS_TYPE_ARRAY, "(sa(us))", &filters);
            dbus_message_iter_open_container(&filters, DBUS_TYPE_STRUCT, nullptr, &filter);
            dbus_message_iter_append_basic(&filter, DBUS_TYPE_STRING, &title);
            dbus_message_iter_open_container(&filter, DBUS_TYPE_ARRAY, "(us)", &rules);
            dbus_message_iter_open_container(&rules, DBUS_TYPE_STRUCT, nullptr, &rule);
            dbus_message_iter_append_basic(&rule, DBUS_TYPE_UINT32, &kFilterByMimeType);
            dbus_message_iter_append_basic(&rule, DBUS_TYPE_STRING, &mimeType);
            dbus_message_iter_close_container(&rules, &rule);
            dbus_message_iter_close_container(&filter, &rules);
            dbus_message_iter_close_container(&filters, &filter);
            dbus_message_iter_close_container(value, &filters);
        });
    }

    void close() { dbus_message_iter_close_container(call, &entries); }

private:
    DBusMessageIter* call = nullptr;
    DBusMessageIter entries{};
};

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
            const Message message(next);
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

FileDialog::Answer
ask(const char* method, const std::string& title, const std::function<void(Options&)>& fill) {
    const Bus bus = openBus();
    if (bus == nullptr) {
        return {};
    }
    dbus_connection_set_exit_on_disconnect(bus.get(), FALSE);
    // Before the call: an answer can come at once.
    dbus_bus_add_match(
        bus.get(),
        (std::string("type='signal',member='Response',interface='") + kRequest + "'").c_str(),
        nullptr);
    dbus_bus_add_match(
        bus.get(),
        (std::string("type='signal',member='NameOwnerChanged',arg0='") + kService + "'").c_str(),
        nullptr);
    const Message call(dbus_message_new_method_call(kService, kObject, kChooser, method));
    if (call == nullptr) {
        return {};
    }
    DBusMessageIter arguments;
    const char* parent = "";
    const char* titleText = title.c_str();
    dbus_message_iter_init_append(call.get(), &arguments);
    dbus_message_iter_append_basic(&arguments, DBUS_TYPE_STRING, &parent);
    dbus_message_iter_append_basic(&arguments, DBUS_TYPE_STRING, &titleText);
    Options options(&arguments);
    options.addText("handle_token", newToken());
    fill(options);
    options.close();
    const Message reply(
        dbus_connection_send_with_reply_and_block(bus.get(), call.get(), kStartMs, nullptr));
    const char* handle = nullptr;
    if (reply == nullptr || dbus_message_get_args(reply.get(), nullptr, DBUS_TYPE_OBJECT_PATH,
                                                  &handle, DBUS_TYPE_INVALID) == FALSE) {
        return {};
    }
    return waitForUser(bus.get(), handle);
}

}  // namespace

FileDialog::Answer FileDialog::open(const std::string& title, const std::string& filter) {
    return ask("OpenFile", title,
               [&](Options& options) { options.addFilter(filter.c_str(), "audio/*"); });
}

FileDialog::Answer
FileDialog::save(const std::string& title, const std::string& name, const std::string& folder) {
    return ask("SaveFile", title, [&](Options& options) {
        options.addText("current_name", name);
        options.addPath("current_folder", folder);
    });
}
