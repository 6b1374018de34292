"""A Wayland display without a screen, and what a test needs around the program on it."""

import glob
import os
import shutil
import subprocess
import tempfile

from PIL import Image

from .accessibility import AccessibilityBus
from .processes import Children
from .waiting import wait_until

_KEPT = ("PATH", "LD_LIBRARY_PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS", "TZ")
_SOCKET = "tavrix-test"
# Nothing of the desktop but its background, and no movements.
_SETTINGS = """[shell]
panel-position=none
locking=false
animation=none
startup-animation=none
background-color=0xff204060
"""


def missing():
    """What the machine lacks for such a display; empty: nothing."""
    for tool in ("weston", "weston-screenshooter"):
        if not shutil.which(tool):
            return f"{tool} is not installed"
    if not glob.glob("/usr/lib/*/libweston-*/headless-backend.so"):
        return "weston has no headless backend"
    if not glob.glob("/usr/lib/*/qt6/plugins/platforms/libqwayland-generic.so"):
        return "the toolkit's plugin for Wayland is not installed"
    return ""


class WaylandScreen:
    """What stands there. There is neither a keyboard nor a pointer."""

    def __init__(self, children, folder, size, environment):
        self.folder = folder
        self.x, self.y, (self.width, self.height) = 0, 0, size
        self.environment = {**environment, "WAYLAND_DISPLAY": _SOCKET}
        settings = os.path.join(folder, "weston.ini")
        with open(settings, "w", encoding="utf-8") as file:
            file.write(_SETTINGS)
        # Only with its debugging does it let a program look at the screen.
        children.start(["weston", "--backend=headless-backend.so", "--use-pixman", f"--width={size[0]}",
                        f"--height={size[1]}", f"--socket={_SOCKET}", "--idle-time=0", "--debug", f"--config={settings}"],
                       environment, os.path.join(folder, "weston.log"))
        wait_until(lambda: os.path.exists(os.path.join(environment["XDG_RUNTIME_DIR"], _SOCKET)), "the display")

    def grab(self):
        with tempfile.TemporaryDirectory(dir=self.folder) as folder:
            subprocess.run(["weston-screenshooter"], env=self.environment, cwd=folder, check=True, timeout=60,
                           stdout=subprocess.DEVNULL)
            with Image.open(os.path.join(folder, os.listdir(folder)[0])) as image:
                return image.convert("RGB")


class WaylandSession:
    """A Wayland display and an accessibility bus. close() ends every process and removes every file."""

    def __init__(self, size=(1000, 800)):
        self.folder = tempfile.mkdtemp(prefix="tavrix-wayland.")
        self.children = Children()
        try:
            environment = {name: os.environ[name] for name in _KEPT if name in os.environ}
            runtime = os.path.join(self.folder, "runtime")
            os.mkdir(runtime, 0o700)
            environment.update(HOME=self.folder, XDG_RUNTIME_DIR=runtime, TMPDIR=self.folder, LANG="C.UTF-8",
                               LC_ALL="C.UTF-8", GSETTINGS_BACKEND="memory", XDG_SESSION_TYPE="wayland")
            self.screen = WaylandScreen(self.children, self.folder, size, environment)
            self.bus = AccessibilityBus(self.children, self.screen)
            self.environment = {**self.screen.environment, **self.bus.environment}
        except BaseException:
            self.close()
            raise

    def close(self):
        self.children.end_all()
        if hasattr(self, "bus"):
            try:
                self.bus.close()
            except Exception:  # the bus is gone already; the connection may notice
                pass
        shutil.rmtree(self.folder, ignore_errors=True)
