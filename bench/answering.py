#!/usr/bin/python3
"""answering.py [-n FILES]
answering.py --large [SIDE]
answering.py --editor [ROWS]

How long the program leaves its user without an answer while it is busy: the longest time that its window needs to
answer the window system's ping (_NET_WM_PING). In a large folder, in each phase of opening an image among 50,000 files,
against a quarter of a second; with --large, while a new image of 10,000 by 10,000 pixels is made, turned and saved,
against five seconds, and with the most memory that the program had, against three times that of the picture; with --editor,
while the editor of shows holds the longest show, whose lists are scrolled and selected and whose information boxes are
opened, against a tenth of a second. The figure is the worst of a run, whatever else the machine does. Needs what the tests
from outside need.
"""

import argparse
import os
import shutil
import sys
import tempfile
import time

from PIL import Image

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
sys.path.insert(0, os.path.join(ROOT, "tests", "e2e"))
from driver import Children, Home, Pings, Screen, wait_until  # noqa: E402

PROGRAM = os.path.join(ROOT, "build", "release", "app", "tavrix")
LIMIT = 0.25  # seconds without an answer that a user may notice
LARGE_LIMIT = 5  # the same for work on a picture that is larger than any other
LARGE_SIDE = 10_000
EDITOR_LIMIT = 0.1  # the same for what is done all the time
LONGEST_SHOW = 30_001
EDITOR = "Tavrix - [Slide Show Editor]"


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


def make_slides(folder, files):
    """One picture by many names."""
    os.makedirs(folder)
    first = os.path.join(folder, "100000.bmp")
    Image.new("RGB", (40, 30), (200, 30, 30)).save(first)
    for number in range(1, files):
        os.link(first, os.path.join(folder, f"{100000 + number}.bmp"))


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


def bitmap_bytes(side):
    return 54 + (3 * side + 3) // 4 * 4 * side


def large_steps(screen, windows, working, saved, side):
    """The phases on a large picture: what the user does, and whether it is over."""
    def written(path, since):
        def look():
            try:
                state = os.stat(path)
            except OSError:
                return False
            return state.st_size == bitmap_bytes(side) and state.st_ctime_ns > since  # a copy keeps the time of its source
        return look

    def menu(*keys):
        view = next(w for title, w in windows().items() if title.startswith("Tavrix"))
        screen.click(view.x + 18, view.y + 8)
        screen.press(*keys)

    def make():
        menu("n")
        wait_until(lambda: "New Image" in windows(), "the dialog")
        time.sleep(0.5)
        screen.type(str(side))
        screen.press("Tab")
        screen.type(str(side))
        screen.press("Return")

    def rotate():
        screen.press("Alt+Up")
        wait_until(lambda: "Rotate Image" in windows(), "the dialog")
        time.sleep(0.5)
        screen.type("33")
        screen.press("Alt+p")
        time.sleep(0.2)
        screen.press("Return")

    def save():
        menu("c", "u")
        wait_until(lambda: "Save Copy" in windows(), "the dialog")
        time.sleep(0.5)
        screen.type(os.path.basename(saved))
        screen.press("Return")
        wait_until(lambda: "Tavrix" in windows(), "the question")
        screen.press("y")

    def now():
        return time.time_ns()

    yield "a new image is made and filled", make, written(working, now())
    yield "it is turned by 90 degrees", lambda: screen.press("Alt+Right"), written(working, now())
    yield "it is turned by 180 degrees", lambda: screen.press("Alt+Down"), written(working, now())
    yield "it is turned by 33 degrees", rotate, written(working, now())
    yield "it is saved", save, written(saved, now())


