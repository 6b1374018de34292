"""The main view's automatic size on screens with more pixels to the inch: the pictures' pixels are the screen's."""

import unittest

from driver.drop import DropSource
from support import ProgramTest

TWIPS = 15  # a pixel, at a scale of 1
LEAST_HEIGHT = 4645  # twips


class ScaleTest(ProgramTest):
    session_options = {"size": (1600, 1300)}

    def start_at(self, scale, *arguments):
        return self.start(*arguments, environment={"QT_SCALE_FACTOR": str(scale)})

    def bars(self, program):
        return program.root().all("scroll bar")

    def test_picture_that_fits_stands_whole(self):
        for scale in (1, 1.25, 1.5, 1.75, 2, 2.5):
            program = self.start_at(scale)
            window = program.main()
            # At the larger scales the pictures that are lower than the least window are larger, too.
            for size in ((900, 980), (901, 981), (1001, 1023), (1203, 1107)):
                with self.subTest(scale=scale, size=size):
                    path, image = self.picture(*size, f"{size[0]}.bmp")
                    self.assertTrue(DropSource(self.screen, [path]).drop_on(window))
                    window = program.main(path)
                    view = self.view(window, image)
                    self.assertEqual((view.x, view.y, view.width, view.height), (0, 0, *size))
                    self.assertEqual(self.bars(program), [])
            self.end_by_escape(program)

    def test_low_picture_takes_its_bare_width(self):
        scale, size = 2, (900, 600)  # 4500 twips high
        path, image = self.picture(*size)
        program = self.start_at(scale, path)
        window = program.main(path)
        left, right, top, bottom = self.screen.frame(window)
        self.assertEqual(window.width, size[0] - left - right)
        self.assertAlmostEqual(window.height, LEAST_HEIGHT / TWIPS * scale - top - bottom, delta=scale)
        view = self.view(window, image)
        self.assertEqual((view.x, view.y), (0, 0))
        self.assertLess(view.width, window.width)
        self.assertEqual(len(self.bars(program)), 2)


if __name__ == "__main__":
    unittest.main()
