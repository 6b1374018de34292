"""The program from an installed tree, started as desktops start it."""

import configparser
import os
import shlex
import shutil
import subprocess
import unittest

from driver import drive_path, wait_until
from driver.program import PROGRAM
from pictures import coded
from support import ProgramTest

_BUILD = os.path.dirname(os.path.dirname(os.path.abspath(PROGRAM)))
_SAMPLES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "samples")


class InstalledTest(ProgramTest):

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.tree = os.path.join(cls.session.folder, "tree")
        subprocess.run(["cmake", "--install", _BUILD, "--prefix", cls.tree], check=True, stdout=subprocess.DEVNULL,
                       env={name: value for name, value in os.environ.items() if name != "DESTDIR"})
        cls.program_path = os.path.join(cls.tree, "bin", "tavrix")
        cls.entry_path = os.path.join(cls.tree, "share", "applications", "tavrix.desktop")

    def new_home(self, **options):
        """A user for whom nothing was done but the installation."""
        home = super().new_home(installed=False, **options)
        del home.environment["TAVRIX_HOME"]
        home.program = os.path.join(home.environment["XDG_DATA_HOME"], "tavrix")
        home.settings = os.path.join(home.program, "tavrix.ini")
        if home.quiet:
            os.makedirs(home.program)
            home.write_settings("[Viewer]\n")
        return home

    def start(self, *arguments, **options):
        return super().start(*arguments, program=self.program_path, **options)

    def start_entry(self, action=None, file=None):
        """Starts what the entry in the desktop's menus says, or one of its actions."""
        entry = configparser.RawConfigParser(delimiters="=", interpolation=None)
        entry.read(self.entry_path, encoding="utf-8")
        command = shlex.split(entry[f"Desktop Action {action}" if action else "Desktop Entry"]["exec"])
        self.assertEqual(command[0], "tavrix")
        arguments = [file if word == "%f" else word for word in command[1:] if word != "%f" or file]
        return self.start(*arguments)

    def listing(self):
        return sorted((folder, name, os.stat(os.path.join(folder, name)).st_mtime_ns)
                      for folder, _, names in os.walk(self.tree) for name in names)

    def test_the_first_start_finds_itself_installed_and_leaves_the_tree_alone(self):
        before = self.listing()
        home = self.new_home(quiet=False)
        program = self.start(home=home)
        # No word of the registry: what opens is the first tip, which is one of ours.
        tip = self.dialog(program, "Tip of the Day")
        texts = [label.text for label in tip.all("label")]
        self.assertFalse([text for text in texts if "not found" in text], texts)
        self.assertTrue(any(len(text) > 30 for text in texts), texts)
        tip.find("push button", "OK").act()
        program.window("About Tavrix")
        self.assertEqual(home.in_store("EXEPath"), drive_path(home.program) + "\\")
        self.assertTrue(os.path.isdir(os.path.join(home.program, "SLIDES")))
        program.close()
        self.assertEqual(self.listing(), before)

    def test_the_help_is_found(self):
        program = self.start()
        program.main()
        self.screen.press("F1")
        program.window("Tavrix Help")

    def icon_of(self, window):
        """The pixels of its icon by their sizes; nothing before all of them are there."""
        icon = self.screen.window_property(window, "_NET_WM_ICON") or []
        sizes, at = {}, 0
        while at < len(icon):
            width, height = icon[at:at + 2]
            sizes[width, height] = icon[at + 2:at + 2 + width * height]
            at += 2 + width * height
        return sizes if sorted(sizes) == [(n, n) for n in (16, 24, 32, 48, 64)] else None

    def test_every_window_bears_the_icon(self):
        program = self.start("OPEN")
        for title in ("Tavrix", "Open Image"):
            window = program.window(title)
            # The window manager gives a stand-in to windows without one; ours comes after the first picture.
            sizes = wait_until(lambda: self.icon_of(window), f"the icon of {title}")
            colours = {pixel for pixel in sizes[64, 64] if pixel >> 24 == 255}
            self.assertGreater(len(colours), 50, "the icon is a drawing")

    # The entry

    def test_the_entry_opens_a_name_that_the_command_line_refuses(self):
        image = coded(400, 330)
        path = os.path.join(self.home.pictures, "Käthe & ich (2).jpeg")
        image.save(path, format="BMP")
        program = self.start_entry(file=path)
        self.view(program.main(path), image, x=0, y=0, width=400, height=330)
        self.assertEqual(program.titles(), [f"Tavrix - [{drive_path(path)}]"])

    def test_the_entry_alone_starts_the_program(self):
        program = self.start_entry()
        program.main()
        self.assertEqual(program.titles(), ["Tavrix"])

    def test_the_entry_plays_a_show(self):
        show = os.path.join(self.home.pictures, "tour")
        shutil.copytree(os.path.join(_SAMPLES, "show"), show)
        program = self.start_entry(file=os.path.join(show, "tour.tvs"))
        stage = program.wait(lambda: next((w for w in program.windows() if w.width == self.screen.width
                                           and w.height == self.screen.height), None), "the stage")
        wait_until(lambda: self.screen.active() == stage.id, "the keyboard on the stage")
        self.screen.press("Escape")
        program.main()

    def test_a_file_that_is_no_picture_is_told_as_for_a_drop(self):
        path = os.path.join(self.home.pictures, "x.jpg")
        with open(path, "w", encoding="ascii") as file:
            file.write("no picture")
        program = self.start_entry(file=path)
        box = program.message_box()
        self.assertEqual(box.title, "Tavrix - [Drag & Drop Error]")
        box.press("OK")
        program.main()

    def test_its_actions(self):
        program = self.start_entry("editor")
        program.window("Tavrix - [Slide Show Editor]")
        program.close()
        program = self.start_entry("saver-settings")
        program.window("Tavrix - [Screen Saver Settings]")
        program.close()
        path, image = self.picture(300, 200)
        program = self.start_entry("full-screen", path)
        program.wait(lambda: any(w.width == self.screen.width and w.height == self.screen.height
                                 for w in program.windows()), "the image over the whole screen")

    # A double click

    @unittest.skipUnless(shutil.which("gio") and shutil.which("update-desktop-database")
                         and shutil.which("update-mime-database"), "the desktop's tools are not installed")
    def test_a_double_click_opens_the_file_in_the_program(self):
        shared = os.path.join(self.tree, "share")
        subprocess.run(["update-desktop-database", os.path.join(shared, "applications")], check=True,
                       stderr=subprocess.DEVNULL)
        subprocess.run(["update-mime-database", os.path.join(shared, "mime")], check=True,
                       stderr=subprocess.DEVNULL)
        before = self.listing()
        environment = {**self.session.environment, **self.home.environment, "XDG_DATA_DIRS": f"{shared}:/usr/share",
                       "PATH": f"{self.tree}/bin:{os.environ['PATH']}"}
        log = os.path.join(self.home.folder, "gio.log")
        for name in ("double.bmp", "double.jpeg"):
            image = coded(410, 320)
            path = os.path.join(self.home.pictures, name)
            image.save(path)
            self.session.children.start(["gio", "open", path], environment, log, cwd=self.home.folder)
            title = f"Tavrix - [{drive_path(path)}]"
            window = wait_until(lambda: next((w for w in self.screen.windows() if w.title == title), None),
                                lambda: f"{title}; there are {[w.title for w in self.screen.windows()]}")
            if name.endswith("bmp"):  # of which every pixel is known
                self.view(window, image, x=0, y=0)
            self.screen.activate(window)
            wait_until(lambda: self.screen.active() == window.id, "the keyboard on the main view")
            self.screen.press("Escape")
            wait_until(lambda: title not in [w.title for w in self.screen.windows()], "the program's end")
        self.assertEqual(self.listing(), before)


if __name__ == "__main__":
    unittest.main()
