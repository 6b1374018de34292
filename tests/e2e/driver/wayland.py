"""A Wayland display without a screen, and what a test needs around the program on it."""

import glob
import os
import shutil
import subprocess
import tempfile

from PIL import Image

from .session import AnySession
from .waiting import wait_until

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

    def close(self):
        """The display ends with its process."""

    def grab(self):
        with tempfile.TemporaryDirectory(dir=self.folder) as folder:
            subprocess.run(["weston-screenshooter"], env=self.environment, cwd=folder, check=True, timeout=60,
                           stdout=subprocess.DEVNULL)
            with Image.open(os.path.join(folder, os.listdir(folder)[0])) as image:
                return image.convert("RGB")


class WaylandSession(AnySession):
    """A Wayland display."""

    def __init__(self, size=(1000, 800)):
        super().__init__(
            lambda children, folder, environment: WaylandScreen(children, folder, size, environment),
            XDG_SESSION_TYPE="wayland")
