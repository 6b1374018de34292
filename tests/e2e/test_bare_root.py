"""A package that the program has made plays, is installed and removed on a system where nothing of ours is: no toolkit, no
sound library, no fonts, no keyboard data."""

import os
import shutil
import unittest

import bare_root
from driver import wait_until
from PIL import Image
from test_package import PackingTest

_NAMES = ("Straße", "ночь", "日本", "naïve café", "a b")
_SAVER = "Screen Saver Main Form"
_TUNE = os.path.join(os.path.dirname(__file__), "..", "..", "samples", "show", "tune.mid")


@unittest.skipIf(bare_root.why_not(), bare_root.why_not())
class BareRootTest(PackingTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.root = bare_root.BareRoot(os.path.join(cls.session.folder, "root"))
        cls.addClassCleanup(cls.root.close)

    def slides(self, count):
        """Pictures of a plain colour each, with names of all scripts."""
        names = []
        for number in range(count):
            names.append(f"{_NAMES[number % len(_NAMES)]} {number}.bmp")
            self.slide(number).save(os.path.join(self.home.pictures, names[-1]))
        return names

    def slide(self, number):
        return Image.new("RGB", (120, 90), (number % 250, 200, 255 - number % 250))

    def run_in(self, *arguments, **options):
        environment = {"DISPLAY": self.session.environment["DISPLAY"], "SDL_AUDIODRIVER": "disk",
                       "SDL_DISKAUDIOFILE": "/tmp/heard.raw", **options.pop("environment", {})}
        command = self.root.command(self.out, *arguments, **options, **environment)
        log = os.path.join(self.home.folder, "root.log")
        process = self.session.children.start(command, self.session.environment, log)
        self.addCleanup(self.session.children.end, process)
        return process

    def run_to_end(self, *arguments, **options):
        self.assertEqual(self.end(self.run_in(*arguments, **options), 60), 0, self.log())

    def log(self):
        with open(os.path.join(self.home.folder, "root.log"), encoding="utf-8", errors="replace") as file:
            return file.read()

    def mapped(self, title):
        """The libraries that the program with this window has loaded."""
        window = wait_until(lambda: next((w for w in self.screen.windows() if w.title == title), None), f"{title!r}")
        with open(f"/proc/{window.pid}/maps", encoding="utf-8") as file:
            return {line.split(maxsplit=5)[5].strip() for line in file if ".so" in line}

    def test_a_package_is_at_home_where_nothing_is_installed(self):
        names = self.slides(300)
        shutil.copy(_TUNE, os.path.join(self.home.pictures, "tune.mid"))
        self.pack(self.show_file(*names, name="Größe.tvs", sound=(1, "tune.mid", 0, True)), saver=True)
        self.assertEqual(self.root.holds_ours(), [])
        before = self.root.content()

        with self.subTest("it plays from a medium that cannot be written, with sound"):
            player = self.run_in("/media/stick/TAVRIX.EXE")
            self.shows(self.slide(0), "the first slide")
            self.assertEqual([path for path in self.mapped("Tavrix Full Screen View")
                              if "TAVRIX.LIB" not in path and "tavrix-package" not in path], [])
            self.screen.press("End")
            self.shows(self.slide(299), "the last slide")
            wait_until(self.heard, "something to be heard")
            self.screen.press("Escape")
            self.assertEqual(self.end(player), 0, self.log())
            os.unlink(self.root.at("/tmp/heard.raw"))
            self.assertEqual(self.root.content(), before)

        with self.subTest("it plays where nothing on the medium may be run"):
            player = self.run_in("/media/stick/TAVRIX.EXE", mount="ro,nosuid,nodev,noexec")
            self.shows(self.slide(0), "the first slide")
            self.screen.press("Escape")
            self.assertEqual(self.end(player), 0, self.log())

        with self.subTest("it is installed, the screen saver, and removed"):
            self.install_and_remove()

    def heard(self):
        """Whether the sound so far is more than silence."""
        try:
            with open(self.root.at("/tmp/heard.raw"), "rb") as file:
                return any(file.read().strip(b"\0"))
        except FileNotFoundError:
            return False

    def install_and_remove(self):
        store = self.root.at("/home/guest/.config/tavrix/settings")
        os.makedirs(os.path.dirname(store))
        with open(store, "w", encoding="utf-8") as file:
            file.write("[Settings]\nCurrentSaver=C:\\former.tvs\nOther=kept\n")
        if os.path.exists(self.root.at("/tmp/heard.raw")):
            os.unlink(self.root.at("/tmp/heard.raw"))
        before = self.root.content()
        self.run_to_end("/media/stick/SETUP.EXE", "-quiet")
        installed = "/home/guest/.local/share/tavrix-packages/Trip"
        with open(store, encoding="cp1252") as file:
            self.assertIn(f"CurrentSaver=C:{installed}/SLIDES/Größe.tvs".replace("/", "\\"), file.read())
        entries = os.listdir(self.root.at("/home/guest/.local/share/applications"))
        self.assertEqual(len(entries), 3, entries)

        saver = self.run_in(f"{installed}/TavrixSCR.SCR")
        self.shows(self.slide(0), "the first slide in the saver")
        self.assertTrue([w for w in self.screen.windows() if w.title == _SAVER])
        self.screen.press("a")
        self.assertEqual(self.end(saver), 0, self.log())

        self.run_to_end(f"{installed}/UN-SETUP.EXE", "-quiet")
        if os.path.exists(self.root.at("/tmp/heard.raw")):
            os.unlink(self.root.at("/tmp/heard.raw"))
        after = self.root.content()
        self.assertEqual({path for path in after if path not in before}, set())
        self.assertEqual(after, before)
        with open(store, encoding="cp1252") as file:
            self.assertEqual(file.read(), "[Settings]\nCurrentSaver=C:\\former.tvs\nOther=kept\n")
