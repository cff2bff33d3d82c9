// SPDX-License-Identifier: MIT
// A connection to the session's message bus, on which the desktop offers its services.
//
// Calls wait for their reply: use it on a thread of its own, or where there is no window.
#pragma once

#include <dbus/dbus.h>
#include <memory>
#include <string>

class SessionBus {
public:
    struct MessageFree {
        void operator()(DBusMessage* message) const { dbus_message_unref(message); }
    };

    using Message = std::unique_ptr<DBusMessage, MessageFree>;

    /// A call's receiver and name, in D-Bus's notation ("org.freedesktop.Notifications",
    /// "/org/freedesktop/Notifications", ..., "Notify"). The texts are not copied.
    struct Method {
        const char* service;
        const char* object;
        const char* interface;
        const char* name;
    };

    /// Connects. Never starts a bus.
    SessionBus();

    /// False if there is no session bus. Then nothing else may be called.
    bool isOpen() const { return connection != nullptr; }

    /// The library's own connection, for what this class does not offer. It stays this object's;
    /// null if there is no bus.
    DBusConnection* get() const { return connection.get(); }

    /// A call without arguments yet. Never null.
    static Message newCall(const Method& method);

    /// How long to wait for a reply: a desktop may start the service only now.
    static constexpr int kMaxWaitMs = 25000;

    /// Waits for the reply.
    /// @returns null if there is no such service, it returned an error, or it took longer
    Message call(DBusMessage& message, int maxWaitMs = kMaxWaitMs) const;

    /// The text with a question mark in the place of each byte that a bus does not carry.
    static std::string carried(const std::string& text);

private:
    struct ConnectionFree {
        void operator()(DBusConnection* connection) const {
            dbus_connection_close(connection);
            dbus_connection_unref(connection);
        }
    };

    std::unique_ptr<DBusConnection, ConnectionFree> connection;
};
