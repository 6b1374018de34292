"""The program under test: its folders, its windows, its menus and its message boxes."""

import os
import re
import signal
import subprocess
from typing import NamedTuple

from .accessibility import Gone
from .waiting import LIMIT, NotInTime, wait_unchanged, wait_until

PROGRAM = os.environ.get("TAVRIX_PROGRAM") or os.path.join(
    os.path.dirname(__file__), "..", "..", "..", "build", "release", "app", "tavrix")
INSTALL = os.environ.get("TAVRIX_INSTALL") or os.path.join(
    os.path.dirname(__file__), "..", "..", "..", "build", "release", "bin", "tavrix-install")

# What dialogs have and message boxes have not.
_NOT_IN_BOXES = {"menu bar", "list", "combo box", "check box", "radio button", "text", "document text"}
_MENU_ROLES = ("menu item", "check menu item", "radio menu item", "menu")


def drive_path(path):
    """The path by which the program knows a file."""
    return "C:" + os.path.realpath(path).replace("/", "\\")


def recent_caption(path):
    """The entry of the recent list for a file."""
    path = drive_path(path)
    return "  " + (path if len(path) < 61 else "..." + path[-57:])


class Home:
    """A private user: a home, the program's folder and a temporary folder, kept from one start to the next. Nobody wants
    this user's attention at the start, unless `quiet` is off: no tip, no dialog, no first run."""

    def __init__(self, folder, installed=True, quiet=True):
        self.folder = folder
        self.program = os.path.join(folder, "program")
        self.temporary = os.path.join(folder, "temporary")
        self.pictures = os.path.join(folder, "pictures")
        for path in (self.program, self.temporary, self.pictures):
            os.makedirs(path)
        os.chmod(self.temporary, 0o700)
        self.settings = os.path.join(self.program, "tavrix.ini")
        self.environment = {
            "HOME": folder,
            "XDG_CONFIG_HOME": os.path.join(folder, ".config"),
            "XDG_DATA_HOME": os.path.join(folder, ".local", "share"),
            "XDG_STATE_HOME": os.path.join(folder, ".local", "state"),
            "XDG_CACHE_HOME": os.path.join(folder, ".cache"),
            "TAVRIX_HOME": self.program,
            "TAVRIX_TEMP": self.temporary,
        }
        if installed:
            subprocess.run([INSTALL, PROGRAM], env={**os.environ, **self.environment}, check=True, stdout=subprocess.DEVNULL)
        self.quiet = quiet
        if quiet:
            self.set_in_store("ProgramRun", "1")
            self.set_in_store("Show Tips at Startup", "0")
            self.write_settings("[Viewer]\n")

    @property
    def _store(self):
        return os.path.join(self.environment["XDG_CONFIG_HOME"], "tavrix", "settings")

    def set_in_store(self, name, value):
        """Sets a value that is kept apart from the program's folder."""
        text = "[Settings]\n"
        if os.path.exists(self._store):
            with open(self._store, encoding="utf-8") as file:
                text = file.read()
        lines = [line for line in text.splitlines() if line.partition("=")[0] != name]
        os.makedirs(os.path.dirname(self._store), mode=0o700, exist_ok=True)
        with open(self._store, "w", encoding="utf-8") as file:
            file.write("\n".join([*lines, f"{name}={value}", ""]))

    def in_store(self, name):
        """Such a value; None when it is not there."""
        with open(self._store, encoding="utf-8") as file:
            return next((line.partition("=")[2].strip('"') for line in file.read().splitlines()
                         if line.partition("=")[0] == name), None)

    def write_settings(self, text):
        if self.quiet and "StartupDialog=" not in text:
            text = text.replace("[Viewer]\n", "[Viewer]\nStartupDialog=0\n", 1)
        with open(self.settings, "w", encoding="cp1252", newline="") as file:
            file.write(text.replace("\n", "\r\n"))

    def read_settings(self):
        """The file's lines, without their ends."""
        with open(self.settings, encoding="cp1252", newline="") as file:
            return file.read().splitlines()

    def setting(self, key, section="Viewer"):
        """A value as it stands in the file; None when it is not there."""
        inside = False
        for line in self.read_settings():
            if line.startswith("["):
                inside = line.strip().lower() == f"[{section.lower()}]"
            elif inside and line.partition("=")[0].strip().lower() == key.lower():
                return line.partition("=")[2]
        return None


