// SPDX-License-Identifier: MIT
#include "BusOptions.h"

namespace {

constexpr uint32_t kFilterByMimeType = 1;

}  // namespace

BusOptions::BusOptions(DBusMessageIter* call)
    : call(call) {
    dbus_message_iter_open_container(call, DBUS_TYPE_ARRAY, "{sv}", &entries);
}

void BusOptions::add(const char* name,
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

void BusOptions::addText(const char* name, const std::string& text) {
    add(name, "s", [&](DBusMessageIter* value) {
        const char* letters = text.c_str();
        dbus_message_iter_append_basic(value, DBUS_TYPE_STRING, &letters);
    });
}

void BusOptions::addByte(const char* name, uint8_t number) {
    add(name, "y", [&](DBusMessageIter* value) {
        dbus_message_iter_append_basic(value, DBUS_TYPE_BYTE, &number);
    });
}

void BusOptions::addPath(const char* name, const std::string& path) {
    add(name, "ay", [&](DBusMessageIter* value) {
        DBusMessageIter bytes;
        const char* start = path.c_str();
        dbus_message_iter_open_container(value, DBUS_TYPE_ARRAY, "y", &bytes);
        dbus_message_iter_append_fixed_array(&bytes, DBUS_TYPE_BYTE, &start,
                                             static_cast<int>(path.size() + 1));
        dbus_message_iter_close_container(value, &bytes);
    });
}

void BusOptions::addFilter(const char* title, const char* mimeType) {
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

void BusOptions::close() {
    dbus_message_iter_close_container(call, &entries);
}
