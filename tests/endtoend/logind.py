#!/usr/bin/python3
"""logind.py: as much of org.freedesktop.login1 as hands out inhibitor locks. Prints "ready", then
"hold WHAT MODE WHO: WHY" and "released" as locks come and go."""

import os

import dbus
import dbus.service
from dbus.mainloop.glib import DBusGMainLoop
from gi.repository import GLib


def tell(text):
    print(text, flush=True)


def released(pipe, _condition):
    os.close(pipe)
    tell("released")
    return False


class Manager(dbus.service.Object):
    @dbus.service.method("org.freedesktop.login1.Manager", in_signature="ssss", out_signature="h")
    def Inhibit(self, what, who, why, mode):
        tell(f"hold {what} {mode} {who}: {why}")
        pipe, lock = os.pipe()
        GLib.io_add_watch(pipe, GLib.IO_HUP, released)
        answer = dbus.types.UnixFd(lock)
        os.close(lock)
        return answer


DBusGMainLoop(set_as_default=True)
bus = dbus.SystemBus()
name = dbus.service.BusName("org.freedesktop.login1", bus)
manager = Manager(bus, "/org/freedesktop/login1")
tell("ready")
GLib.MainLoop().run()
