"""What the tests share: a session for each class, a user for each test."""

import os
import tempfile
import unittest

from PIL import Image
from driver import Home, Program, Session, wait_until
from driver.accessibility import Gone
from pictures import coded, find_view


class ProgramTest(unittest.TestCase):
    """Everything that a test starts ends with it. With TAVRIX_SHOTS naming a folder, the screen of a failed test is
    saved there."""

    session_options = {}

    @classmethod
    def setUpClass(cls):
        cls.session = Session(**cls.session_options)
        cls.addClassCleanup(cls.session.close)
        cls.screen = cls.session.screen

    def setUp(self):
        self.home = self.new_home()

    def new_home(self, **options):
        return Home(tempfile.mkdtemp(prefix="user.", dir=self.session.folder), **options)

    def start(self, *arguments, home=None, **options):
        program = Program(self.session, home or self.home, *arguments, **options)
        self.addCleanup(self._finish, program)
        return program

    def _finish(self, program):
        result = self._outcome.result
        failed = any(test is self for test, _ in [*result.failures, *result.errors])
        folder = os.environ.get("TAVRIX_SHOTS")
        if failed and folder:
            self.screen.grab().save(os.path.join(folder, self.id() + ".png"))
        program.close()

    def picture(self, width, height, name="picture.bmp"):
        """A coded picture: its file and its pixels."""
        image = coded(width, height)
        path = os.path.join(self.home.pictures, name)
        image.save(path)
        return path, image

    def open(self, width, height, name="picture.bmp", settings="", **options):
        """Starts the program with a picture on its command line; the program, its window, and the view of it."""
        path, image = self.picture(width, height, name)
        if settings:
            self.home.write_settings("[Viewer]\n" + settings)
        program = self.start(path, **options)
        window = program.main(path)
        return program, window, self.view(window, image)

    def view(self, window, image, **expected):
        """The view of a coded picture once it stands on the screen pixel by pixel, and as expected."""
        seen = []

        def look():
            found = find_view(self.screen, image, window)
            seen[:] = [found]
            return found if found and all(getattr(found, k) == v for k, v in expected.items()) else None

        return wait_until(look, lambda: f"a view with {expected or 'the picture'}; it is {seen[0]}")

    def wait_file(self, path, image, what):
        """Waits until a file holds exactly this picture."""
        def look():
            try:
                with Image.open(path) as seen:
                    return seen.size == image.size and seen.convert("RGB").tobytes() == image.tobytes()
            except (OSError, SyntaxError):
                return False
        wait_until(look, f"{path} holding the picture {what}")

    def dialog(self, program, title):
        window = program.window(title)
        wait_until(lambda: self.screen.active() == window.id or None, f"{title!r} becoming active")
        return program.wait(
            lambda: next((top for top in program.root().children() if top.name == title), None), title)

    def press(self, dialog, name):
        dialog.find("push button", name).act()

    def rows(self, dialog, name):
        """The rows of a list; None while they change."""
        try:
            return [row.name for row in dialog.find("list", name).children()]
        except Gone:
            return None

    def wait_rows(self, dialog, name, wanted):
        wait_until(lambda: self.rows(dialog, name) == wanted,
                   lambda: f"{wanted} in {name!r}; there are {self.rows(dialog, name)}")

    def status(self, dialog):
        return dialog.find("graphic", "Status").description

    def wait_status(self, dialog, wanted):
        wait_until(lambda: self.status(dialog) == wanted, lambda: f"{wanted!r}, not {self.status(dialog)!r}")

    def undo_entry(self, program):
        return next(entry for entry in program.menu_tree() if entry.name == "Edit").entries[0]

    def end_by_escape(self, program):
        self.screen.press("Escape")
        self.assertEqual(program.wait_end(), 0)
