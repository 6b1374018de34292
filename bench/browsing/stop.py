#!/usr/bin/python3
"""stop.py [-n STOPS] [--kind plain|progressive] [--way click|Alt+S|Return|space]

How long Stop takes to act in the middle of a JPEG of 100 megapixels in the thumbnail browser, at moments that are spread
over its decoding: from the event that presses the button to the end of the page, as seen on the screen, against a tenth of
a second. By the mouse, by its letter, and by Return and the space bar while it has the keyboard. Beside it what a hint
under the pointer takes in the same window at rest, which is the machine's share.
"""

import argparse
import os
import shutil
import statistics
import tempfile
import time

from compare import BROWSER, DIALOG, Machine, seconds_until
from driver import Children, wait_until
from PIL import Image, ImageChops
from Xlib import XK, X, display
from Xlib.ext import xtest

LIMIT = 0.1  # seconds
FILES = 400  # so many that every page is a whole one, which does not end by itself before Stop is pressed
WAYS = ("click", "Alt+S", "Return", "space")


class Hand:
    """Presses keys and the mouse's button without any delay, unlike the driver's."""

    def __init__(self, screen):
        self._x = display.Display(screen.environment["DISPLAY"])

    def send(self, *events):
        """The time just before they were sent."""
        begin = time.monotonic()
        for kind, detail in events:
            xtest.fake_input(self._x, kind, detail)
        self._x.sync()
        return begin

    def key(self, name):
        return self._x.keysym_to_keycode(XK.string_to_keysym(name))

    def press(self, name):
        return self.send((X.KeyPress, self.key(name)), (X.KeyRelease, self.key(name)))

    def point_at(self, x, y):
        begin = time.monotonic()
        xtest.fake_input(self._x, X.MotionNotify, x=x, y=y)
        self._x.sync()
        return begin

    def click(self):
        return self.send((X.ButtonPress, 1), (X.ButtonRelease, 1))


