"""The main view under window managers: its size, its place, and what it does about those that disagree."""

import os
import sys
import unittest

from driver import drive_path, wait_unchanged, wait_until
from driver.drop import DropSource
from pictures import coded
from support import ProgramTest

TWIPS = 15  # a pixel
LEAST = (4565, 4645)  # twips, frame included


class WindowTest(ProgramTest):

    def outer(self, window):
        """x, y, width and height of a window with its frame."""
        window = next(w for w in self.screen.windows() if w.id == window.id)
        left, right, top, bottom = self.screen.frame(window)
        return window.x - left, window.y - top, window.width + left + right, window.height + top + bottom

    def wait_outer(self, window, wanted):
        wait_until(lambda: self.outer(window) == wanted, lambda: f"a window at {wanted}, it is {self.outer(window)}")
        wait_unchanged(lambda: self.outer(window), "the window")
        self.assertEqual(self.outer(window), wanted)

    def bars(self, program):
        return program.root().all("scroll bar")

    def test_window_sizes_itself_to_the_picture(self):
        for size in ((640, 480), (400, 350), (1000, 700), (1200, 900)):
            with self.subTest(size):
                program, window, view = self.open(*size)
                self.assertEqual((view.x, view.y, view.width, view.height), (0, 0, *size))
                self.assertEqual(self.bars(program), [])
                x, y, width, height = self.outer(window)
                self.assertEqual((x, y), (0, 0))
                # Nothing but the frame, the menu and one pixel is about the picture.
                left, right, top, bottom = self.screen.frame(window)
                self.assertEqual(width, size[0] + left + right + 1)
                self.assertEqual(height, view.screen_y + size[1] + 1 + bottom)
                self.assertEqual(view.screen_x, left)
                self.end_by_escape(program)

    def test_small_picture_stands_at_the_top_left_of_the_smallest_window(self):
        program, window, view = self.open(100, 80)
        self.assertEqual((view.x, view.y, view.width, view.height), (0, 0, 100, 80))
        self.assertEqual(view.screen_x, window.x)
        self.assertEqual(self.bars(program), [])
        x, y, width, height = self.outer(window)
        self.assertEqual((x, y), (0, 0))
        self.assertAlmostEqual(width, LEAST[0] / TWIPS, delta=1)
        self.assertAlmostEqual(height, LEAST[1] / TWIPS, delta=1)

    def test_picture_larger_than_the_screen_takes_all_of_it(self):
        program, window, _ = self.open(2000, 1500)
        self.assertEqual(self.outer(window), (0, 0, self.screen.width, self.screen.height))
        self.assertEqual(len(self.bars(program)), 2)

    def test_picture_too_wide_or_too_high(self):
        program, window, view = self.open(2000, 600)
        self.assertEqual(self.outer(window)[2], self.screen.width)
        self.assertEqual((view.x, view.y, view.height), (0, 0, 600))
        self.assertEqual(len(self.bars(program)), 1)
        self.end_by_escape(program)
        program, window, view = self.open(600, 1500)
        self.assertEqual(self.outer(window)[3], self.screen.height)
        self.assertEqual((view.x, view.y, view.width), (0, 0, 600))
        self.assertEqual(len(self.bars(program)), 1)

    def test_window_keeps_its_size_when_it_is_told_to(self):
        _, window, view = self.open(1000, 900, settings="AutosizeWindow=False\n")
        self.assertEqual(self.outer(window), (0, 0, 9510 // TWIPS, 7110 // TWIPS))
        self.assertEqual((view.x, view.y), (0, 0))
        self.assertLess(view.width, 9510 // TWIPS)

    def test_saved_place_does_not_drift(self):
        place = (100, 120, 600, 500)
        keys = ("MainPosX", "MainPosY", "MainSizeX", "MainSizeY")
        saved = [str(n * TWIPS) for n in place]
        self.home.write_settings("[Viewer]\nSaveWindowSize=True\nAutosizeWindow=False\n"
                                 + "".join(f"{k}={v}\n" for k, v in zip(keys, saved, strict=True)))
        path, _ = self.picture(1000, 900)
        for arguments, picture in (((), None), ((path,), path), ((), None)):
            program = self.start(*arguments)
            window = program.main(picture)
            self.assertEqual(self.outer(window), place)
            self.end_by_escape(program)
            self.assertEqual([self.home.setting(key) for key in keys], saved)

    def test_moved_window_comes_back_where_it_was_left(self):
        self.home.write_settings("[Viewer]\nSaveWindowSize=True\nAutosizeWindow=False\n")
        program = self.start()
        window = program.main()
        self.screen.place(window, x=210, y=150)
        wait_until(lambda: self.outer(window)[:2] == (210, 150), "the move")
        self.screen.place(window, width=700, height=520)
        wait_until(lambda: self.outer(window)[2] >= 700, "the new size")
        place = wait_unchanged(lambda: self.outer(window), "the window")
        self.end_by_escape(program)
        program = self.start()
        self.wait_outer(program.main(), place)

    def test_unusable_places_are_not_taken(self):
        for values in ((0, 0, 4000, 7110), (-15, 0, 9510, 7110), (15000, 0, 9510, 7110)):
            with self.subTest(values):
                self.home.write_settings(
                    "[Viewer]\nSaveWindowSize=True\nAutosizeWindow=False\nMainPosX=%d\nMainPosY=%d\nMainSizeX=%d\n"
                    "MainSizeY=%d\n" % values)
                program = self.start()
                self.wait_outer(program.main(), (0, 0, 9510 // TWIPS, 7110 // TWIPS))
                self.end_by_escape(program)

    def test_window_dragged_too_small_snaps_back(self):
        program = self.start()
        window = program.main()
        x, y, width, height = self.outer(window)
        self.screen.drag((x + width - 2, y + height - 2), (x + 150, y + 160), steps=20)
        wait_until(lambda: self.outer(window)[2] < width, "the window's new size")
        seen = wait_unchanged(lambda: self.outer(window), "the window")
        # A window that asks for a size during a drag is displaced by its frame under some window managers.
        left, _, top, _ = self.screen.frame(window)
        self.assertIn(seen[:2], ((0, 0), (-left, -top)))
        self.assertAlmostEqual(seen[2], LEAST[0] / TWIPS, delta=1)
        self.assertAlmostEqual(seen[3], LEAST[1] / TWIPS, delta=1)
        self.assertGreaterEqual(seen[2] * TWIPS + TWIPS, LEAST[0])

    def test_picture_follows_the_window(self):
        program, window, _ = self.open(640, 480)
        image = coded(640, 480)
        self.screen.place(window, width=400, height=400)
        wait_until(lambda: len(self.bars(program)) == 2, "both bars")
        view = wait_unchanged(lambda: self.view(window, image), "the smaller view")
        self.assertLess(view.width, 400)
        self.assertEqual((view.x, view.y), (0, 0))
        self.screen.press("End")
        self.view(window, image, x=640 - view.width, y=480 - view.height)
        self.screen.place(window, width=900, height=800)
        self.view(window, image, x=0, y=0, width=640, height=480)
        wait_until(lambda: not self.bars(program), "the end of the bars")

    def test_maximised_window_stays_and_keeps_the_old_place(self):
        program, window, _ = self.open(640, 480, settings="WindowMaximized=True\nMainPosX=150\nMainSizeX=9000\n")
        wait_until(lambda: "_NET_WM_STATE_MAXIMIZED_VERT" in self.screen.state(window), "a maximised window")
        self.assertEqual(self.outer(window), (0, 0, self.screen.width, self.screen.height))
        self.end_by_escape(program)
        self.assertEqual((self.home.setting("MainPosX"), self.home.setting("MainSizeX")), ("150", "9000"))


class DropTest(ProgramTest):

    def test_dropped_picture_is_opened(self):
        program = self.start()
        window = program.main()
        path, image = self.picture(500, 400, "dropped & more.bmp")
        self.assertTrue(DropSource(self.screen, [path]).drop_on(window))
        self.view(program.main(path), image, x=0, y=0, width=500, height=400)

    def test_dropped_on_a_picture(self):
        program, window, _ = self.open(400, 350)
        path, image = self.picture(500, 400, "second.bmp")
        self.assertTrue(DropSource(self.screen, [path]).drop_on(window))
        self.view(program.main(path), image, x=0, y=0, width=500, height=400)

    def test_what_cannot_be_dropped(self):
        program = self.start()
        window = program.main()
        shown = "files must be imported into Tavrix and then saved as a supported format first, unable to open:"
        for name, text in ((".", "You may not drop a folder here, unable to open..."),
                           ("a.TGA", f".TGA {shown}\n\n%s"), ("b.PCX", f".PCX {shown}\n\n%s")):
            with self.subTest(name):
                path = os.path.join(self.home.pictures, name) if name != "." else self.home.pictures
                if name != ".":
                    with open(path, "wb") as file:
                        file.write(b"x")
                DropSource(self.screen, [path]).drop_on(window)
                box = program.message_box()
                wanted = text % drive_path(path) if "%s" in text else text
                self.assertEqual((box.title, box.text, box.buttons), ("Tavrix", wanted, ["OK"]))
                box.press("OK")

    def test_dropped_file_that_is_no_picture(self):
        program, window, _ = self.open(400, 350)
        path = os.path.join(self.home.pictures, "no.jpg")
        with open(path, "wb") as file:
            file.write(b"no picture")
        DropSource(self.screen, [path]).drop_on(window)
        box = program.message_box()
        self.assertEqual((box.title, box.buttons), ("Tavrix - [Drag & Drop Error]", ["OK"]))
        self.assertTrue(box.text.startswith("Unable to display image, an unexpected error occurred during the drag and "
                                            "drop operation.\n\n"), box.text)
        box.press("OK")
        program.main()
        self.assertEqual(program.titles(), ["Tavrix"])


class StubbornTest(ProgramTest):
    """Under a window manager that never gives the size that is asked for."""

    session_options = {"window_manager": False}

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        folder = os.path.dirname(__file__)
        cls.session.children.start([sys.executable, "-m", "driver.stubborn", "250", "200"],
                                   {**cls.session.environment, "PYTHONPATH": folder},
                                   os.path.join(cls.session.folder, "manager.log"))
        wait_until(lambda: cls.screen.root_property("TAVRIX_REFUSED"), "the window manager")

    def refused(self):
        return self.screen.root_property("TAVRIX_REFUSED")[0]

    def test_no_loop(self):
        path, image = self.picture(640, 480)
        program = self.start(path)
        window = program.main(path)
        view = self.view(window, image, x=0, y=0)
        self.assertLess(view.width, 251)
        count = wait_unchanged(self.refused, "the number of requests", quiet=1.0)
        self.assertLess(count, 40)
        wait_unchanged(lambda: self.processor_ticks(program), "the program's work", quiet=0.5)
        self.end_by_escape(program)

    def processor_ticks(self, program):
        with open(f"/proc/{program.process.pid}/stat", encoding="ascii") as file:
            fields = file.read().rpartition(")")[2].split()
        return int(fields[11]) + int(fields[12])


if __name__ == "__main__":
    unittest.main()
