// SPDX-License-Identifier: MIT
// The last argument of many calls on the session bus: a dictionary of named values.
#pragma once

#include <cstdint>
#include <dbus/dbus.h>
#include <functional>
#include <string>

class BusOptions {
public:
    /// Begins the dictionary as the next argument of a call. It is complete after close().
    explicit BusOptions(DBusMessageIter* call);

    /// @param text  UTF-8
    void addText(const char* name, const std::string& text);

    /// @param number  of D-Bus's type BYTE, 0 to 255
    void addByte(const char* name, uint8_t number);

    /// Adds a path as bytes that end with 0, because it need not be valid text.
    void addPath(const char* name, const std::string& path);

    /// Shows files of one kind only, until the user asks for all of them.
    void addFilter(const char* title, const char* mimeType);

    /// Ends the dictionary. Nothing may be added after it; the next argument can follow.
    void close();

private:
    void add(const char* name,
             const char* signature,
             const std::function<void(DBusMessageIter*)>& value);

    DBusMessageIter* call;
    DBusMessageIter entries{};
};
