"""A show is packed by the window, played from the folder as it stands, installed, and the package deleted."""

import os
import shutil
import subprocess

from driver import drive_path, wait_until
from test_show import StageTest

_TITLE = "Tavrix - [Package Slide Show]"
_DELETE = "Tavrix - [Delete Package]"


class PackingTest(StageTest):
    def setUp(self):
        super().setUp()
        self.out = os.path.join(self.home.folder, "Ausflug ä")
        os.mkdir(self.out)

    def pack(self, path, saver=False):
        """Packs a show by the window, and returns the program."""
        self.home.write_settings(
            f"[Viewer]\nBackgroundColor=4\nLastSlideShow={drive_path(path)}\n[Package]\nPackageName=Trip\nPackageSize=7.5\n"
            f"PackageScreenSaver={saver}\nPackageShortcut=True\nPackageDestination={drive_path(self.out)}\n")
        program = self.start()
        program.main()
        program.menu_entry("Slide Show", "Slide Show Package", "Save").act()
        dialog = self.dialog(program, _TITLE)
        dialog.find("push button", "Package").act()
        box = program.message_box()
        self.assertIn("Create the above package?", box.text)
        box.press("Yes")
        # The window that tells what is copied looks like a box, too.
        wait_until(lambda: not program.message_box().text.startswith("Tavrix is "), "the end of the copies", 60)
        box = program.message_box()
        self.assertIn("has been created in the directory:", box.text)
        box.press("OK")
        dialog.find("push button", "Cancel").act()
        wait_until(lambda: program.titles() == ["Tavrix"], "the main view alone")
        return program

    def environment(self, **values):
        """Of a user who has no Tavrix."""
        self.guest = os.path.join(self.home.folder, "guest")
        os.makedirs(self.guest, exist_ok=True)
        temporary = os.path.join(self.home.folder, "guest-temporary")
        os.makedirs(temporary, exist_ok=True)
        environment = {key: value for key, value in self.session.environment.items() if not key.startswith("XDG_")}
        tools = os.path.join(self.home.folder, "tools")
        os.makedirs(tools, exist_ok=True)
        self.told = os.path.join(self.home.folder, "told")
        with open(os.path.join(tools, "zenity"), "w", encoding="utf-8") as file:
            file.write(f'#!/bin/sh\nprintf "%s" "$4" >"{self.told}"\n')
        os.chmod(os.path.join(tools, "zenity"), 0o755)
        return {**environment, "HOME": self.guest, "TMPDIR": temporary, "PATH": tools + ":/usr/bin:/bin", **values}

    def launch(self, name, *arguments, **values):
        process = self.session.children.start(["sh", os.path.join(self.out, name), *arguments],
                                              self.environment(**values), os.path.join(self.home.folder, "launcher.log"))
        self.addCleanup(self.session.children.end, process)
        return process

    def left(self):
        """What a guest finds of it."""
        return [os.path.join(folder, name) for place in (self.guest, os.path.join(self.home.folder, "guest-temporary"))
                for folder, folders, files in os.walk(place) for name in folders + files]

    def end(self, process, limit=20):
        wait_until(lambda: process.poll() is not None, "the end of the launcher", limit)
        return process.returncode


