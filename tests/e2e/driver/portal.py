"""A desktop's portal, as far as it tells what its user wishes of all programs."""

import threading

from gi.repository import Gio, GLib

_NAME = "org.freedesktop.portal.Desktop"
_PATH = "/org/freedesktop/portal/desktop"
_INTERFACE = "org.freedesktop.portal.Settings"
_DESCRIPTION = f"""<node><interface name="{_INTERFACE}">
<method name="ReadAll"><arg type="as" direction="in"/><arg type="a{{sa{{sv}}}}" direction="out"/></method>
<signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface></node>"""
APPEARANCE = "org.freedesktop.appearance"
GNOME = "org.gnome.desktop.interface"


class Portal:
    """Answers on a session bus; settings are {namespace: {key: GLib.Variant}}."""

    def __init__(self, environment, settings):
        self.settings = settings
        self.asked = threading.Event()
        self._ready = threading.Event()
        self._loop = None
        self._connection = None
        self._thread = threading.Thread(target=self._run, args=(environment["DBUS_SESSION_BUS_ADDRESS"],), daemon=True)
        self._thread.start()
        if not self._ready.wait(15):
            raise AssertionError("the portal does not come up")

    def _run(self, address):
        context = GLib.MainContext.new()
        context.push_thread_default()
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        self._connection = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
        info = Gio.DBusNodeInfo.new_for_xml(_DESCRIPTION).interfaces[0]
        self._connection.register_object(_PATH, info, self._on_call, None, None)
        self._connection.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                   "RequestName", GLib.Variant("(su)", (_NAME, 0)), None, Gio.DBusCallFlags.NONE,
                                   -1, None)
        self._loop = GLib.MainLoop.new(context, False)
        self._ready.set()
        self._loop.run()

    def _on_call(self, _connection, _sender, _path, _interface, _method, arguments, invocation):
        wanted = arguments.unpack()[0]
        found = {space: values for space, values in self.settings.items() if space in wanted}
        invocation.return_value(GLib.Variant("(a{sa{sv}})", (found,)))
        self.asked.set()

    def change(self, space, key, value):
        """Tells every program."""
        self.settings.setdefault(space, {})[key] = value
        self._connection.emit_signal(None, _PATH, _INTERFACE, "SettingChanged",
                                     GLib.Variant("(ssv)", (space, key, value)))
        self._connection.flush_sync(None)

    def close(self):
        self._loop.quit()
        self._thread.join(5)
        self._connection.close_sync(None)
