"""A window is no larger than the part of the screen that is for windows, and stands there with its frame."""

from driver import wait_unchanged, wait_until
from support import ProgramTest


class FittingTest(ProgramTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.area = (0, 0, cls.screen.width, cls.screen.height)

    def outer(self, find):
        """The whole rectangle of a window with its frame, once it has come to rest."""
        def look():
            window = find()
            left, right, top, bottom = self.screen.frame(window)
            return (window.x - left, window.y - top, window.width + left + right, window.height + top + bottom)
        return wait_unchanged(look, "the window with its frame")

    def assert_inside(self, place):
        x, y, width, height = place
        left, top, right, bottom = self.area
        self.assertTrue(x >= left and y >= top and x + width <= right and y + height <= bottom,
                        f"{place} is not inside {self.area}")

    def assert_fits(self, find):
        """Inside the area, in its corner."""
        place = self.outer(find)
        self.assert_inside(place)
        self.assertEqual(place[:2], self.area[:2])

    def test_pictures_larger_than_the_screen(self):
        for size in ((250, 3000), (3000, 250), (1250, 1000), (3000, 3000), (1000, 1010)):
            with self.subTest(size=size):
                path, _ = self.picture(*size, "picture%dx%d.bmp" % size)
                program = self.start(path)
                self.assert_fits(lambda: program.main(path))
                program.close()

    def test_the_end_of_a_high_picture_can_be_reached(self):
        path, image = self.picture(250, 2000)
        program = self.start(path)
        window = program.main(path)
        self.assert_fits(lambda: program.main(path))
        self.screen.press("End")
        last = image.crop((0, 2000 - 40, 200, 2000))  # the button of the full screen view stands to the right

        def at_end():
            seen = self.screen.grab(window.x, window.y, 200, window.height)
            rows = [y for y in range(seen.height) if seen.crop((0, y, 200, y + 1)).tobytes()
                    == last.crop((0, 39, 200, 40)).tobytes()]
            return rows and seen.crop((0, rows[0] - 39, 200, rows[0] + 1)).tobytes() == last.tobytes()
        wait_until(at_end, "the end of the picture")

    def test_a_capture_of_the_screen_leaves_the_title_in_sight(self):
        program, window, _ = self.open(400, 350)
        for time in range(2):
            program.menu_entry("File", "Import", "Capture Entire Desktop").act()
            if time:
                program.message_box().press("Yes")
            wait_until(lambda: all(w.id != window.id for w in program.windows()), "the window being hidden")
            wait_until(lambda: self.screen.active() == window.id, "the keyboard on the window")
            title = wait_until(lambda: next((t for t in program.titles() if "Untitled.BMP" in t), None), "the capture")
            self.assert_fits(lambda: program.window(title))
        self.screen.press("1")  # a smaller picture: the window fits itself again
        wait_until(lambda: program.window(title).width < self.screen.width * 0.9, "the smaller window")
        self.assert_fits(lambda: program.window(title))


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
