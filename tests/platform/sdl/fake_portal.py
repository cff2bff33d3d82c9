#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""fake_portal.py LOG MODE [URI]: simulates a desktop's file dialogs and their user on the session bus.

Each call is written to LOG as a line of JSON. MODE says what the user does: "choose" chooses URI,
"cancel" closes the dialog, "wait" does nothing until a file LOG.go appears and then chooses URI,
"die" removes the dialogs from the bus, "refuse" returns an error.
"""
import json
import os
import sys

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

NAME = 'org.freedesktop.portal.Desktop'
CHOOSER = 'org.freedesktop.portal.FileChooser'
REQUEST = 'org.freedesktop.portal.Request'


def plain(value):
    """Converts a value of a D-Bus type to one for JSON; a path of bytes becomes a text."""
    if isinstance(value, dbus.ByteArray) or (isinstance(value, dbus.Array) and value.signature == 'y'):
        return bytes(value).decode()
    if isinstance(value, dict):
        return {str(key): plain(entry) for key, entry in value.items()}
    if isinstance(value, (list, tuple)):
        return [plain(entry) for entry in value]
    if isinstance(value, dbus.Boolean):
        return bool(value)
    return int(value) if isinstance(value, int) else str(value)


class Request(dbus.service.Object):
    @dbus.service.signal(REQUEST, signature='ua{sv}')
    def Response(self, status, results):
        pass


class Portal(dbus.service.Object):
    def __init__(self, bus, log, mode, uri):
        super().__init__(bus, '/org/freedesktop/portal/desktop')
        self.bus, self.log, self.mode, self.uri = bus, log, mode, uri

    def ask(self, method, parent, title, options, sender):
        with open(self.log, 'a', encoding='utf-8') as log:
            log.write(json.dumps([method, plain(parent), plain(title), plain(options)]) + '\n')
        if self.mode == 'refuse':
            raise dbus.DBusException('not today', name=NAME + '.Error.Failed')
        token = options['handle_token']
        path = f"/org/freedesktop/portal/desktop/request/{sender[1:].replace('.', '_')}/{token}"
        self.request = Request(self.bus, path)
        GLib.timeout_add(20, self.act)
        return dbus.ObjectPath(path)

    def act(self):
        if self.mode == 'die':
            os._exit(0)
        if self.mode == 'wait' and not os.path.exists(self.log + '.go'):
            return True
        if self.mode == 'cancel':
            self.request.Response(dbus.UInt32(1), dbus.Dictionary({}, signature='sv'))
        else:
            uris = dbus.Array([self.uri], signature='s')
            self.request.Response(dbus.UInt32(0), dbus.Dictionary({'uris': uris}, signature='sv'))
        return False

    @dbus.service.method(CHOOSER, in_signature='ssa{sv}', out_signature='o', sender_keyword='sender')
    def OpenFile(self, parent, title, options, sender=None):
        return self.ask('OpenFile', parent, title, options, sender)

    @dbus.service.method(CHOOSER, in_signature='ssa{sv}', out_signature='o', sender_keyword='sender')
    def SaveFile(self, parent, title, options, sender=None):
        return self.ask('SaveFile', parent, title, options, sender)


dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
session = dbus.SessionBus()
name = dbus.service.BusName(NAME, session)
portal = Portal(session, sys.argv[1], sys.argv[2], sys.argv[3] if len(sys.argv) > 3 else '')
with open(sys.argv[1] + '.ready', 'w', encoding='utf-8'):
    pass
GLib.MainLoop().run()
