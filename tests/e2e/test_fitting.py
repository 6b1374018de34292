"""A window is no larger than the part of the screen that is for windows, and stands there with its frame."""

from driver import wait_unchanged, wait_until
from support import ProgramTest


class FittingTest(ProgramTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.area = (0, 0, cls.screen.width, cls.screen.height)

    def outer(self, program, picture):
        """The window's whole rectangle with its frame, once it has come to rest."""
        def look():
            window = program.main(picture)
            left, right, top, bottom = self.screen.frame(window)
            return (window.x - left, window.y - top, window.width + left + right, window.height + top + bottom)
        return wait_unchanged(look, "the window with its frame")

    def assert_inside(self, place):
        x, y, width, height = place
        left, top, right, bottom = self.area
        self.assertTrue(x >= left and y >= top and x + width <= right and y + height <= bottom,
                        f"{place} is not inside {self.area}")

    def assert_fits(self, program, picture):
        """Inside the area, in its corner."""
        place = self.outer(program, picture)
        self.assert_inside(place)
        self.assertEqual(place[:2], self.area[:2])
        return place

    def test_pictures_larger_than_the_screen(self):
        for size in ((250, 3000), (3000, 250), (1250, 1000), (3000, 3000), (1000, 1010)):
            with self.subTest(size=size):
                path, _ = self.picture(*size, "picture%dx%d.bmp" % size)
                program = self.start(path)
                self.assert_fits(program, path)
                program.close()

    def test_the_end_of_a_high_picture_can_be_reached(self):
        path, image = self.picture(250, 2000)
        program = self.start(path)
        window = program.main(path)
        self.assert_fits(program, path)
        self.screen.press("End")
        last = image.crop((0, 2000 - 40, 200, 2000))  # the button of the full screen view stands to the right

        def at_end():
            seen = self.screen.grab(window.x, window.y, 200, window.height)
            rows = [y for y in range(seen.height) if seen.crop((0, y, 200, y + 1)).tobytes()
                    == last.crop((0, 39, 200, 40)).tobytes()]
            return rows and seen.crop((0, rows[0] - 39, 200, rows[0] + 1)).tobytes() == last.tobytes()
        wait_until(at_end, "the end of the picture")

    def test_a_capture_of_the_screen_leaves_the_title_in_sight(self):
        program, _, _ = self.open(400, 350)
        for _ in range(3):
            program.menu_entry("File", "Import", "Capture Entire Desktop").act()
            working = wait_until(lambda: next((t for t in program.titles() if "Untitled.BMP" in t), None), "the capture")
            window = program.window(working)
            wait_until(lambda: self.screen.active() == window.id, "the keyboard on the window")

            def look():
                window = program.window(working)
                left, right, top, bottom = self.screen.frame(window)
                return (window.x - left, window.y - top, window.width + left + right, window.height + top + bottom)
            place = wait_unchanged(look, "the window with its frame")
            self.assert_inside(place)
            self.assertEqual(place[:2], self.area[:2])
            self.screen.press("Alt+Right")  # another picture: the window fits itself again
            wait_unchanged(look, "the turned picture's window")
            self.assert_inside(look())
            program.menu_entry("File", "Import", "Capture Entire Desktop").act()
            box = program.message_box()
            box.press("Yes")


class MetacityFittingTest(FittingTest):
    session_options = {"window_manager": "metacity"}


class PanelFittingTest(FittingTest):
    """With a panel at the top of the screen."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.screen.add_panel(40)
        cls.area = (0, 40, cls.screen.width, cls.screen.height)


class MetacityPanelFittingTest(PanelFittingTest):
    session_options = {"window_manager": "metacity"}
