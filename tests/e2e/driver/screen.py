"""A virtual display: an X server of one's own, its windows, its pixels, its keyboard and its pointer."""

import contextlib
import os
import select
import signal
import subprocess
import time
from typing import NamedTuple

from PIL import Image
from Xlib import XK, X, Xatom, display, error
from Xlib.ext import xtest
from Xlib.protocol import event

from .waiting import wait_until

_HOLD = 20  # milliseconds before each event of the keyboard and the pointer; nobody is quicker
_MODIFIERS = {"Ctrl": "Control_L", "Shift": "Shift_L", "Alt": "Alt_L"}

USUAL_MANAGER = os.environ.get("TAVRIX_WINDOW_MANAGER", "openbox")  # for whoever does not care which

# A window manager without surprises: no animation, no shortcuts, windows where they ask to be.
_OPENBOX = """<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
<focus><focusNew>yes</focusNew><followMouse>no</followMouse></focus>
<theme><name>Clearlooks</name><animateIconify>no</animateIconify></theme>
<desktops><number>1</number></desktops>
<keyboard/>
<mouse><dragThreshold>1</dragThreshold>
<context name="Client"><mousebind button="Left" action="Press"><action name="Focus"/><action name="Raise"/></mousebind></context>
<context name="Titlebar"><mousebind button="Left" action="Drag"><action name="Move"/></mousebind></context>
<context name="BRCorner"><mousebind button="Left" action="Drag"><action name="Resize"/></mousebind></context>
<context name="Close"><mousebind button="Left" action="Click"><action name="Close"/></mousebind></context>
</mouse>
<applications>RULES</applications>
</openbox_config>
"""


class Window(NamedTuple):
    """A window that stands on the screen; place and size are those of its inside, without the frame."""

    id: int
    title: str
    pid: int
    x: int
    y: int
    width: int
    height: int
    kind: str  # "normal", "dialog", ..., as the window says itself
    modal: bool
    popup: bool  # a menu, a drop-down list or a tool tip, which no window manager manages

    @property
    def centre(self):
        return self.x + self.width // 2, self.y + self.height // 2


