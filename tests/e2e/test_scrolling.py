"""A picture larger than the view, and the ways to move it."""

import unittest

from pictures import coded
from support import ProgramTest

SIZE = (2000, 1500)


class ScrollingTest(ProgramTest):

    def setUp(self):
        super().setUp()
        self.program, self.window, self.first = self.open(*SIZE)
        self.image = coded(*SIZE)
        self.last_x, self.last_y = SIZE[0] - self.first.width, SIZE[1] - self.first.height

    def wait_at(self, x, y):
        return self.view(self.window, self.image, x=x, y=y)

    def press_from(self, key, x, y):
        self.screen.press(key)
        self.wait_at(x, y)

    def bars(self):
        """The upright and the level bar."""
        bars = self.program.root().all("scroll bar")
        self.assertEqual(len(bars), 2)
        upright = max(bars, key=lambda bar: bar.extents[3] - bar.extents[2])
        return upright, bars[1 - bars.index(upright)]

    def small_change(self):
        """What one press of Down moves. The first key after the start has to arrive without a click before it."""
        self.screen.press("Down")
        return self.program.wait(lambda: getattr(self.view(self.window, self.image), "y"), "the picture to move")

    def test_arrows(self):
        small = self.small_change()
        self.assertLess(small, self.first.height // 4)
        upright, level = self.bars()
        self.assertEqual(upright.value, upright.step)
        self.assertAlmostEqual(small / self.last_y, upright.value / upright.largest, delta=0.002)
        for key, x, y in (("Down", 0, 2 * small), ("Right", small, 2 * small), ("Right", 2 * small, 2 * small),
                          ("Up", 2 * small, small), ("Left", small, small), ("Up", small, 0), ("Up", small, 0),
                          ("Left", 0, 0), ("Left", 0, 0)):
            self.press_from(key, x, y)
        self.assertEqual((upright.value, level.value), (0, 0))

    def test_control_moves_a_view(self):
        y = min(self.first.height, self.last_y)
        x = min(self.first.width, self.last_x)
        self.press_from("Ctrl+Down", 0, y)
        self.press_from("Ctrl+Right", x, y)
        self.press_from("Ctrl+Up", x, max(0, y - self.first.height))
        self.press_from("Ctrl+Left", max(0, x - self.first.width), max(0, y - self.first.height))

    def test_control_and_shift_move_a_little(self):
        small = self.small_change()
        self.press_from("Ctrl+Shift+Down", 0, 2 * small)
        self.press_from("Ctrl+Shift+Up", 0, small)

    def test_pages_and_ends(self):
        self.press_from("End", self.last_x, self.last_y)
        self.press_from("Home", 0, 0)
        self.press_from("Page_Down", 0, min(self.first.height, self.last_y))
        self.press_from("Page_Up", 0, max(0, min(self.first.height, self.last_y) - self.first.height))

    def test_bars_by_pointer(self):
        small = self.small_change()
        upright, level = self.bars()
        x, y, width, height = upright.extents
        self.screen.click(x + width // 2, y + height - width // 2)
        self.wait_at(0, 2 * small)
        self.screen.click(x + width // 2, y + width // 2)
        self.wait_at(0, small)
        self.screen.click(x + width // 2, y + height - 2 * width)
        self.wait_at(0, min(self.last_y, small + self.first.height))

        x, y, width, height = level.extents
        self.screen.click(x + width - height // 2, y + height // 2)
        after = self.program.wait(lambda: self.view(self.window, self.image).x, "the picture to move")
        self.assertEqual(after, small)

        # The bars have not kept the keyboard.
        self.screen.press("Home")
        self.wait_at(0, 0)
        self.press_from("Down", 0, small)

    def test_dragging_a_bar_scrolls_on_the_way(self):
        upright, _ = self.bars()
        x, y, width, height = upright.extents
        self.screen.drag((x + width // 2, y + height // 4), (x + width // 2, y + height - 1))
        self.wait_at(0, self.last_y)

    def test_wheel(self):
        self.screen.click(*self.window.centre, button=5)
        moved = self.program.wait(lambda: self.view(self.window, self.image).y, "the picture to move")
        self.screen.click(*self.window.centre, button=4)
        self.wait_at(0, 0)
        self.assertLess(moved, self.first.height)


class FittingTest(ProgramTest):

    def test_keys_do_nothing_without_bars(self):
        program, window, view = self.open(640, 480)
        self.assertEqual(program.root().all("scroll bar"), [])
        self.screen.press("Down", "Ctrl+Down", "End", "Page_Down", "Right")
        image = coded(640, 480)
        self.assertEqual(self.view(window, image), view)
        self.assertTrue(program.running())


if __name__ == "__main__":
    unittest.main()
