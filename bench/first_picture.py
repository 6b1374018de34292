#!/usr/bin/python3
"""first_picture.py [-n RUNS] [--only NAME,...] [--pictures WORD] [NAME=COMMAND ...]

Time from the start of a process to the first block of the picture on the screen, side by side: the program, an otherwise
empty Qt program, and those of Debian's viewers that are installed, by turns on one virtual display. Further programs are
named on the command line, {file} standing for the picture. Needs what the tests from outside need.

Xvfb keeps its screen in a file that is mapped here, so that looking costs the server nothing. Most looks go to the place
where the block came the last time, and there is a rest between them, so that both processors are left to whoever is
measured. A block counts as seen when 64 pixels in a row have nearly the colour that the library decodes. The memory is the
most that the process had (VmHWM) until it came to rest, in a round of its own that warms the caches too; where a program
starts others, that of the largest.
"""

import argparse
import mmap
import os
import random
import re
import shutil
import signal
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
PEERS = {  # made to show the whole picture where they would not
    "feh": "feh --scale-down --auto-zoom {file}", "qiv": "qiv --scale_down {file}", "nsxiv": "nsxiv {file}",
    "gpicview": "gpicview {file}", "viewnior": "viewnior {file}", "ristretto": "ristretto {file}", "eog": "eog {file}",
    "geeqie": "geeqie {file}", "qimgv": "qimgv {file}", "nomacs": "nomacs {file}", "gwenview": "gwenview {file}"}
LIMIT = 10.0  # seconds in which a picture has to come
NEAR = 2  # of 255, by which the parts of a colour may differ: programs decode, convert and scale in their own ways
PAUSE = 0.0002  # seconds between two looks
ENDING = 0.2  # seconds that the end of one may take from the next
WHOLE = 400  # every so many looks the whole screen is searched
REST = 0.4  # seconds without work after which a process is at rest


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
        self._block = None

    def look_for(self, colour):
        near = [b"[" + re.escape(bytes([max(part - NEAR, 0)])) + b"-" + re.escape(bytes([min(part + NEAR, 255)])) + b"]"
                for part in reversed(colour)]
        # The fourth byte is whatever the program that drew left there.
        self._block = re.compile(b"(?:" + b"".join(near) + rb"[\x00\xff]){64}", re.DOTALL)

    def place(self):
        """What of the block is on the screen, and where; None before it has come."""
        found = self._block.search(self._screen, self._start)
        return found and (found.group(), found.start())

    def is_at(self, place):
        return place is not None and self._screen[place[1]:place[1] + len(place[0])] == place[0]


def family(pid):
    """A process and those that it started."""
    found = [pid]
    for process in found:
        try:
            with open(f"/proc/{process}/task/{process}/children", encoding="ascii") as file:
                found += [int(child) for child in file.read().split()]
        except OSError:
            pass
    return found


def status(pid):
    """The ticks of work so far, and VmHWM in kB; nothing for a process that has gone."""
    try:
        with open(f"/proc/{pid}/stat", encoding="utf-8") as file:
            fields = file.read().rpartition(")")[2].split()
        with open(f"/proc/{pid}/status", encoding="utf-8") as file:
            memory = next((int(line.split()[1]) for line in file if line.startswith("VmHWM:")), 0)
        return int(fields[11]) + int(fields[12]), memory
    except OSError:
        return 0, 0


def memory_at_rest(pid):
    """MB of the largest process of a family, once none of them has worked for a while."""
    ticks, since, end = -1, time.monotonic(), time.monotonic() + LIMIT
    while time.monotonic() < min(since + REST, end):
        now = sum(status(process)[0] for process in family(pid))
        if now != ticks:
            ticks, since = now, time.monotonic()
        time.sleep(0.02)
    return max(status(process)[1] for process in family(pid)) / 1024


def first_block(display, command, place=None, measure=None):
    """Milliseconds; None when no block came. `place` is that of the last time; `measure` is called with the process."""
    begin = time.monotonic()
    process = subprocess.Popen(command, env=display.environment, stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL, start_new_session=True)
    try:
        looks = 0
        while time.monotonic() - begin < LIMIT:
            looks += 1
            if display.is_at(place) or (looks % WHOLE == 0 and display.place()):
                took = (time.monotonic() - begin) * 1000
                if measure:
                    measure(process.pid)
                return took
            time.sleep(PAUSE)
        return None
    finally:
        os.killpg(process.pid, signal.SIGKILL)
        process.wait()
        end = time.monotonic() + LIMIT
        while display.place() and time.monotonic() < end:
            time.sleep(0.02)
        time.sleep(ENDING)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("-n", "--runs", type=int, default=9)
    parser.add_argument("--only", default="", help="of the programs")
    parser.add_argument("--pictures", default="", help="only those whose names have this word")
    parser.add_argument("programs", nargs="*", metavar="NAME=COMMAND")
    arguments = parser.parse_args()
    programs = {"tavrix": os.path.join(RELEASE, "app", "tavrix") + " {file}",
                "empty Qt program": os.path.join(RELEASE, "bin", "bench-empty-qt") + " {file}"}
    programs.update({name: command for name, command in PEERS.items() if shutil.which(name)})
    programs.update(program.split("=", 1) for program in arguments.programs)
    if arguments.only:
        programs = {name: programs[name] for name in arguments.only.split(",")}

    folder = tempfile.mkdtemp(prefix="tavrix-first-picture.")
    children = Children()
    try:
        display = Display(children, folder)
        subprocess.run([os.path.join(RELEASE, "bin", "tavrix-install"), os.path.join(RELEASE, "app", "tavrix")],
                       env=display.environment, check=True)
        no_dialogs_at_start(display.environment)
        for picture, path in make_pictures(folder):
            if arguments.pictures not in picture:
                continue
            with Image.open(path) as image:
                display.look_for(image.getpixel((10, 10)))
            commands = {name: [part.replace("{file}", path) for part in command.split()]
                        for name, command in programs.items()}
            memory, places, times = {}, {}, {name: [] for name in programs}
            for name, command in commands.items():
                def note(pid, name=name):
                    memory[name], places[name] = memory_at_rest(pid), display.place()
                first_block(display, command, measure=note)
            for _ in range(arguments.runs):
                # Whoever follows one that uses the same libraries finds them nearer to the processor.
                for name in random.sample(list(commands), len(commands)):
                    took = first_block(display, commands[name], places[name]) if name in places else None
                    if took is not None:
                        times[name].append(took)
            print(f"{picture}   load {os.getloadavg()[0]:.1f}")
            medians = {name: statistics.median(took) for name, took in times.items() if took}
            for name in programs:
                if name not in medians:
                    print(f"    {name:20} no picture came")
                    continue
                ratio = medians[name] / medians.get("empty Qt program", medians[name])
                print(f"    {name:20} {medians[name]:6.1f} ms   {ratio:5.2f} of the empty Qt program  {memory[name]:5.0f} MB"
                      f"   ({len(times[name])} runs, {min(times[name]):.1f} to {max(times[name]):.1f})", flush=True)
    finally:
        children.end_all()
        shutil.rmtree(folder, ignore_errors=True)


if __name__ == "__main__":
    main()
