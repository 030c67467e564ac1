# SPDX-License-Identifier: GPL-3.0-or-later
"""Stands in for the service that knows of the machine's network, on a system bus of the journey's own."""

import threading

from gi.repository import Gio, GLib

NAME = "org.freedesktop.NetworkManager"
PATH = "/org/freedesktop/NetworkManager"
DISCONNECTED, CONNECTED = 20, 70
INTERFACE = Gio.DBusNodeInfo.new_for_xml(f"""
<node><interface name="{NAME}">
  <property name="State" type="u" access="read"/>
  <property name="Connectivity" type="u" access="read"/>
</interface></node>""").interfaces[0]


class NetworkManager:
    """Begins disconnected; programs started from then on see it."""

    def __init__(self, environment):
        environment.start_system_bus()
        self._state = DISCONNECTED
        self._context = GLib.MainContext()
        ready = threading.Event()
        threading.Thread(target=self._serve, args=(environment.env["DBUS_SYSTEM_BUS_ADDRESS"], ready),
                         daemon=True).start()
        assert ready.wait(20), "the network's service did not start"

    def connect(self):
        self._state = CONNECTED
        changed = GLib.Variant("(sa{sv}as)", (NAME, {"State": GLib.Variant("u", CONNECTED)}, []))
        self._bus.emit_signal(None, PATH, "org.freedesktop.DBus.Properties", "PropertiesChanged", changed)

    def _serve(self, address, ready):
        self._context.push_thread_default()
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        self._bus = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
        self._bus.register_object(PATH, INTERFACE, None, self._property, None)
        Gio.bus_own_name_on_connection(self._bus, NAME, Gio.BusNameOwnerFlags.NONE,
                                       lambda *_: ready.set(), None)
        GLib.MainLoop.new(self._context, False).run()

    def _property(self, _bus, _sender, _path, _interface, name):
        return GLib.Variant("u", self._state if name == "State" else 4 if self._state == CONNECTED else 1)