class PackageTest(PackingTest):
    def test_a_package_is_made_played_and_deleted(self):
        small, _, beside = self.pictures()
        path = self.show_file("small.bmp", drive_path(os.path.join(self.home.pictures, "beside.bmp")))
        program = self.pack(path)
        self.assertEqual(sorted(os.listdir(os.path.join(self.out, "SLIDES"))), ["beside.bmp", "show.tvs", "small.bmp"])
        names = [name.upper() for name in os.listdir(os.path.join(self.out, "TAVRIX.LIB"))]
        self.assertEqual(len(names), len(set(names)))

        # As a stick would have it: nothing can be executed, and nothing written.
        for folder, _, files in os.walk(self.out):
            for name in files:
                os.chmod(os.path.join(folder, name), 0o444)
        before = {name: os.stat(os.path.join(self.out, name)).st_mtime for name in os.listdir(self.out)}
        player = self.launch("TAVRIX.EXE")
        self.shows(small, "the first picture of the package")
        self.screen.press("Right")
        self.shows(beside, "the second picture of the package")
        self.screen.press("Escape")
        self.assertEqual(self.end(player), 0)
        self.assertEqual(self.left(), [])
        self.assertEqual({name: os.stat(os.path.join(self.out, name)).st_mtime for name in os.listdir(self.out)}, before)
        for folder, _, files in os.walk(self.out):
            for name in files:
                os.chmod(os.path.join(folder, name), 0o644)

        program.menu_entry("Slide Show", "Slide Show Package", "Delete").act()
        dialog = self.dialog(program, _DELETE)
        dialog.find("push button", "Delete").act()
        box = program.message_box()
        self.assertIn("Are you sure?", box.text)
        box.press("Yes")
        box = program.message_box(60)
        self.assertEqual(box.text, "The slide show package Trip has been deleted...")
        box.press("OK")
        self.assertFalse(os.path.exists(self.out))
        self.assertTrue(os.path.exists(path))

    def test_a_launcher_that_is_told_to_end_leaves_nothing(self):
        small, _, _ = self.pictures()
        self.pack(self.show_file("small.bmp"))
        player = self.launch("TAVRIX.EXE")
        self.shows(small, "the picture of the package")
        player.terminate()
        self.end(player)
        self.assertEqual(self.left(), [])

    def test_what_a_killed_launcher_left_goes_with_a_later_one(self):
        small, _, _ = self.pictures()
        self.pack(self.show_file("small.bmp"))
        temporary = self.environment()["TMPDIR"]
        dead, other = 4194303, os.getpid()
        for name, days in ((f"tavrix-package.{dead}.old", 2), (f"tavrix-package.{dead}.new", 0),
                           (f"tavrix-package.{other}.old", 2), ("tavrix-letters", 2)):
            path = os.path.join(temporary, name)
            os.mkdir(path)
            then = os.stat(path).st_mtime - days * 86400
            os.utime(path, (then, then))
        player = self.launch("TAVRIX.EXE")
        self.shows(small, "the picture of the package")
        self.screen.press("Escape")
        self.assertEqual(self.end(player), 0)
        self.assertEqual(set(os.listdir(temporary)), {"tavrix-letters", f"tavrix-package.{other}.old",
                                                      f"tavrix-package.{dead}.new"})

    def test_what_the_user_made_meanwhile_is_kept(self):
        small, _, _ = self.pictures()
        self.pack(self.show_file("small.bmp"))
        player = self.launch("TAVRIX.EXE")
        self.shows(small, "the picture of the package")
        homes = [path for path in self.left() if path.endswith("/home")]
        self.assertEqual(len(homes), 1, self.left())
        os.makedirs(os.path.join(homes[0], "SLIDES"), exist_ok=True)
        with open(os.path.join(homes[0], "SLIDES", "mine.tvs"), "w", encoding="utf-8") as file:
            file.write("mine")
        self.screen.press("Escape")
        self.assertEqual(self.end(player), 0)
        kept = [path for path in self.left() if os.path.isfile(path)]
        self.assertEqual(len(kept), 1, kept)
        self.assertTrue(kept[0].startswith(self.guest + "/Tavrix."))
        with open(kept[0], encoding="utf-8") as file:
            self.assertEqual(file.read(), "mine")
        with open(self.told, encoding="utf-8") as file:
            self.assertEqual(file.read(), "What you have made is kept in " + kept[0].removesuffix("/home/SLIDES/mine.tvs"))

    def test_a_package_of_another_kind_of_computer_says_so(self):
        small, _, _ = self.pictures()
        self.pack(self.show_file("small.bmp"))
        with open(os.path.join(self.out, "TAVRIX.LIB", "ld.so"), "wb") as file:
            file.write(b"no program of this computer")
        self.assertEqual(self.end(self.launch("TAVRIX.EXE")), 1)
        with open(self.told, encoding="utf-8") as file:
            self.assertIn("it is not of the kind that this package was made for", file.read())
        self.assertEqual(self.left(), [])

    def test_the_installer_asks_and_tells(self):
        small, _, _ = self.pictures()
        self.pack(self.show_file("small.bmp"), saver=True)
        setup = self.launch("SETUP.EXE")
        self.answer_setup("question", "Return")
        self.answer_setup("end", "Return")
        self.assertEqual(self.end(setup), 0)
        installed = os.path.join(self.guest, ".local", "share", "tavrix-packages", "Trip")
        self.assertTrue(os.path.exists(os.path.join(installed, "SLIDES", "show.tvs")))

        again = self.launch("SETUP.EXE")
        self.answer_setup("complaint", "Return")
        self.assertEqual(self.end(again), 1)

        player = self.session.children.start(["sh", os.path.join(installed, "TAVRIX.EXE")], self.environment(),
                                             os.path.join(self.home.folder, "launcher.log"))
        self.addCleanup(self.session.children.end, player)
        self.shows(small, "the picture of the installed package")
        self.screen.press("Escape")
        self.assertEqual(self.end(player), 0)

        remover = self.session.children.start(["sh", os.path.join(installed, "UN-SETUP.EXE")], self.environment(),
                                              os.path.join(self.home.folder, "launcher.log"))
        self.addCleanup(self.session.children.end, remover)
        self.answer_setup("question", "Escape")
        self.assertEqual(self.end(remover), 3)
        self.assertTrue(os.path.exists(installed))

    def answer_setup(self, what, key):
        """Answers a box of the installer once it has the keyboard."""
        window = wait_until(lambda: next((w for w in self.screen.windows() if w.title == "Tavrix - [Setup]"), None),
                            f"the installer's {what}")
        wait_until(lambda: self.screen.active() == window.id, f"the keyboard on the installer's {what}")
        if os.environ.get("TAVRIX_SHOTS"):
            self.screen.grab().save(os.path.join(os.environ["TAVRIX_SHOTS"], f"setup-{what}.png"))
        self.screen.press(key)
        wait_until(lambda: all(w.id != window.id for w in self.screen.windows()), f"the end of the installer's {what}")
