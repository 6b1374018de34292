#!/usr/bin/python3
"""answering.py [-n NAMES]

How long the windows that find and open files leave their user without an answer, by the window system's ping: in a tree with a
folder of 100,000 names and one whose disk sleeps for five seconds (a library that is loaded before the system's, see
slow_readdir.c). 99 of 100 answers within 100 ms, and none above 300, are the aim. The dialogs that choose thumbnails are
opened on the slow folder and then sent to the large one; the one that opens an image is opened on the slow folder.

Another main view, which does nothing, is pinged at the same time: what that takes is the machine's, not ours.
"""

import argparse
import os
import shutil
import subprocess
import sys
import tempfile
import time

from PIL import Image

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.dirname(HERE))
from answering import PROGRAM  # noqa: E402
from driver import Children, Home, Pings, Screen, wait_until  # noqa: E402

SLEEP = 5  # seconds, of slow_readdir.c
AIMS = ((0.99, 0.1), (1.0, 0.3))  # the share of the answers, and seconds


def longest(answers, share):
    """The longest of that share of the answers."""
    return answers[min(len(answers) - 1, int(len(answers) * share))]


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("-n", "--names", type=int, default=100_000)
    arguments = parser.parse_args()
    folder = tempfile.mkdtemp(prefix="tavrix-finding.")
    children = Children()
    pings = []
    try:
        library = os.path.join(folder, "slow.so")
        subprocess.run(["cc", "-O1", "-shared", "-fPIC", "-o", library, os.path.join(HERE, "slow_readdir.c"), "-ldl"],
                       check=True)
        runtime = os.path.join(folder, "runtime")
        os.mkdir(runtime, 0o700)
        screen = Screen(children, folder, environment={
            "PATH": os.environ["PATH"], "LANG": "C.UTF-8", "XDG_RUNTIME_DIR": runtime, "QT_QPA_PLATFORM": "xcb",
            "DBUS_SESSION_BUS_ADDRESS": "disabled:"})
        home = Home(folder)
        home.write_settings("[Viewer]\nStartupDialog=0\n")
        for name in ("many", "slow"):
            os.mkdir(os.path.join(home.pictures, name))
        for number in range(arguments.names):
            with open(os.path.join(home.pictures, "many", f"IMG_{1_000_000 + number}.JPG"), "wb"):
                pass
        picture = os.path.join(home.pictures, "slow", "picture.bmp")
        Image.new("RGB", (40, 30), (200, 30, 30)).save(picture)
        program = children.start(
            [PROGRAM, picture],
            {**screen.environment, **home.environment, "LD_PRELOAD": library,
             "TAVRIX_DRIVES": f"C=/,network;D={home.pictures},fixed"}, os.path.join(folder, "program.log"))

        def mine():
            return {w.title: w for w in screen.windows() if w.pid == program.pid}

        view = wait_until(lambda: next(iter(mine().values()), None), "the main view")
        other = Home(os.path.join(folder, "other"))
        other.write_settings("[Viewer]\nStartupDialog=0\n")
        still = children.start([PROGRAM], {**screen.environment, **other.environment}, os.path.join(folder, "still.log"))
        idler = wait_until(lambda: next((w for w in screen.windows() if w.pid == still.pid), None), "the idle view")
        screen.activate(view)
        time.sleep(1)

        def measure(letters, title, acts, seconds, watched=None):
            """Pings the window of a title; or another one, from before it opens."""
            if watched:
                pings[:] = [Pings(screen, watched), Pings(screen, idler)]
            begin = time.monotonic()
            screen.click(view.x + 18, view.y + 8)
            for letter in letters:
                screen.press(letter)
            window = wait_until(lambda: mine().get(title), title)
            if not watched:
                pings[:] = [Pings(screen, window), Pings(screen, idler)]
                begin = time.monotonic()
            for act in acts:
                act()
                time.sleep(0.5)
            time.sleep(seconds)
            busy, idle = (one.since(begin) for one in pings)
            while pings:
                pings.pop().stop()
            print(f"{title}: {len(busy)} answers, median {busy[len(busy) // 2] * 1000:.1f} ms,"
                  f" idle {idle[len(idle) // 2] * 1000:.1f}", flush=True)
            for share, limit in AIMS:
                worst, plain = longest(busy, share), longest(idle, share)
                print(f"    {share:4.0%} within {worst * 1000:6.1f} ms, idle {plain * 1000:6.1f}"
                      f"   {worst / limit:5.2f} of {limit * 1000:.0f} ms", flush=True)
            screen.press("Escape")
            time.sleep(2)
            if title in mine():  # there was a box before it
                screen.press("Escape")
            wait_until(lambda: title not in mine(), f"the end of {title}")

        def keys(*names):
            return [lambda name=name: screen.press(name) for name in names]

        def large_folder():
            """From the slow folder to the large one: up to the root, and down to the first row below it."""
            time.sleep(SLEEP)
            screen.press("Home")
            screen.press("Return")
            time.sleep(0.5)
            screen.press("Down")
            screen.press("Return")

        measure("if", "Find Image(s)", keys("Return"), SLEEP + 4)
        measure("is", "Search For Duplicate Files", keys("Alt+s", "Return"), SLEEP + 4)
        measure("o", "Open Image", keys(), SLEEP + 1, watched=view)
        # Their folder list is the second control.
        measure("tb", "Thumbnail Browser - [Select Folder to Browse]", [*keys("Tab"), large_folder], 3)
        measure("ts", "Thumbnail Browser - [Select Files]", [*keys("Tab"), large_folder], 3)
    finally:
        for one in pings:
            one.stop()
        children.end_all()
        shutil.rmtree(folder, ignore_errors=True)


if __name__ == "__main__":
    main()