class MessageBox(NamedTuple):
    title: str
    text: str
    buttons: list
    accessible: object

    def press(self, name):
        """Presses a button and waits until the box is gone."""
        box = self.accessible
        box.find("push button", name).act()

        def gone():
            try:
                return not box.has("showing")
            except Gone:
                return True
        wait_until(gone, f"the end of the box {self.text!r}")


class Entry(NamedTuple):
    name: str
    enabled: bool
    checked: bool
    entries: list


class Program:
    """One run of the program."""

    def __init__(self, session, home, *arguments, environment=None, folder=None, program=PROGRAM):
        self.screen, self._bus, self._children = session.screen, session.bus, session.children
        self.log = os.path.join(home.folder, "program.log")
        self.process = session.children.start(
            [program, *arguments], {**session.environment, **home.environment, **(environment or {})}, self.log,
            cwd=folder or home.folder)

    # The process

    def close(self):
        """Ends the program, whatever state it is in."""
        self._children.end(self.process)

    def kill(self):
        self.process.send_signal(signal.SIGKILL)
        self.process.wait()

    def wait_end(self, limit=LIMIT):
        """The exit status."""
        wait_until(lambda: self.process.poll() is not None, lambda: f"the program's end; open are {self.titles()}",
                   limit)
        return self.process.returncode

    def running(self):
        return self.process.poll() is None

    def output(self):
        with open(self.log, encoding="utf-8", errors="replace") as file:
            return file.read()

    def wait(self, condition, what, limit=LIMIT):
        """Like wait_until(), but gives up at once when the program ends."""
        def look():
            result = condition()
            if not result and not self.running():
                raise NotInTime(f"the program ended ({self.process.returncode}): {self.output()[-1000:]}")
            return result
        return wait_until(look, what, limit)

    # Windows

    def windows(self):
        return [w for w in self.screen.windows() if w.pid == self.process.pid]

    def titles(self):
        return [w.title for w in self.windows()]

    def window(self, title):
        """The window with exactly this title, waited for."""
        return self.wait(lambda: next((w for w in self.windows() if w.title == title and not w.popup), None),
                         lambda: f"the window {title!r}; there are {self.titles()}")

    def main(self, picture=None):
        """The main view, waited for until it is named after the picture and has come to rest."""
        title = f"Tavrix - [{drive_path(picture)}]" if picture else "Tavrix"
        def look():
            return next((w for w in self.windows() if w.title == title and w.kind == "normal" and not w.modal
                         and not w.popup), None)
        self.wait(look, lambda: f"the main view {title!r}; there are {self.titles()}")
        wait_unchanged(lambda: (look(), self.screen.active()), "the main view")
        return self.window(title)

    def popups(self):
        return [w for w in self.windows() if w.popup]

    # Accessible objects

    def root(self):
        return self.wait(lambda: self._bus.program(self.process.pid), "the program on the accessibility bus")

    def focused(self):
        return self._bus.focused()

    def message_box(self, limit=LIMIT):
        """The message box that is open, waited for."""
        def look():
            try:
                for top in reversed(self.root().children()):
                    if top.has("showing") and not any(o.role in _NOT_IN_BOXES for o in top.all()):
                        buttons = [button.name.replace("&", "") for button in top.all("push button")]
                        text = "\n".join(label.text for label in top.all("label") if label.text)
                        if text and buttons:
                            return MessageBox(top.name, text, buttons, top)
            except Gone:
                pass
            return None
        return self.wait(look, lambda: f"a message box; there are {self.titles()}", limit)

    def menu_tree(self):
        """The whole menu bar, without its separators. A hidden entry looks like a disabled one as long as its menu is
        closed."""
        return _entries(self.root().find("menu bar"))

    def menu_entry(self, *names):
        """An entry by the names on the way to it, without opening a menu."""
        entry = self.root().find("menu bar")
        for name in names:
            below = _below(entry)
            entry = next((e for e in below if e.name == name), None)
            if entry is None:
                raise AssertionError(f"no entry {name!r} among {[e.name for e in below]}")
        return entry


def _below(entry):
    found = []
    for child in entry.children():
        if child.role == "popup menu":
            found += _below(child)
        elif child.role in _MENU_ROLES:
            found.append(child)
    return found


def _entries(entry):
    return [Entry(re.sub(r"\t.*", "", e.name), e.has("enabled"), e.has("checked"), _entries(e))
            for e in _below(entry)]
