#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""fake_desktop.py LOG [WORD...]: simulates a desktop's notices and its file manager on the session bus.

Each call is written to LOG as a line of JSON. WORDs: "markup" makes the notices read markup, "failing" makes the file
manager return an error, "slow" makes it reply after 15 seconds.
"""
import json
import sys
import time

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

NOTICES = 'org.freedesktop.Notifications'
MANAGER = 'org.freedesktop.FileManager1'
LOG, WORDS = sys.argv[1], sys.argv[2:]


def write(*call):
    """Converts the values of D-Bus to those of JSON, and adds the call to the log."""
    with open(LOG, 'a', encoding='utf-8') as log:
        log.write(json.dumps(call) + '\n')


class Notices(dbus.service.Object):
    @dbus.service.method(NOTICES, out_signature='as')
    def GetCapabilities(self):
        return ['body', 'body-markup'] if 'markup' in WORDS else ['body']

    @dbus.service.method(NOTICES, in_signature='susssasa{sv}i', out_signature='u')
    def Notify(self, program, replaced, icon, title, text, actions, hints, shown_ms):
        write('Notify', program, replaced, icon, title, text, actions, dict(hints), shown_ms)
        return 1


class Manager(dbus.service.Object):
    @dbus.service.method(MANAGER, in_signature='ass')
    def ShowItems(self, uris, token):
        write('ShowItems', uris, token)
        if 'slow' in WORDS:
            time.sleep(15)
            write('ShowItems has replied')
        if 'failing' in WORDS:
            raise dbus.DBusException('not today', name=MANAGER + '.Error.Failed')


dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
session = dbus.SessionBus()
names = [dbus.service.BusName(name, session) for name in (NOTICES, MANAGER)]
notices = Notices(session, '/org/freedesktop/Notifications')
manager = Manager(session, '/org/freedesktop/FileManager1')
with open(LOG + '.ready', 'w', encoding='utf-8'):
    pass
GLib.MainLoop().run()