class Browser:
    """The browser on a folder of such pictures, which goes from page to page."""

    def __init__(self, machine, folder):
        self.screen = machine.screen
        self.hand = Hand(machine.screen)
        self.process = machine.browse(folder)
        self.screen.move_pointer(2, 2)
        wait_until(lambda: self.screen.active() == machine.titles(self.process)[DIALOG].id, "the dialog's keyboard")
        self.screen.press("Return")
        window = wait_until(lambda: machine.titles(self.process).get(BROWSER), BROWSER)
        wait_until(lambda: self.screen.active() == window.id, "the browser's keyboard")
        self.x, self.y, self.width, self.height = window.x, window.y, window.width, window.height
        time.sleep(0.5)
        loading = self.look(0, 0, 1, 1)
        self.hand.send((X.KeyPress, self.hand.key("Alt_L")))
        self.hand.press("s")
        self.hand.send((X.KeyRelease, self.hand.key("Alt_L")))
        time.sleep(2)
        ended = self.look(0, 0, 1, 1)
        # Where Stop was, which only a page that is made shows, and a button that waits for the end.
        self._stop = self._lowest_change(loading, ended, 0, 0.5)
        self._button = self._lowest_change(loading, ended, 0.5, 0.85)
        self._at_rest = self._stop_place()

    def look(self, left, top, right, bottom):
        """The pixels of a part of the window, by shares of its sides."""
        width, height = self.width, self.height
        return self.screen.grab(self.x + int(width * left), self.y + int(height * top), int(width * (right - left)),
                                int(height * (bottom - top)))

    def _lowest_change(self, before, after, top, bottom):
        """The lowest button that has changed in the right third, between two shares of the height."""
        left = before.width * 2 // 3
        box = (left, int(before.height * top), before.width, int(before.height * bottom))
        changed = ImageChops.difference(before.crop(box), after.crop(box))
        rows = [changed.crop((0, row, changed.width, row + 1)).getbbox() is not None for row in range(changed.height)]
        end = len(rows) - rows[::-1].index(True)
        begin = end - rows[end - 1::-1].index(False)
        columns = changed.crop((0, begin, changed.width, end)).getbbox()
        return left + columns[0], box[1] + begin, left + columns[2], box[1] + end

    def _stop_place(self):
        left, top, right, bottom = self._stop
        return self.screen.grab(self.x + left, self.y + top, right - left, bottom - top).tobytes()

    def texts(self):
        """Which images are shown, and the hint."""
        return self.look(0, 0.85, 0.25, 1).tobytes()

    def point_at(self, place):
        left, top, right, bottom = place
        self.screen.move_pointer(self.x + (left + right) // 2, self.y + (top + bottom) // 2)

    def next_page(self):
        """Begins one; the time since which it is seen."""
        self.screen.move_pointer(2, 2)
        self.screen.press("Alt+n")
        wait_until(lambda: self._stop_place() != self._at_rest, "a page that is made")
        return time.monotonic()

    def first_thumbnail(self):
        """Seconds until one is seen that nobody stops. The page is stopped then."""
        begin = self.next_page()
        time.sleep(0.2)
        before = self.look(0, 0, 0.6, 0.8).tobytes()
        took = seconds_until(lambda: self.look(0, 0, 0.6, 0.8).tobytes() != before, begin)
        self.stop("Alt+S", 0)
        return took

    def stop(self, way, moment):
        """Seconds until Stop has acted that is pressed some time after now."""
        if way == "click":
            self.point_at(self._stop)
        elif way == "Alt+S":
            self.hand.send((X.KeyPress, self.hand.key("Alt_L")))
        else:
            self.hand.press("Tab")  # no other control is enabled
        time.sleep(0.05)
        time.sleep(max(0, moment - time.monotonic()))
        before = self.texts()
        if way == "click":
            begin = self.hand.click()
        else:
            begin = self.hand.press("s" if way == "Alt+S" else way)
        try:
            took = seconds_until(lambda: self._stop_place() == self._at_rest and self.texts() != before, begin)
        except RuntimeError as error:
            titles = [window.title for window in self.screen.windows() if window.pid == self.process.pid]
            gone, told = self._stop_place() == self._at_rest, self.texts() != before
            raise RuntimeError(f"Stop by {way} did not act: button gone {gone}, page told {told}, open are {titles},"
                               f" exit {self.process.poll()}") from error
        if way == "Alt+S":
            self.hand.send((X.KeyRelease, self.hand.key("Alt_L")))
        time.sleep(0.5)
        return took

    def hint_at_rest(self):
        self.screen.move_pointer(self.x + self.width // 4, self.y + self.height // 4)  # over the grid, which has its own
        time.sleep(0.2)
        self.screen.move_pointer(self.x + self.width // 4 + 1, self.y + self.height // 4)
        time.sleep(0.2)
        left, top, right, bottom = self._button
        before = self.texts()
        begin = self.hand.point_at(self.x + (left + right) // 2, self.y + (top + bottom) // 2)
        return seconds_until(lambda: self.texts() != before, begin)


def make_pictures(folder, progressive):
    noise = Image.effect_noise((1000, 800), 90).resize((12_500, 8_000), Image.Resampling.NEAREST)
    first = os.path.join(folder, "000.jpg")
    Image.merge("RGB", [noise] * 3).save(first, quality=90, progressive=progressive)
    for number in range(1, FILES):
        os.link(first, os.path.join(folder, f"{number:03}.jpg"))


def measure(machine, folder, kind, ways, stops):
    make_pictures(folder, kind == "progressive")
    browser = Browser(machine, folder)
    whole = browser.first_thumbnail()
    hint = statistics.median(browser.hint_at_rest() for _ in range(5))
    print(f"{kind} JPEG of 100 MP: {whole:.2f} s undisturbed; a hint at rest {hint * 1000:.0f} ms", flush=True)
    for way in ways:
        took = []
        for number in range(stops):
            begin = browser.next_page()
            took.append(browser.stop(way, begin + whole * (number + 0.5) / stops))
        print(f"  Stop by {way:7} median {statistics.median(took) * 1000:5.0f} ms   longest {max(took) * 1000:5.0f} ms"
              f"   {max(took) / LIMIT:5.2f} of {LIMIT * 1000:.0f} ms   ({stops} stops)", flush=True)
    machine.end(browser.process)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("-n", "--stops", type=int, default=20)
    parser.add_argument("--kind", choices=("plain", "progressive"))
    parser.add_argument("--way", choices=WAYS)
    arguments = parser.parse_args()
    folder = tempfile.mkdtemp(prefix="tavrix-stop.")
    children = Children()
    try:
        machine = Machine(children, folder)
        for kind in (arguments.kind,) if arguments.kind else ("plain", "progressive"):
            pictures = os.path.join(folder, kind)
            os.mkdir(pictures)
            measure(machine, pictures, kind, (arguments.way,) if arguments.way else WAYS, arguments.stops)
    finally:
        children.end_all()
        shutil.rmtree(folder, ignore_errors=True)


if __name__ == "__main__":
    main()
