#!/usr/bin/python3
"""first_picture.py [-n RUNS] [NAME=COMMAND ...]

Time from the start of a process to the first block of the picture on the screen, side by side: the program, an otherwise
empty Qt program, and those viewers of feh and qimgv that are installed, in turns on one virtual display. Further
programs are named on the command line, {file} standing for the picture. Needs what the tests from outside need.

Xvfb keeps its screen in a file that is mapped here, so that looking costs the server nothing. A block counts as seen when
64 pixels in a row have its colour, as the library decodes it.
"""

import argparse
import mmap
import os
import shutil
import statistics
import struct
import subprocess
import sys
import tempfile
import time

from PIL import Image, ImageDraw

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
sys.path.insert(0, os.path.join(ROOT, "tests", "e2e"))
from driver.processes import Children  # noqa: E402

RELEASE = os.path.join(ROOT, "build", "release")
PEERS = {"feh": "feh --scale-down --auto-zoom {file}", "qimgv": "qimgv {file}"}  # made to show the whole picture
LIMIT = 5.0  # seconds in which a picture has to come


def make_pictures(folder):
    """Smooth pictures with a block of one colour in the upper left corner."""
    for name, size in (("jpeg 640x480", (640, 480)), ("bitmap 640x480", (640, 480)),
                       ("bitmap 12 MP", (4000, 3000)), ("jpeg 24 MP", (6000, 4000))):
        picture = Image.effect_noise((size[0] // 20, size[1] // 20), 40).resize(size, Image.BICUBIC).convert("RGB")
        ImageDraw.Draw(picture).rectangle([0, 0, size[0] // 8, size[1] // 8], fill=(255, 0, 255))
        path = os.path.join(folder, name.replace(" ", "-") + (".jpg" if "jpeg" in name else ".bmp"))
        picture.save(path, **({"quality": 92} if "jpeg" in name else {}))
        yield name, path


def no_dialogs_at_start(environment):
    with open(os.path.join(environment["HOME"], ".config", "tavrix", "settings"), "a", encoding="ascii") as file:
        file.write("ProgramRun=1\nShow Tips at Startup=0\n")
    with open(os.path.join(environment["TAVRIX_HOME"], "tavrix.ini"), "w", encoding="ascii") as file:
        file.write("[Viewer]\nStartupDialog=0\n")


class Display:
    """A virtual display whose screen is a file."""

    def __init__(self, children, folder):
        reader, writer = os.pipe()
        environment = {"PATH": os.environ["PATH"], "HOME": folder, "LANG": "C.UTF-8"}
        log = os.path.join(folder, "log")
        children.start(["Xvfb", "-displayfd", str(writer), "-screen", "0", "1280x1024x24", "-nolisten", "tcp",
                        "-noreset", "-nocursor", "-fbdir", folder], environment, log, pass_fds=(writer,))
        os.close(writer)
        number = b""
        while not number.endswith(b"\n"):
            number += os.read(reader, 16)
        os.close(reader)
        runtime = os.path.join(folder, "runtime")
        os.mkdir(runtime, 0o700)
        self.environment = {**environment, "DISPLAY": ":" + number.decode().strip(), "XDG_RUNTIME_DIR": runtime,
                            "TAVRIX_HOME": os.path.join(folder, "program"), "DBUS_SESSION_BUS_ADDRESS": "disabled:"}
        os.mkdir(self.environment["TAVRIX_HOME"])
        children.start(["openbox", "--sm-disable"], self.environment, log)
        time.sleep(0.5)
        with open(os.path.join(folder, "Xvfb_screen0"), "r+b") as file:
            self._screen = mmap.mmap(file.fileno(), 0)
        self._start = struct.unpack(">I", self._screen[:4])[0]
        self._runs = []

    def look_for(self, colour):
        red, green, blue = colour
        # The fourth byte is whatever the program that drew left there.
        self._runs = [bytes((blue, green, red, rest)) * 64 for rest in (0, 255)]

    def shows_block(self):
        return any(self._screen.find(run, self._start) >= 0 for run in self._runs)


def first_block(display, command):
    """Milliseconds; None when no block came."""
    begin = time.monotonic()
    process = subprocess.Popen(command, env=display.environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        while time.monotonic() - begin < LIMIT:
            if display.shows_block():
                return (time.monotonic() - begin) * 1000
        return None
    finally:
        process.kill()
        process.wait()
        end = time.monotonic() + LIMIT
        while display.shows_block() and time.monotonic() < end:
            time.sleep(0.02)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("-n", "--runs", type=int, default=9)
    parser.add_argument("programs", nargs="*", metavar="NAME=COMMAND")
    arguments = parser.parse_args()
    programs = {"tavrix": os.path.join(RELEASE, "app", "tavrix") + " {file}",
                "empty Qt program": os.path.join(RELEASE, "bin", "bench-empty-qt") + " {file}"}
    programs.update({name: command for name, command in PEERS.items() if shutil.which(name)})
    programs.update(program.split("=", 1) for program in arguments.programs)

    folder = tempfile.mkdtemp(prefix="tavrix-first-picture.")
    children = Children()
    try:
        display = Display(children, folder)
        subprocess.run([os.path.join(RELEASE, "bin", "tavrix-install"), os.path.join(RELEASE, "app", "tavrix")],
                       env=display.environment, check=True)
        no_dialogs_at_start(display.environment)
        for picture, path in make_pictures(folder):
            with Image.open(path) as image:
                display.look_for(image.getpixel((10, 10)))
            times = {name: [] for name in programs}
            for run in range(-1, arguments.runs):  # one round that does not count, to warm the caches
                for name, command in programs.items():
                    took = first_block(display, [part.replace("{file}", path) for part in command.split()])
                    if run >= 0 and took is not None:
                        times[name].append(took)
            print(picture)
            medians = {name: statistics.median(took) for name, took in times.items() if took}
            for name in programs:
                if name not in medians:
                    print(f"    {name:20} no picture came")
                    continue
                ratio = medians[name] / medians.get("empty Qt program", medians[name])
                print(f"    {name:20} {medians[name]:6.0f} ms   {ratio:5.2f} of the empty Qt program"
                      f"   ({len(times[name])} runs, {min(times[name]):.0f} to {max(times[name]):.0f})", flush=True)
    finally:
        children.end_all()
        shutil.rmtree(folder, ignore_errors=True)


if __name__ == "__main__":
    main()
