#!/usr/bin/python3
"""compare.py [-n RUNS]

A folder of nine JPEG photos of 24 megapixels in the thumbnail browser and in `feh --thumbnails`, in turns on one virtual
display, with nothing in any cache: seconds from the start of the process to the last of nine thumbnails on the screen. Ours
asks for the folder first; it is answered as soon as it asks, and the time from that answer on is told too.
"""

import argparse
import os
import shutil
import statistics
import sys
import tempfile
import time

from PIL import Image, ImageDraw

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
sys.path.insert(0, os.path.join(ROOT, "tests", "e2e"))
from driver import Children, Home, Screen, wait_until  # noqa: E402

PROGRAM = os.path.join(ROOT, "build", "release", "app", "tavrix")
DIALOG, BROWSER = "Thumbnail Browser - [Select Folder to Browse]", "Tavrix - [Thumbnail Browser]"
LIMIT = 60  # seconds
# Nothing else on the screen has these.
COLOURS = [(255, 0, 255), (0, 255, 0), (255, 0, 0), (0, 0, 255), (255, 255, 0), (0, 255, 255), (255, 128, 0), (128, 0, 255),
           (0, 255, 128)]


def make_photos(folder):
    noise = Image.effect_noise((300, 200), 40).resize((6000, 4000), Image.BICUBIC).convert("RGB")
    for number, colour in enumerate(COLOURS):
        ImageDraw.Draw(noise).rectangle([1500, 1000, 4500, 3000], fill=colour)
        noise.save(os.path.join(folder, f"{number}.jpg"), quality=92)


def colours_on(screen):
    """How many of the colours are there, in an area of some size each."""
    def level(value):
        return 0 if value < 24 else 255 if value > 231 else 128 if 110 < value < 146 else 60

    shown = screen.grab()
    small = shown.resize((shown.width // 4, shown.height // 4), Image.NEAREST).point(level)
    there = {colour: count for count, colour in small.getcolors(1 << 24)}
    return sum(there.get(colour, 0) >= 20 for colour in COLOURS)


def seconds_until(what, begin):
    while not what():
        if time.monotonic() - begin > LIMIT:
            raise RuntimeError("it never came")
    return time.monotonic() - begin


class Machine:
    def __init__(self, children, folder):
        self.children, self.folder, self.runs = children, folder, 0
        runtime = os.path.join(folder, "runtime")
        os.mkdir(runtime, 0o700)
        self.screen = Screen(children, folder, environment={
            "PATH": os.environ["PATH"], "LANG": "C.UTF-8", "XDG_RUNTIME_DIR": runtime, "QT_QPA_PLATFORM": "xcb",
            "DBUS_SESSION_BUS_ADDRESS": "disabled:"})

    def user(self):
        """One who has never run anything."""
        self.runs += 1
        home = Home(os.path.join(self.folder, str(self.runs)))
        home.write_settings("[Viewer]\nStartupDialog=0\n")
        return home

    def start(self, command, home, pictures):
        return self.children.start(command, {**self.screen.environment, **home.environment},
                                   os.path.join(self.folder, "log"), cwd=pictures)

    def titles(self, process):
        return {w.title: w for w in self.screen.windows() if w.pid == process.pid}

    def end(self, process):
        process.kill()
        process.wait()
        wait_until(lambda: not self.titles(process) and colours_on(self.screen) == 0, "an empty screen")

    def browse(self, pictures):
        """The program, once it asks for the folder."""
        process = self.start([PROGRAM, "THUMBNAIL"], self.user(), pictures)
        while DIALOG not in self.titles(process):
            if process.poll() is not None:
                raise RuntimeError("the program has ended")
        return process

    def ours(self, pictures):
        home_made = time.monotonic()
        process = self.browse(pictures)
        asked = time.monotonic()
        wait_until(lambda: self.screen.active() == self.titles(process)[DIALOG].id, "the keyboard in the dialog")
        answered = time.monotonic()
        self.screen.press("Return")
        took = seconds_until(lambda: colours_on(self.screen) == len(COLOURS), answered)
        self.end(process)
        return asked - home_made + took, took

    def theirs(self, pictures):
        home = self.user()
        begin = time.monotonic()
        process = self.start(["feh", "--thumbnails", "--thumb-width", "160", "--thumb-height", "120", pictures], home,
                             pictures)
        took = seconds_until(lambda: colours_on(self.screen) == len(COLOURS), begin)
        self.end(process)
        return took


def compare(machine, pictures, runs):
    make_photos(pictures)
    whole, answered, theirs = [], [], []
    for run in range(runs):
        ours = machine.ours(pictures)
        whole.append(ours[0])
        answered.append(ours[1])
        theirs.append(machine.theirs(pictures))
        print(f"  run {run + 1}: {whole[-1]:.2f} s, from the answer {answered[-1]:.2f} s, feh {theirs[-1]:.2f} s", flush=True)
    median = statistics.median
    print(f"nine photos of 24 MP: {median(whole):.2f} s from the start, {median(answered):.2f} s from the answer, "
          f"feh {median(theirs):.2f} s; ratio {median(whole) / median(theirs):.2f}")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("-n", "--runs", type=int, default=5)
    arguments = parser.parse_args()
    if not shutil.which("feh"):
        sys.exit("feh is not installed")
    folder = tempfile.mkdtemp(prefix="tavrix-thumbnails.")
    pictures = os.path.join(folder, "photos")
    os.mkdir(pictures)
    children = Children()
    try:
        compare(Machine(children, folder), pictures, arguments.runs)
    finally:
        children.end_all()
        shutil.rmtree(folder, ignore_errors=True)


if __name__ == "__main__":
    main()
