#!/usr/bin/python3
"""answering.py [-n FILES]

How long the program leaves its user without an answer while it is busy in a large folder: the longest time that its
window needs to answer the window system's ping (_NET_WM_PING), against a quarter of a second, in each phase of opening
an image among 50,000 files. The figure is the worst of a run, whatever else the machine does. Needs what the tests from outside need.
"""

import argparse
import os
import shutil
import sys
import tempfile
import threading
import time

from PIL import Image
from Xlib import X, display
from Xlib.protocol import event

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
sys.path.insert(0, os.path.join(ROOT, "tests", "e2e"))
from driver import Children, Home, Screen, wait_until  # noqa: E402

PROGRAM = os.path.join(ROOT, "build", "release", "app", "tavrix")
LIMIT = 0.25  # seconds without an answer that a user may notice
PAUSE = 0.004  # seconds between two pings


class Pings:
    """Pings one window all the time, from a thread with a connection of its own."""

    def __init__(self, screen, window):
        self._x = display.Display(screen.environment["DISPLAY"])
        self._x.set_error_handler(lambda *_: None)
        self._root = self._x.screen().root
        self._root.change_attributes(event_mask=X.StructureNotifyMask | X.SubstructureNotifyMask)
        self._window = window.id
        self._answers = []
        self._over = False
        self._thread = threading.Thread(target=self._run, daemon=True)
        self._thread.start()

    def _run(self):
        protocols, ping = self._x.get_atom("WM_PROTOCOLS"), self._x.get_atom("_NET_WM_PING")
        window = self._x.create_resource_object("window", self._window)
        number = 0
        while not self._over:
            number += 1
            begin = time.monotonic()
            window.send_event(event.ClientMessage(window=window, client_type=protocols,
                                                  data=(32, [ping, number, self._window, 0, 0])))
            self._x.flush()
            answered = False
            while not answered and not self._over:
                if not self._x.pending_events():
                    time.sleep(0.0005)
                    continue
                came = self._x.next_event()
                answered = (came.type == X.ClientMessage and came.client_type == protocols
                            and came.data[1][0] == ping and came.data[1][1] == number)
            self._answers.append((begin, time.monotonic()))
            time.sleep(PAUSE)

    def since(self, begin):
        """The answers that came after a time, in seconds, sorted."""
        return sorted(end - start for start, end in list(self._answers) if end > begin)

    def stop(self):
        self._over = True
        self._thread.join()
        self._x.close()


def make_folder(folder, files):
    """Small bitmaps, and large pictures at the end of the list."""
    small = os.path.join(folder, "100000.bmp")
    Image.new("RGB", (40, 30), (200, 30, 30)).save(small)
    for number in range(1, files):
        shutil.copyfile(small, os.path.join(folder, f"{100000 + number}.bmp"))
    large = Image.effect_noise((300, 200), 40).resize((6000, 4000), Image.BICUBIC).convert("RGB")
    large.save(os.path.join(folder, "xbaseline.jpg"), quality=92)
    large.save(os.path.join(folder, "yprogressive.jpg"), quality=92, progressive=True)
    large.save(os.path.join(folder, "zbitmap.bmp"))
    return small


def steps(screen, windows):
    """The phases: what the user does, and a time in seconds for what it sets off."""
    def open_dialog():
        view = next(w for title, w in windows().items() if title.startswith("Tavrix"))
        screen.click(view.x + 18, view.y + 8)  # the File menu; Alt+F is that of Favorites too
        screen.press("o")
        wait_until(lambda: "Open Image" in windows(), "the dialog")

    def close_by(key):
        screen.press(key)
        wait_until(lambda: "Open Image" not in windows(), "the end of the dialog")

    yield "the dialog opens", open_dialog, 1.5
    yield "Down, 60 times", lambda: screen.press(*["Down"] * 60), 1
    yield "Page Down, 30 times", lambda: screen.press(*["Next"] * 30), 1
    yield "End and Home, 10 times", lambda: screen.press(*["End", "Home"] * 10), 1
    yield "preview of a 24 MP JPEG", lambda: screen.type("x"), 2
    yield "preview of a progressive one", lambda: screen.type("y"), 3
    yield "preview of a 24 MP bitmap", lambda: screen.type("z"), 2
    yield "from one large preview to the next", lambda: screen.press(*["Up", "Up", "Down", "Down"] * 5), 3
    yield "the dialog closes", lambda: close_by("Escape"), 1
    yield "the dialog opens again", open_dialog, 1.5
    yield "a 24 MP progressive JPEG is opened", lambda: (screen.type("y"), close_by("Return")), 4


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("-n", "--files", type=int, default=50_000)
    arguments = parser.parse_args()
    folder = tempfile.mkdtemp(prefix="tavrix-answering.")
    children = Children()
    pings = None
    try:
        runtime = os.path.join(folder, "runtime")
        os.mkdir(runtime, 0o700)
        screen = Screen(children, folder, environment={
            "PATH": os.environ["PATH"], "LANG": "C.UTF-8", "XDG_RUNTIME_DIR": runtime, "QT_QPA_PLATFORM": "xcb",
            "DBUS_SESSION_BUS_ADDRESS": "disabled:"})
        home = Home(folder)
        home.write_settings("[Viewer]\nOpenShowPreview=True\n")
        picture = make_folder(home.pictures, arguments.files)
        program = children.start([PROGRAM, picture], {**screen.environment, **home.environment},
                                 os.path.join(folder, "program.log"))

        def mine():
            return {w.title: w for w in screen.windows() if w.pid == program.pid}

        main_view = wait_until(lambda: next(iter(mine().values()), None), "the main view")
        time.sleep(1)
        pings = Pings(screen, main_view)
        worst = 0.0
        for name, act, seconds in steps(screen, mine):
            begin = time.monotonic()
            act()
            time.sleep(seconds)
            answers = pings.since(begin)
            worst = max(worst, answers[-1])
            print(f"{name:40} median {answers[len(answers) // 2] * 1000:6.1f} ms   longest {answers[-1] * 1000:6.1f} ms"
                  f"   {answers[-1] / LIMIT:5.2f} of {LIMIT * 1000:.0f} ms", flush=True)
        print(f"{'the longest of all':40} {worst * 1000:21.1f} ms   {worst / LIMIT:14.2f} of {LIMIT * 1000:.0f} ms")
    finally:
        if pings is not None:
            pings.stop()
        children.end_all()
        shutil.rmtree(folder, ignore_errors=True)


if __name__ == "__main__":
    main()
