"""The desktop around the program: its picture with and without the program's window, and its wallpaper."""

import os
import subprocess
import sys
import unittest

from PIL import Image, ImageChops
from driver import wait_until
from pictures import coded
from support import ProgramTest

DRIVER = os.path.dirname(os.path.abspath(__file__))


def stretched(image, size):
    """Nearest neighbour: pixel i of n is pixel floor(i * m / n) of m."""
    columns = [x * image.width // size[0] for x in range(size[0])]
    rows = [y * image.height // size[1] for y in range(size[1])]
    source, result = image.load(), Image.new("RGB", size)
    result.putdata([source[x, y] for y in rows for x in columns])
    return result


class DesktopTest(ProgramTest):
    def setUp(self):
        super().setUp()
        self.home.write_settings("[Viewer]\nAutosizeWindow=False\n")
        self.working = os.path.join(self.home.temporary, "Untitled.BMP")

    def read(self, path):
        try:
            with Image.open(path) as image:
                return image.convert("RGB")
        except (OSError, SyntaxError):
            return None

    def wait_file(self, path, image):
        wait_until(lambda: (seen := self.read(path)) and seen.size == image.size and
                   seen.tobytes() == image.tobytes(), f"{path} holding the picture")


    def backdrop(self, *kind):
        """Another program's window, below those that come later."""
        command = [sys.executable, "-m", "driver.backdrop", "60", "40", "1000", "800", *kind]
        process = self.session.children.start(command, self.screen.environment,
                                              os.path.join(self.session.folder, "backdrop.log"), cwd=DRIVER)
        self.addCleanup(self.session.children.end, process)
        wait_until(lambda: (self.screen.root_property("TAVRIX_DRAWN") or [0])[0] == process.pid, "the window below")


class CaptureBase(DesktopTest):
    exact = True  # the screen shows every colour as it is

    def shown_above(self):
        """The program with a picture, once it is seen and has the keyboard."""
        path, image = self.picture(300, 200)
        program = self.start(path)
        window = program.main(path)
        if self.exact:
            self.view(window, image)
        if self.session_options.get("window_manager", True):
            wait_until(lambda: self.screen.active() == window.id, "the keyboard in the main view")
        return program, window

    def capture_and_compare(self):
        self.backdrop()
        without = self.screen.grab()
        self.assertGreater(len(without.getcolors(1 << 20)), 7)
        program, window = self.shown_above()
        before = (window.x, window.y, window.width, window.height)
        if self.exact:
            self.screen.press("Alt+f", "m", "d")  # so there are open menus to go away too
        else:
            program.menu_entry("File", "Import", "Capture Entire Desktop").act()
        self.wait_file(self.working, without)
        window = program.main(self.working)
        self.assertEqual((window.x, window.y, window.width, window.height), before)
        self.assertTrue(program.running())
        return program, window, without


class CaptureTest(CaptureBase):
    def test_the_screen_without_the_program_is_captured(self):
        program, window, captured = self.capture_and_compare()
        wait_until(lambda: self.screen.active() == window.id, "the keyboard in the main view")
        undo = next(entry for entry in program.menu_tree() if entry.name == "Edit").entries[0]
        self.assertEqual((undo.name, undo.enabled), ("Can't Undo", False))
        # The capture is an image like any other.
        self.screen.press("Alt+Down")
        program.wait(lambda: (turned := self.read(self.working)) and turned.tobytes() != captured.tobytes(),
                     "the turned image")

    def test_no_leaves_the_window_where_it_is(self):
        self.backdrop()
        program, window = self.shown_above()
        self.screen.press("Alt+Down")
        program.main(self.working)
        shown = wait_until(lambda: self.read(self.working), "the working file")
        self.screen.press("Alt+f", "m", "d")
        program.message_box().press("No")
        self.assertIn(window.id, [w.id for w in self.screen.windows()])
        self.assertEqual(self.read(self.working).tobytes(), shown.tobytes())


    def test_the_window_comes_back_as_it_was(self):
        for settings, states in (("TopMostWindow=True", {"_NET_WM_STATE_ABOVE"}),
                                 ("WindowMaximized=True",
                                  {"_NET_WM_STATE_MAXIMIZED_VERT", "_NET_WM_STATE_MAXIMIZED_HORZ"})):
            with self.subTest(settings):
                self.home = self.new_home()
                program, window, _ = self.open(300, 200, settings="AutosizeWindow=False\n" + settings)
                wait_until(lambda: states <= self.screen.state(window), f"a window with {states}")
                program.menu_entry("File", "Import", "Capture Entire Desktop").act()
                window = program.main(os.path.join(self.home.temporary, "Untitled.BMP"))
                wait_until(lambda: states <= self.screen.state(window), f"the window with {states} again")
                self.assertEqual(len([w for w in program.windows() if not w.popup]), 1)
                program.close()


class CaptureOf16BitsTest(CaptureBase):
    session_options = {"depth": 16}
    exact = False

    def test_the_screen_without_the_program_is_captured(self):
        self.capture_and_compare()


class CaptureWithoutWindowManagerTest(CaptureBase):
    session_options = {"window_manager": False}

    def test_the_screen_without_the_program_is_captured(self):
        self.capture_and_compare()


class WallpaperTest(DesktopTest):
    NAMES = ("_XROOTPMAP_ID", "ESETROOT_PMAP_ID")
    OPTIONS = ("Tile Image", "Center Image")
    KEYS = {"Tile Image": "Alt+t", "Center Image": "Alt+e", "Strech Image": "Alt+s", "Preserve Aspect": "Alt+a"}

    def set(self, program, *choices):
        """Opens the dialog, sees to it by its letters that just these of its choices are made, and presses OK."""
        program.menu_entry("File", "Export", "Set Desktop Wallpaper").act()
        window = program.window("Set Desktop Wallpaper")
        wait_until(lambda: self.screen.active() == window.id, "the keyboard in the dialog")
        dialog = program.wait(lambda: next((top for top in program.root().children()
                                            if top.name == "Set Desktop Wallpaper"), None), "the dialog")
        shown = {name: dialog.find(None, name) for name in self.KEYS}
        for name, choice in shown.items():
            if choice.has("checked") != (name in choices) and (name in choices or name not in self.OPTIONS):
                self.screen.press(self.KEYS[name])
        for name, choice in shown.items():
            wait_until(lambda: choice.has("checked") == (name in choices), name)
        self.screen.press("Alt+o")
        program.wait(lambda: "Set Desktop Wallpaper" not in program.titles(), "the end of the dialog")

    def root_pixmap(self):
        numbers = {tuple(self.screen.root_property(name) or ()) for name in self.NAMES}
        self.assertEqual(len(numbers), 1)
        return numbers.pop()

    def wallpaper_file(self):
        return os.path.join(self.home.environment["XDG_DATA_HOME"], "tavrix", "windows", "Tavrix Wallpaper.BMP")

    def test_the_root_window_of_a_plain_window_manager(self):
        size = (self.screen.width, self.screen.height)
        path, image = self.picture(300, 190)
        tiled, centred = Image.new("RGB", size), Image.new("RGB", size)
        for top in range(0, size[1], 190):
            for left in range(0, size[0], 300):
                tiled.paste(image, (left, top))
        centred.paste(image, ((size[0] - 300) // 2, (size[1] - 190) // 2))
        fitted = stretched(image, (1280, 811))
        letterbox = Image.new("RGB", size)
        letterbox.paste(fitted, (0, (size[1] - 811) // 2))
        program = self.start(path)
        program.main(path)
        former = ()
        for choices, made, expected in (
                (("Tile Image",), image, tiled),
                (("Center Image",), image, centred),
                (("Tile Image", "Strech Image"), stretched(image, size), stretched(image, size)),
                (("Center Image", "Strech Image", "Preserve Aspect"), fitted, letterbox)):
            with self.subTest(choices):
                self.set(program, *choices)
                self.assertEqual(self.read(self.wallpaper_file()).tobytes(), made.tobytes())
                number = wait_until(lambda: (now := self.root_pixmap()) != former and now, "a pixmap of the root")
                self.assertIsNone(ImageChops.difference(self.screen.pixmap(number[0]), expected).getbbox())
                former = number

        # It can be brought in again, and outlives the program.
        program.menu_entry("File", "Import", "Get Desktop Wallpaper").act()
        self.wait_file(self.working, fitted)
        program.main(self.working)
        program.kill()
        wait_until(lambda: self.screen.grab().tobytes() == letterbox.tobytes(), "the wallpaper alone")

        program = self.start()
        program.main()
        program.menu_entry("File", "Export", "Clear Desktop Wallpaper").act()
        box = program.message_box()
        self.assertIn("Tavrix Wallpaper.BMP", box.text)
        box.press("Yes")
        program.menu_entry("File", "Export", "Clear Desktop Wallpaper").act()
        self.assertEqual(program.message_box().text,
                         "Nothing to clear, desktop wallpaper is currently not in use...")
        self.assertEqual(self.root_pixmap(), ())
        program.kill()
        wait_until(lambda: self.screen.grab().getcolors() == [(size[0] * size[1], (0, 0, 0))], "a black screen")

    def test_a_root_window_that_a_desktop_covers_is_left_alone(self):
        self.backdrop("desktop")
        path, image = self.picture(300, 190)
        program = self.start(path)
        program.main(path)
        program.menu_entry("File", "Export", "Set Desktop Wallpaper").act()
        window = program.window("Set Desktop Wallpaper")
        wait_until(lambda: self.screen.active() == window.id, "the keyboard in the dialog")
        self.screen.press("Alt+o")
        box = program.message_box()
        self.assertEqual(box.text, "Unable to change the desktop wallpaper, this desktop does not let a program do "
                                   "that...")
        box.press("OK")
        program.wait(lambda: "Set Desktop Wallpaper" not in program.titles(), "the end of the dialog")
        self.assertEqual(self.root_pixmap(), ())

    def test_gnome_is_told_and_asked(self):
        environment = {"XDG_CURRENT_DESKTOP": "ubuntu:GNOME", "GSETTINGS_BACKEND": "keyfile"}
        everything = {**self.session.environment, **self.home.environment, **environment}

        def settings(*arguments):
            return subprocess.run(["gsettings", *arguments], env=everything, check=True, capture_output=True,
                                  text=True).stdout.strip()

        path, image = self.picture(300, 190)
        program = self.start(path, environment=environment)
        program.main(path)
        self.set(program, "Tile Image")
        address = "'file://" + os.path.realpath(self.wallpaper_file()).replace(" ", "%20") + "'"
        background = "org.gnome.desktop.background"
        for key in ("picture-uri", "picture-uri-dark"):
            self.assertEqual(settings("get", background, key), address)
        self.assertEqual(settings("get", background, "picture-options"), "'wallpaper'")
        self.assertEqual(self.root_pixmap(), ())
        self.set(program, "Center Image")
        self.assertEqual(settings("get", background, "picture-options"), "'centered'")

        # The user chooses another one.
        other = os.path.join(self.home.pictures, "other's.bmp")
        coded(70, 30).save(other)
        settings("set", background, "picture-uri", '"file://' + other + '"')
        program.menu_entry("File", "Import", "Get Desktop Wallpaper").act()
        self.wait_file(self.working, coded(70, 30))
        program.main(self.working)

        program.menu_entry("File", "Export", "Clear Desktop Wallpaper").act()
        box = program.message_box()
        self.assertTrue(box.text.endswith("\\other's.bmp"), box.text)
        box.press("Yes")
        program.wait(lambda: settings("get", background, "picture-options") == "'none'", "no wallpaper")
        self.assertEqual(settings("get", background, "picture-uri"), "''")
        program.menu_entry("File", "Import", "Get Desktop Wallpaper").act()
        program.message_box().press("Yes")  # the image has not been saved
        self.assertEqual(program.message_box().text,
                         "Nothing to display, desktop wallpaper is currently not in use...")


if __name__ == "__main__":
    unittest.main()
