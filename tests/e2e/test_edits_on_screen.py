"""What stands on the screen after an edit: in windows that do not size themselves, and where the edit was chosen from the
menu of the right mouse button over a selection."""

import os

from PIL import Image
from driver import wait_until
from pictures import coded, stretched
from support import ProgramTest


class ResizeTest(ProgramTest):
    def shows(self, view, picture):
        """Waits until a whole picture stands where the view of a picture began, with no bars beside it."""
        wait_until(lambda: self.screen.grab(view.screen_x, view.screen_y, *picture.size).tobytes()
                   == picture.tobytes(), "the whole picture")

    def test_a_maximised_window_shows_all_of_a_larger_picture(self):
        program, _, view = self.open(300, 200, settings="WindowMaximized=True\n")
        self.screen.press("4", "4")
        larger = stretched(stretched(coded(300, 200), (450, 300)), (675, 450))
        self.wait_file(os.path.join(self.home.temporary, "Untitled.BMP"), larger, "twice a half larger")
        self.shows(view, larger)
        self.assertEqual(program.root().all("scroll bar"), [])

    def test_a_window_of_its_own_size_gets_bars(self):
        program, _, view = self.open(300, 200, settings="AutosizeWindow=False\n")
        self.assertEqual(program.root().all("scroll bar"), [])
        self.screen.press("4", "4")
        program.wait(lambda: len(program.root().all("scroll bar")) == 2, "both bars")
        larger = stretched(stretched(coded(300, 200), (450, 300)), (675, 450))
        self.shows(view, larger.crop((0, 0, 500, 350)))
        self.screen.press("End")
        bars = program.root().all("scroll bar")
        program.wait(lambda: all(bar.value == bar.largest > 0 for bar in bars), "the end of both bars")

    def test_a_picture_at_its_end_is_not_scrolled_out_of_sight(self):
        program, window, view = self.open(1900, 1500, settings="AutosizeWindow=False\n")
        image = coded(1900, 1500)
        self.screen.press("End")
        self.view(window, image, x=1900 - view.width, y=1500 - view.height)
        self.screen.press("3", "3")
        smaller = stretched(stretched(image, (950, 750)), (475, 375))
        self.wait_file(os.path.join(self.home.temporary, "Untitled.BMP"), smaller, "twice half as large")
        self.shows(view, smaller)
        program.wait(lambda: program.root().all("scroll bar") == [], "no bars")


class ResizeOnMetacityTest(ResizeTest):
    session_options = {"window_manager": "metacity"}


class PopupOverSelectionTest(ProgramTest):
    def setUp(self):
        super().setUp()
        self.working = os.path.join(self.home.temporary, "Untitled.BMP")

    def select_and_open_menu(self):
        program, _, view = self.open(320, 240, settings="AutosizeWindow=False\n")
        x, y = view.screen_x, view.screen_y
        self.screen.drag((x + 40, y + 30), (x + 220, y + 170), held=["Shift"])
        image = coded(320, 240)
        wait_until(lambda: self.screen.grab(x, y, 320, 240).tobytes() != image.tobytes(), "the outline")
        self.screen.click(x + 20, y + 15, button=3)
        program.wait(program.popups, "the popup menu")
        return program, image

    def test_an_edit_leaves_no_outline_in_the_file(self):
        program, image = self.select_and_open_menu()
        self.screen.press("f")
        program.wait(lambda: len(program.popups()) == 2, "the menu of flips")
        self.screen.press("h")
        self.wait_file(self.working, image.transpose(Image.Transpose.FLIP_LEFT_RIGHT), "flipped")

    def test_copy_takes_what_was_selected(self):
        program, image = self.select_and_open_menu()
        self.screen.press("c")
        program.wait(lambda: not program.popups(), "the end of the menu")
        program.menu_entry("Edit", "Paste").act()
        # The copy stretches its source by a pixel; pasted, it stands in the middle of the picture.
        copied = stretched(image.crop((41, 31, 41 + 177, 31 + 137)), (178, 138))
        expected = image.copy()
        expected.paste(copied, (71, 51))
        self.wait_file(self.working, expected, "with what was selected in its middle")


class PopupOverSelectionOnMetacityTest(PopupOverSelectionTest):
    session_options = {"window_manager": "metacity"}