class EditorList:
    """A list of the editor, by shares of the window's sides: its left, top, right and bottom."""

    def __init__(self, screen, window, left, top, right, bottom):
        self._screen = screen
        self.left, self.right = window.x + round(window.width * left), window.x + round(window.width * right)
        self.top, self.bottom = window.y + round(window.height * top), window.y + round(window.height * bottom)

    def rows(self):
        """What is seen of them."""
        return self._screen.grab(self.left, self.top, self.right - self.left - 20, self.bottom - self.top).tobytes()

    def click(self, row=0):
        """Gives it the keyboard, by a row of those that are seen."""
        self._screen.click(self.left + 30, self.top + 8 + 14 * row)

    def turn(self, notches):
        """Turns the wheel over it, downwards if that is more than 0."""
        self._screen.move_pointer((self.left + self.right) // 2, (self.top + self.bottom) // 2)
        for _ in range(abs(notches)):
            self._screen.click((self.left + self.right) // 2, (self.top + self.bottom) // 2, button=5 if notches > 0 else 4)

    def drag_bar(self):
        """From one end to the other and back."""
        x, ends = self.right - 9, (self.top + 27, self.bottom - 27)
        self.expect_change(lambda: self._screen.drag((x, ends[0]), (x, ends[1]), steps=60))
        self._screen.drag((x, ends[1]), (x, ends[0]), steps=60)

    def expect_change(self, act):
        """What is done is to be seen in the list."""
        before = self.rows()
        act()
        wait_until(lambda: self.rows() != before, "a change in the list")


def editor_steps(screen, windows):
    """The phases in the editor: what the user does, and a time in seconds for what it sets off."""
    window = wait_until(lambda: windows().get(EDITOR), "the editor")
    wait_until(lambda: screen.active() == window.id, "the editor's keyboard")
    time.sleep(1)
    files = EditorList(screen, window, 0.012, 0.468, 0.357, 0.935)
    show = EditorList(screen, window, 0.468, 0.102, 0.988, 0.9)

    def add_all():
        files.click()
        time.sleep(0.5)
        show.expect_change(lambda: screen.press("equal"))

    def box(key, title):
        screen.press(key)
        wait_until(lambda: title in windows(), title, 60)
        time.sleep(0.3)
        screen.press("Return")
        wait_until(lambda: title not in windows(), f"the end of {title}")

    def scroll(place):
        yield "the wheel, 50 notches down, 50 up", lambda: (place.expect_change(lambda: place.turn(50)), place.turn(-50)), 1
        place.click(2)
        yield "Page Down, 50 times", lambda: place.expect_change(lambda: screen.press(*["Next"] * 50)), 1
        yield "Page Up, 50 times", lambda: place.expect_change(lambda: screen.press(*["Prior"] * 50)), 1
        yield "End and Home, 10 times", lambda: screen.press(*["End", "Home"] * 10), 1
        yield "the bar is dragged to its ends", place.drag_bar, 1

    yield "all files are added", add_all, 3
    for name, place, keys in (("show", show, ("F5", "F6", "F9", "F6")), ("files", files, ("Alt+a", "Alt+n", "F9", "Alt+n"))):
        for what, act, seconds in scroll(place):
            yield f"{name}: {what}", act, seconds
        place.click(2)
        for what, key in zip(("all", "none", "all others", "none again"), keys):
            yield f"{name}: select {what}", lambda key=key, place=place: place.expect_change(lambda: screen.press(key)), 1
        place.click(3)
        if place is show:
            yield "the box about the show", lambda: box("Alt+F2", "Tavrix - [Slide Show Information]"), 1
        else:
            yield "the box about the source folder", lambda: box("Alt+F2", "Tavrix - [Source Folder Information]"), 1
        yield f"{name}: the box about an image", lambda: box("F11", "Tavrix - [Image Information]"), 1


def peak_memory(pid):
    with open(f"/proc/{pid}/status", encoding="ascii") as status:
        return next(int(line.split()[1]) * 1024 for line in status if line.startswith("VmHWM"))


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("-n", "--files", type=int, default=50_000)
    parser.add_argument("--large", type=int, nargs="?", const=LARGE_SIDE, metavar="SIDE")
    parser.add_argument("--editor", type=int, nargs="?", const=LONGEST_SHOW, metavar="ROWS")
    arguments = parser.parse_args()
    side, rows = arguments.large, arguments.editor
    limit = EDITOR_LIMIT if rows else LARGE_LIMIT if side else LIMIT
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
        home.write_settings("[Viewer]\nOpenShowPreview=True\nStartupDialog=0\nRotatePreserve=False\n")
        if rows:
            start = "SHOW"
            make_slides(os.path.join(home.program, "SLIDES"), rows)
        else:
            start = make_folder(home.pictures, 1 if side else arguments.files)
        program = children.start([PROGRAM, start], {**screen.environment, **home.environment},
                                 os.path.join(folder, "program.log"))

        def mine():
            return {w.title: w for w in screen.windows() if w.pid == program.pid}

        first = wait_until(lambda: mine().get(EDITOR) if rows else next(iter(mine().values()), None), "the first window", 60)
        time.sleep(1)
        pings = Pings(screen, first)
        worst = 0.0
        working = os.path.join(home.temporary, "Untitled.BMP")
        saved = os.path.join(home.pictures, "kept.bmp")
        if rows:
            phases = editor_steps(screen, mine)
        else:
            phases = large_steps(screen, mine, working, saved, side) if side else steps(screen, mine)
        for name, act, over in phases:
            begin = time.monotonic()
            act()
            if callable(over):
                wait_until(over, f"the end: {name}", 300)
                took = time.monotonic() - begin
                name += f" ({took:.1f} s)"
                time.sleep(2)
            else:
                time.sleep(over)
            answers = pings.since(begin)
            worst = max(worst, answers[-1])
            print(f"{name:40} median {answers[len(answers) // 2] * 1000:6.1f} ms   longest {answers[-1] * 1000:6.1f} ms"
                  f"   {answers[-1] / limit:5.2f} of {limit * 1000:.0f} ms", flush=True)
        print(f"{'the longest of all':40} {worst * 1000:21.1f} ms   {worst / limit:14.2f} of {limit * 1000:.0f} ms")
        if side:
            peak, allowed = peak_memory(program.pid), 3 * 4 * side * side
            print(f"{'the most memory':40} {peak / 1e6:21.1f} MB   {peak / allowed:14.2f} of {allowed / 1e6:.0f} MB")
    finally:
        if pings is not None:
            pings.stop()
        children.end_all()
        shutil.rmtree(folder, ignore_errors=True)


if __name__ == "__main__":
    main()
