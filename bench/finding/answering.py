#!/usr/bin/python3
"""answering.py [-n NAMES]

How long the windows that find files leave their user without an answer, by the window system's ping: in a tree with a
folder of 100,000 names and one whose disk sleeps for five seconds (a library that is loaded before the system's, see
slow_readdir.c). 99 of 100 answers within 100 ms, and none above 300, are the aim.
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
from answering import PROGRAM, Pings  # noqa: E402
from driver import Children, Home, Screen, wait_until  # noqa: E402

SLEEP = 5  # seconds, of slow_readdir.c
AIMS = ((0.99, 0.1), (1.0, 0.3))  # the share of the answers, and seconds


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("-n", "--names", type=int, default=100_000)
    arguments = parser.parse_args()
    folder = tempfile.mkdtemp(prefix="tavrix-finding.")
    children = Children()
    pings = None
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
        picture = os.path.join(home.pictures, "picture.bmp")
        Image.new("RGB", (40, 30), (200, 30, 30)).save(picture)
        shutil.copyfile(picture, os.path.join(home.pictures, "slow", "picture.bmp"))
        program = children.start(
            [PROGRAM, picture],
            {**screen.environment, **home.environment, "LD_PRELOAD": library,
             "TAVRIX_DRIVES": f"C=/,network;D={home.pictures},fixed"}, os.path.join(folder, "program.log"))

        def mine():
            return {w.title: w for w in screen.windows() if w.pid == program.pid}

        view = wait_until(lambda: next(iter(mine().values()), None), "the main view")
        time.sleep(1)

        def search(letter, title, keys):
            nonlocal pings
            screen.click(view.x + 18, view.y + 8)
            screen.press("i", letter)
            window = wait_until(lambda: mine().get(title), title)
            time.sleep(1)
            pings = Pings(screen, window)
            begin = time.monotonic()
            for key in keys:
                screen.press(key)
                time.sleep(0.5)
            time.sleep(SLEEP + 4)
            answers = pings.since(begin)
            pings.stop()
            pings = None
            print(f"{title}: {len(answers)} answers, median {answers[len(answers) // 2] * 1000:.1f} ms", flush=True)
            for share, limit in AIMS:
                worst = answers[min(len(answers) - 1, int(len(answers) * share))]
                print(f"    {share:4.0%} within {worst * 1000:6.1f} ms   {worst / limit:5.2f} of {limit * 1000:.0f} ms",
                      flush=True)
            screen.press("Escape")
            wait_until(lambda: title not in mine(), f"the end of {title}")

        search("f", "Find Image(s)", ["Return"])
        search("s", "Search For Duplicate Files", ["Alt+s", "Return"])
    finally:
        if pings is not None:
            pings.stop()
        children.end_all()
        shutil.rmtree(folder, ignore_errors=True)


if __name__ == "__main__":
    main()
