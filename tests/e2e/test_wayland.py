"""The program on a Wayland display, where nothing of an X server is there. The display has no keyboard and no pointer, so
that commands come by the accessibility bus."""

import os
import signal
import unittest

from driver.wayland import WaylandSession, missing
from pictures import coded, find_view
from test_show import StageTest


@unittest.skipIf(missing(), missing())
class WaylandTest(StageTest):
    @classmethod
    def setUpClass(cls):
        cls.session = WaylandSession()
        cls.addClassCleanup(cls.session.close)
        cls.screen = cls.session.screen

    def seen(self, program, image, what):
        """The view of a coded picture, once it stands there pixel by pixel."""
        return program.wait(lambda: find_view(self.screen, image, self.screen), what)

    def top(self, program, title):
        return program.wait(lambda: next((top for top in program.root().children() if top.name == title), None), title)

    def end(self, program):
        program.process.send_signal(signal.SIGTERM)
        self.assertEqual(program.wait_end(), 0, program.output())

    def test_the_main_view_shows_a_picture_at_its_size(self):
        path, image = self.picture(400, 330)
        program = self.start(path)
        view = self.seen(program, image, "the picture")
        self.assertEqual((view.x, view.y, view.width, view.height), (0, 0, *image.size))
        self.end(program)

    def test_commands_that_are_an_x_servers_business_do_no_harm(self):
        path, image = self.picture(400, 330)
        program = self.start(path)
        self.seen(program, image, "the picture")
        program.menu_entry("Options", "Topmost Window").act()
        program.wait(lambda: program.menu_entry("Options", "Topmost Window").has("checked"), "the topmost window")
        self.seen(program, image, "the picture in a topmost window")
        program.menu_entry("File", "Import", "Capture Entire Desktop").act()
        # No portal lets it look here, and it says so; the window comes back without an image.
        box = program.message_box()
        self.assertEqual(box.text, "Unable to capture desktop window...")
        box.press("OK")
        program.wait(lambda: self.top(program, "Tavrix").has("showing"), "the main view")
        self.end(program)

    def test_the_editor_opens(self):
        program = self.start("SHOW")
        editor = self.top(program, "Tavrix - [Slide Show Editor]")
        program.wait(lambda: editor.has("showing"), "the editor")
        before = len(set(self.screen.grab().getdata()))
        self.assertGreater(before, 2, "more than a background stands there")
        self.end(program)

    def test_a_show_covers_the_screen(self):
        image = coded(500, 400)
        image.save(os.path.join(self.home.pictures, "slide.bmp"))
        program = self.start("SCRNSAVE", self.show_file("slide.bmp", interval=60))
        view = self.seen(program, image, "the slide")
        self.assertEqual((view.width, view.height), image.size)
        ground = self.screen.grab().getpixel((2, 2))
        self.assertNotEqual(ground, (0x20, 0x40, 0x60), "the stage, and not the desktop")
        self.end(program)


if __name__ == "__main__":
    unittest.main()
