"""A private D-Bus session with an accessibility bus, and the objects that programs show on it."""

import contextlib
import os
import signal

from gi.repository import Gio, GLib

from .waiting import wait_until

_ACCESSIBLE = "org.a11y.atspi.Accessible"
_ROOT = "/org/a11y/atspi/accessible/root"
_CALL_LIMIT = 5000  # milliseconds
_DO_NOT_WAIT = 600000
_STATES = {"active": 1, "checked": 4, "enabled": 8, "focused": 12, "modal": 16, "selected": 23, "showing": 25,
           "visible": 30, "default": 39}

# No activatable services: nothing that is installed on the machine can start behind the test's back.
_SESSION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig><type>session</type><listen>unix:path=%s</listen><auth>EXTERNAL</auth>
<policy context="default"><allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/><allow own="*"/></policy>
</busconfig>
"""


class Gone(Exception):
    """The object, or the program that showed it, does not answer any more."""


def start_bus(children, folder, name, environment):
    """Starts a message bus; its address and its process."""
    socket, configuration = (os.path.join(folder, name + end) for end in ("", ".conf"))
    with open(configuration, "w", encoding="utf-8") as file:
        file.write(_SESSION % socket)
    process = children.start(["dbus-daemon", f"--config-file={configuration}", "--nofork", "--nopidfile"], environment,
                             os.path.join(folder, "bus.log"))
    wait_until(lambda: os.path.exists(socket), "the bus " + name)
    return f"unix:path={socket}", process


class AccessibilityBus:
    """Starts both buses. Programs find them through `environment`."""

    def __init__(self, children, screen):
        folder = screen.folder
        address, _ = start_bus(children, folder, "session-bus", screen.environment)
        self.environment = {"DBUS_SESSION_BUS_ADDRESS": address, "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
        everything = {**screen.environment, **self.environment}
        children.start(["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"], everything,
                       os.path.join(folder, "bus.log"))

        session = _connect(self.environment["DBUS_SESSION_BUS_ADDRESS"])
        address = wait_until(lambda: _try(session, "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress"),
                             "the accessibility bus")[0]
        _try(session, "org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties", "Set",
             GLib.Variant("(ssv)", ("org.a11y.Status", "IsEnabled", GLib.Variant("b", True))))
        session.close_sync(None)
        self.connection = _connect(address)
        self._focus = []
        self.connection.signal_subscribe(None, "org.a11y.atspi.Event.Object", "StateChanged", None, "focused",
                                         Gio.DBusSignalFlags.NONE, self._on_focus)
        wait_until(lambda: _try(self.connection, "org.a11y.atspi.Registry", "/org/a11y/atspi/registry",
                                "org.a11y.atspi.Registry", "RegisterEvent",
                                GLib.Variant("(sass)", ("object:state-changed:focused", [], ""))) is not None,
                   "the registry of accessible programs")

    def close(self):
        self.connection.close_sync(None)

    def program(self, pid):
        """The root object of the program with this process id; None while it is not on the bus."""
        registry = Accessible(self.connection, "org.a11y.atspi.Registry", _ROOT)
        return next((child for child in registry.children() if self._process(child.owner) == pid), None)

    def _process(self, owner):
        """The process behind a name on the bus; 0 for none."""
        reply = _try(self.connection, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                     "GetConnectionUnixProcessID", GLib.Variant("(s)", (owner,)))
        return reply[0] if reply else 0

    @contextlib.contextmanager
    def standing_still(self):
        """For the time of the block nobody answers programs, as where a screen reader is busy. Each key that they get goes by
        there first."""
        registry = self._process("org.a11y.atspi.Registry")
        os.kill(registry, signal.SIGSTOP)
        try:
            yield
        finally:
            os.kill(registry, signal.SIGCONT)

    def _on_focus(self, _connection, sender, path, _interface, _member, arguments):
        if arguments.get_child_value(1).get_int32():
            self._focus.append(Accessible(self.connection, sender, path))

    def focused(self):
        """The objects that got the focus since the last call, the latest last. It is the one way to a popup menu,
        which the toolkit leaves out of the tree."""
        context = GLib.MainContext.default()
        while context.pending():
            context.iteration(False)
        seen, self._focus = self._focus, []
        return seen


class Accessible:
    """An object of a program; each call asks the program anew."""

    def __init__(self, connection, owner, path):
        self._connection, self.owner, self.path = connection, owner, path

    def __eq__(self, other):
        return isinstance(other, Accessible) and (self.owner, self.path) == (other.owner, other.path)

    def __hash__(self):
        return hash((self.owner, self.path))

    def __repr__(self):
        try:
            return f"<{self.role} {self.name!r}>"
        except Gone:
            return "<gone>"

    @property
    def name(self):
        return self._get(_ACCESSIBLE, "Name")

    @property
    def description(self):
        return self._get(_ACCESSIBLE, "Description")

    @property
    def role(self):
        return self._call(_ACCESSIBLE, "GetRoleName")[0]

    @property
    def text(self):
        """What a label or a field says."""
        try:
            length = self._get("org.a11y.atspi.Text", "CharacterCount")
            return self._call("org.a11y.atspi.Text", "GetText", GLib.Variant("(ii)", (0, length)))[0]
        except Gone:
            return self.name

    @property
    def parent(self):
        return Accessible(self._connection, *self._get(_ACCESSIBLE, "Parent"))

    @property
    def value(self):
        return self._get("org.a11y.atspi.Value", "CurrentValue")

    @value.setter
    def value(self, number):
        self._call("org.freedesktop.DBus.Properties", "Set", GLib.Variant(
            "(ssv)", ("org.a11y.atspi.Value", "CurrentValue", GLib.Variant("d", number))))

    @property
    def largest(self):
        return self._get("org.a11y.atspi.Value", "MaximumValue")

    @property
    def step(self):
        return self._get("org.a11y.atspi.Value", "MinimumIncrement")

    def has(self, state):
        words = self._call(_ACCESSIBLE, "GetState")[0]
        return bool((words[0] | words[1] << 32) >> _STATES[state] & 1)

    @property
    def extents(self):
        """x, y, width and height on the screen."""
        return tuple(self._call("org.a11y.atspi.Component", "GetExtents", GLib.Variant("(u)", (0,)))[0])

    def children(self):
        return [Accessible(self._connection, owner, path)
                for owner, path in self._call(_ACCESSIBLE, "GetChildren")[0] if not path.endswith("/null")]

    def act(self, name="Press"):
        """Performs an action without waiting for its end, which may be that of a modal window."""
        names = [action[0] for action in self._call("org.a11y.atspi.Action", "GetActions")[0]]
        self._connection.call(self.owner, self.path, "org.a11y.atspi.Action", "DoAction",
                              GLib.Variant("(i)", (names.index(name),)), None, Gio.DBusCallFlags.NONE,
                              _DO_NOT_WAIT, None, None)
        self._connection.flush_sync(None)

    def all(self, role=None, name=None, showing=True):
        """All objects below with this role and name, in the tree's order."""
        found = []
        for child in self.children():
            try:
                if not showing or child.has("showing"):
                    if (role is None or child.role == role) and (name is None or child.name == name):
                        found.append(child)
                    found += child.all(role, name, showing)
            except Gone:
                continue
        return found

    def find(self, role, name=None, showing=True):
        """The one object with this role and name, waited for."""
        def look():
            try:
                return self.all(role, name, showing)
            except Gone:
                return []
        return wait_until(look, lambda: f"{role} {name or ''} in {self!r}")[0]

    def dump(self, depth=0):
        """The tree below as text, for a look at it."""
        try:
            states = " ".join(s for s in _STATES if self.has(s))
            lines = [f"{'  ' * depth}{self.role} {self.name!r} {states}"]
            for child in self.children():
                lines.append(child.dump(depth + 1))
            return "\n".join(lines)
        except Gone:
            return ""

    def _get(self, interface, name):
        return self._call("org.freedesktop.DBus.Properties", "Get", GLib.Variant("(ss)", (interface, name)))[0]

    def _call(self, interface, method, arguments=None):
        try:
            return self._connection.call_sync(self.owner, self.path, interface, method, arguments, None,
                                              Gio.DBusCallFlags.NO_AUTO_START, _CALL_LIMIT, None).unpack()
        except GLib.Error as problem:
            raise Gone(f"{interface}.{method}: {problem.message}") from None


def _connect(address):
    flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
    connection = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
    connection.set_exit_on_close(False)
    return connection


def _try(connection, owner, path, interface, method, arguments=None):
    try:
        return connection.call_sync(owner, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE,
                                    _CALL_LIMIT, None).unpack()
    except GLib.Error:
        return None
