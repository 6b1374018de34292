"""python3 -m driver.show IMAGE PROGRAM [ARGUMENT...]

Runs a program on a virtual display of its own until its main window stands there, and saves the screen. Windows that
come before it, or lie over it, are closed by keys.
"""

import os
import shutil
import signal
import sys
import tempfile
import time

from .processes import Children
from .screen import Screen

_LIMIT = 120.0  # seconds until whatever stands there is saved
_QUIET = 0.6  # seconds without a change
_WAIT_TITLE = "Tavrix - [Please Wait...]"
_KEYS = ("Escape", "Return", "space")  # one after the other, for a window that the earlier ones do not close


def _front(screen, pid):
    """The program's window that has the keyboard, and whether it is the main one."""
    windows = [w for w in screen.windows() if w.pid == pid and not w.popup and w.title != _WAIT_TITLE]
    active = screen.active()
    front = next((w for w in windows if w.id == active), None)
    return front, bool(front) and front.kind == "normal" and not front.modal


def _show(image, command):
    children = Children()
    folder = tempfile.mkdtemp(prefix="tavrix-display.")
    try:
        screen = Screen(children, folder, environment={"XDG_RUNTIME_DIR": folder, **os.environ})
        log = os.path.join(folder, "program.log")
        program = children.start(command, screen.environment, log, cwd=os.getcwd())
        end = time.monotonic() + _LIMIT
        last, since, pressed, saved = None, time.monotonic(), {}, False
        while program.poll() is None:
            front, is_main = _front(screen, program.pid)
            # A wait window may go on moving beside a box.
            state = (front, screen.grab().tobytes() if is_main else None)
            now = time.monotonic()
            if state != last:
                last, since = state, now
            elif (front and now - since >= _QUIET) or now >= end:
                screen.grab().save(image)
                saved = True
                if is_main or now >= end:
                    break
                presses = pressed.get(front.id, 0)
                print(f"The program shows {front.title!r} first; it is answered with {_KEYS[presses % 3]}.")
                screen.press(_KEYS[presses % 3])
                pressed[front.id] = presses + 1
                since = now
            time.sleep(0.05)
        status = program.poll()
        with open(log, encoding="utf-8", errors="replace") as file:
            sys.stderr.write(file.read())
        if status is not None:
            print(f"The program ended with status {status}.")
        if saved:
            print(f"There is no display here, so the program ran on a virtual one. The screen is in {image}.")
        return status or (0 if saved or status == 0 else 1)
    finally:
        children.end_all()
        shutil.rmtree(folder, ignore_errors=True)


def main():
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    signal.signal(signal.SIGHUP, lambda *_: sys.exit(129))
    try:
        return _show(sys.argv[1], sys.argv[2:])
    except KeyboardInterrupt:
        return 130


if __name__ == "__main__":
    sys.exit(main())