class Screen:
    """Starts the X server and, unless told otherwise (None), a window manager: "openbox", or "metacity", which places
    and stacks windows by rules of its own. Its `environment` leads programs to it. `repeat`: after how many milliseconds a
    held key repeats, and how often. `screens`: how many the server has, all of that size; only the first is looked at."""

    def __init__(self, children, folder, size=(1280, 1024), environment=None, window_manager=USUAL_MANAGER, rules="",
                 depth=24, repeat=None, screens=1):
        self.folder = folder
        self._children = children
        self._log = os.path.join(folder, "screen.log")
        name = self._start_server(size, depth, repeat, screens, environment or {})
        self.environment = {**(environment or {}), "DISPLAY": name}
        self._x = display.Display(name)
        self._x.set_error_handler(lambda *_: None)  # windows come and go while they are being looked at
        self._root = self._x.screen().root
        self.width, self.height = size
        if window_manager:
            self._start_window_manager(window_manager, rules)
            wait_until(lambda: self._property(self._root, "_NET_SUPPORTING_WM_CHECK"), "the window manager")

    def _start_window_manager(self, name, rules):
        if name == "metacity":
            self._manager = self.start(["metacity", "--sm-disable", "--no-composite"])
            return
        configuration = os.path.join(self.folder, "openbox.xml")
        with open(configuration, "w", encoding="utf-8") as file:
            file.write(_OPENBOX.replace("RULES", rules))
        self._manager = self.start(["openbox", "--sm-disable", "--config-file", configuration])

    @contextlib.contextmanager
    def window_manager_standing_still(self):
        """For the time of the block the window manager does nothing, as on a machine that is busy elsewhere."""
        self._manager.send_signal(signal.SIGSTOP)
        try:
            yield
        finally:
            self._manager.send_signal(signal.SIGCONT)

    def start(self, command):
        return self._children.start(command, self.environment, self._log)

    def _start_server(self, size, depth, repeat, screens, environment):
        reader, writer = os.pipe()
        one = f"{size[0]}x{size[1]}x{depth}"
        all_screens = [word for number in range(screens) for word in ("-screen", str(number), one)]
        self._server = self._children.start(
            ["Xvfb", "-displayfd", str(writer), *all_screens, "-dpi", "96", "-s", "0",
             "-nolisten", "tcp", "-noreset",
             *(["-ardelay", str(repeat[0]), "-arinterval", str(repeat[1])] if repeat else [])],
            environment, self._log, pass_fds=(writer,))
        os.close(writer)
        number = b""
        end = time.monotonic() + 20
        try:
            while not number.endswith(b"\n"):
                if not select.select([reader], [], [], max(0, end - time.monotonic()))[0]:
                    raise RuntimeError("the X server did not start")
                part = os.read(reader, 16)
                if not part:
                    raise RuntimeError(f"the X server ended; see {self._log}")
                number += part
        finally:
            os.close(reader)
        return ":" + number.decode().strip()

    def end_server(self):
        """Ends the X server, as the end of a session may, under the programs that still run."""
        self._server.kill()
        self._server.wait()

    def close(self):
        self._x.close()

    # Windows

    def windows(self):
        """All windows on the screen, those below first."""
        return [w for w in map(self._window, self._all()) if w]

    def unmapped(self):
        """Windows that wait to be mapped, and those that never will be."""
        return [w for w in (self._window(number, X.IsUnmapped) for number in self._all()) if w]

    def active(self):
        """The id of the window that has the keyboard, 0 for none. What the window manager says may come before it is so."""
        value = self._property(self._root, "_NET_ACTIVE_WINDOW")
        focus = self._x.get_input_focus().focus
        return value[0] if value and value[0] == getattr(focus, "id", focus) else 0

    def frame(self, window):
        """The widths of the window manager's frame: left, right, top, bottom."""
        value = self._property(self._x.create_resource_object("window", window.id), "_NET_FRAME_EXTENTS")
        return tuple(value) if value else (0, 0, 0, 0)

    def state(self, window):
        """The names of the window's states, such as _NET_WM_STATE_MAXIMIZED_VERT."""
        atoms = self._property(self._x.create_resource_object("window", window.id), "_NET_WM_STATE") or []
        return {self._x.get_atom_name(atom) for atom in atoms}

    def place(self, window, x=None, y=None, width=None, height=None):
        """Asks the window manager for a place and size of the frame's corner and the inside, as a user's drag does."""
        values = (x, y, width, height)
        flags = sum(1 << (8 + bit) for bit, value in enumerate(values) if value is not None)
        self._message(window.id, "_NET_MOVERESIZE_WINDOW", [flags | 2 << 12, *(value or 0 for value in values)])

    def ask_to_close(self, window):
        """What the close button of the frame does."""
        self._message(window.id, "_NET_CLOSE_WINDOW", [X.CurrentTime, 2, 0, 0, 0])

    def activate(self, window):
        self._message(window.id, "_NET_ACTIVE_WINDOW", [2, X.CurrentTime, 0, 0, 0])
        wait_until(lambda: self.active() == window.id, f"the keyboard on {window.title!r}")

    def set_state(self, window, on, *names):
        atoms = [self._x.get_atom(name) for name in names]
        self._message(window.id, "_NET_WM_STATE", [int(on), *atoms, *[0] * (2 - len(atoms)), 2, 0])

    def _message(self, window, kind, numbers):
        target = self._x.create_resource_object("window", window)
        message = event.ClientMessage(window=target, client_type=self._x.get_atom(kind), data=(32, numbers))
        self._root.send_event(message, X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self._x.flush()

    def _all(self):
        managed = self._property(self._root, "_NET_CLIENT_LIST_STACKING")
        top = [w.id for w in self._root.query_tree().children]
        return [*(managed if managed is not None else []), *(w for w in top if w not in (managed or []))]

    def _window(self, number, map_state=X.IsViewable):
        window = self._x.create_resource_object("window", number)
        try:
            attributes = window.get_attributes()
            if attributes.map_state != map_state or attributes.win_class != X.InputOutput:
                return None
            pid = self._property(window, "_NET_WM_PID")
            size = window.get_geometry()
            if not pid or size.width <= 1 or size.height <= 1:
                return None
            corner = self._root.translate_coords(window, 0, 0)
            title = self._property(window, "_NET_WM_NAME") or self._property(window, "WM_NAME") or b""
            kinds = [self._x.get_atom_name(k) for k in self._property(window, "_NET_WM_WINDOW_TYPE") or []]
            states = self._property(window, "_NET_WM_STATE") or []
        except (error.BadWindow, error.BadDrawable, error.BadMatch):
            return None
        kinds = [k.removeprefix("_NET_WM_WINDOW_TYPE_").lower() for k in kinds if k.startswith("_NET_WM_WINDOW")]
        return Window(number, title.decode("utf-8", "replace"), pid[0], corner.x, corner.y, size.width, size.height,
                      kinds[0] if kinds else "normal", self._x.get_atom("_NET_WM_STATE_MODAL") in states,
                      bool(attributes.override_redirect))

    def _property(self, window, name):
        """A property's bytes or numbers; None when it is not there."""
        try:
            # In one request: the property may become shorter before another one asks for its rest.
            value = window.get_full_property(self._x.get_atom(name), X.AnyPropertyType, sizehint=1 << 16)
        except (error.BadWindow, error.BadDrawable):
            return None
        if value is None:
            return None
        return value.value.encode() if isinstance(value.value, str) else (
            bytes(value.value) if value.format == 8 else list(value.value))

    # Pixels

    def grab(self, x=0, y=0, width=None, height=None):
        """What the screen shows now, as a Pillow image; what lies outside the screen is cut away."""
        right = min(self.width, x + width) if width is not None else self.width
        bottom = min(self.height, y + height) if height is not None else self.height
        x, y = max(0, x), max(0, y)
        return self._pixels(self._root, x, y, right - x, bottom - y)

    def pixmap(self, number):
        """What a pixmap of the server holds."""
        drawable = self._x.create_resource_object("pixmap", number)
        size = drawable.get_geometry()
        return self._pixels(drawable, 0, 0, size.width, size.height)

    @staticmethod
    def _pixels(drawable, x, y, width, height):
        answer = drawable.get_image(x, y, width, height, X.ZPixmap, 0xFFFFFFFF)
        layout = ("BGR;16", (width * 2 + 3) // 4 * 4) if answer.depth == 16 else ("BGRX", 0)
        return Image.frombytes("RGB", (width, height), answer.data, "raw", *layout)

    # Keyboard and pointer

    def press(self, *combinations):
        """Keys by the X server's names for them, with modifiers before a plus: "Down", "Ctrl+Down", "Shift+1"."""
        for combination in combinations:
            *modifiers, key = combination.split("+")
            code, shifted = self._key(XK.string_to_keysym(key))
            codes = [self._key(XK.string_to_keysym(_MODIFIERS[m]))[0] for m in modifiers]
            if shifted:
                codes.append(self._key(XK.XK_Shift_L)[0])
            for down in codes + [code]:
                self._input(X.KeyPress, down)
            for up in [code] + codes[::-1]:
                self._input(X.KeyRelease, up)

    def set_keyboard(self, layouts):
        """Gives the keyboard these layouts, such as "ru" or "us,ru"; the first is in use."""
        subprocess.run(["setxkbmap", "-display", self.environment["DISPLAY"], "-layout", layouts, "-option", ""],
                       check=True, env={**os.environ, **self.environment}, stderr=subprocess.DEVNULL)
        self._x.close()  # the connection knows the former table of keys
        self._x = display.Display(self.environment["DISPLAY"])
        self._x.set_error_handler(lambda *_: None)
        self._root = self._x.screen().root

    def press_place(self, *codes):
        """Presses keys by their places on the keyboard, whatever they give; several at once are a combination."""
        for down in codes:
            self._input(X.KeyPress, down)
        for up in codes[::-1]:
            self._input(X.KeyRelease, up)

    @contextlib.contextmanager
    def held(self, key):
        """A key that stays down meanwhile, and repeats."""
        code, _ = self._key(XK.string_to_keysym(key))
        self._input(X.KeyPress, code)
        try:
            yield
        finally:
            self._input(X.KeyRelease, code)

    def type(self, text):
        for character in text:
            code, shifted = self._key(ord(character))
            shift = self._key(XK.XK_Shift_L)[0]
            for kind, key in ([(X.KeyPress, shift)] * shifted + [(X.KeyPress, code), (X.KeyRelease, code)]
                              + [(X.KeyRelease, shift)] * shifted):
                self._input(kind, key)

    def _input(self, kind, detail=0, **place):
        xtest.fake_input(self._x, kind, detail, time=_HOLD, **place)
        self._x.sync()

    def _key(self, symbol):
        places = [place for place in self._x.keysym_to_keycodes(symbol) if place[1] < 2]
        if not places:
            raise ValueError(f"no key gives {symbol:#x}")
        code, level = min(places, key=lambda place: place[1])
        return code, level == 1

    def move_pointer(self, x, y):
        self._input(X.MotionNotify, x=int(x), y=int(y))

    def click(self, x, y, button=1, times=1):
        self.move_pointer(x, y)
        for _ in range(times):
            self._input(X.ButtonPress, button)
            self._input(X.ButtonRelease, button)

    def drag(self, start, end, button=1, steps=8, held=()):
        """A drag of the mouse, with modifiers held meanwhile."""
        codes = [self._key(XK.string_to_keysym(_MODIFIERS[m]))[0] for m in held]
        self.move_pointer(*start)
        for code in codes:
            self._input(X.KeyPress, code)
        self._input(X.ButtonPress, button)
        for step in range(1, steps + 1):
            self.move_pointer(start[0] + (end[0] - start[0]) * step // steps,
                              start[1] + (end[1] - start[1]) * step // steps)
        self._input(X.ButtonRelease, button)
        for code in codes[::-1]:
            self._input(X.KeyRelease, code)

    def add_panel(self, height, at_top=True):
        """A desktop's panel along the whole width of the screen, for which the window manager keeps place."""
        y = 0 if at_top else self.height - height
        panel = self._root.create_window(0, y, self.width, height, 0, X.CopyFromParent, background_pixel=0x808080)
        atom = self._x.get_atom
        panel.change_property(atom("_NET_WM_WINDOW_TYPE"), Xatom.ATOM, 32, [atom("_NET_WM_WINDOW_TYPE_DOCK")])
        sides = [0, 0, height, 0] if at_top else [0, 0, 0, height]
        ends = [0, self.width - 1, 0, 0] if at_top else [0, 0, 0, self.width - 1]
        panel.change_property(atom("_NET_WM_STRUT_PARTIAL"), Xatom.CARDINAL, 32, sides + [0, 0, 0, 0] + ends)
        panel.map()
        wanted = [0, height if at_top else 0, self.width, self.height - height]
        wait_until(lambda: (self._property(self._root, "_NET_WORKAREA") or [])[:4] == wanted, "the place for windows")
        return panel

    def new_window(self):
        """An unmapped window of the driver's own, and the connection that it lives on."""
        return self._x, self._root, self._root.create_window(0, 0, 1, 1, 0, X.CopyFromParent, event_mask=0)

    def atom(self, name):
        return self._x.get_atom(name)

    def window_property(self, window, name):
        """The numbers of a window's property; nothing where it has none."""
        return self._property(self._x.create_resource_object("window", window.id), name)

    def root_property(self, name):
        return self._property(self._root, name)
