"""Slide shows and the full screen view on the real display."""

import os

from PIL import Image, ImageChops

from driver import drive_path, wait_until
from support import ProgramTest

_BACKGROUND = (64, 0, 0)


class ShowTest(ProgramTest):
    def show_file(self, *pictures, interval=0, loop=False, name="show.tvs"):
        lines = ['"Tavrix Slide Show"', '"Version 1.5"', "0", '""', "0", "0", str(interval), "0", "0", "0",
                 str(-int(loop)), "0"]
        for picture in pictures:
            lines += [f'"{picture}"', '""']
        path = os.path.join(self.home.pictures, name)
        with open(path, "w", encoding="cp1252", newline="") as file:
            file.write("".join(line + "\r\n" for line in lines))
        return path

    def pictures(self):
        """A small picture, one that is wider than the screen, and one that is named as if it lay elsewhere."""
        _, small = self.picture(300, 200, "small.bmp")
        wide = Image.new("RGB", (2560, 512), (20, 160, 60))
        wide.save(os.path.join(self.home.pictures, "wide.bmp"))
        _, beside = self.picture(402, 302, "beside.bmp")
        return small, wide.resize((1280, 256)), beside

    def expected(self, image):
        """The screen with an image in its middle."""
        screen = Image.new("RGB", (self.screen.width, self.screen.height), _BACKGROUND)
        screen.paste(image, ((self.screen.width - image.width) // 2, (self.screen.height - image.height) // 2))
        return screen

    def shows(self, image, what):
        """Waits until the whole screen is the background with the image in its middle."""
        wanted = self.expected(image)
        wait_until(lambda: ImageChops.difference(self.screen.grab(), wanted).getbbox() is None,
                   lambda: f"{what} alone on the screen; it differs in "
                           f"{ImageChops.difference(self.screen.grab(), wanted).getbbox()}")

    def start_show(self, path, settings=""):
        self.home.write_settings("[Viewer]\nBackgroundColor=4\n" + settings)
        program = self.start(path)
        stage = program.window("Tavrix Full Screen View")
        wait_until(lambda: self.screen.active() == stage.id, "the keyboard on the stage")
        return program

    def test_three_pictures_are_stepped_through_to_the_end(self):
        small, wide, beside = self.pictures()
        path = self.show_file("small.bmp", drive_path(os.path.join(self.home.pictures, "wide.bmp")),
                              "D:\\elsewhere\\beside.bmp")
        program = self.start_show(path)
        self.shows(small, "the first picture")
        self.screen.press("Right")
        self.shows(wide, "the second picture")
        self.screen.press("space")
        self.shows(beside, "the third picture")
        self.screen.press("Home")
        self.shows(small, "the first picture again")
        self.screen.press("Left")
        self.shows(beside, "the last picture")
        self.screen.click(640, 100, button=3)
        self.assertEqual(program.wait_end(), 0)

    def test_a_show_plays_by_itself_and_a_key_ends_it(self):
        small, wide, beside = self.pictures()
        program = self.start_show(self.show_file("small.bmp", "wide.bmp", "beside.bmp", interval=1, loop=True))
        self.shows(wide, "the second picture")
        self.shows(beside, "the third picture")
        self.shows(small, "the first picture again")
        self.screen.press("Escape")
        self.assertEqual(program.wait_end(), 0)

    def test_the_navigator_leads_through_a_show(self):
        small, _, beside = self.pictures()
        program = self.start_show(self.show_file("small.bmp", "beside.bmp"),
                                  "ShowToolbar=TRUE\nToolbarX=300\nToolbarY=300\n")
        navigator = program.window("Tavrix - [Navigator]")

        def seen(image, what):
            wanted = self.expected(image).crop((0, 300, 1280, 1024))
            wait_until(lambda: ImageChops.difference(self.screen.grab(0, 300), wanted).getbbox() is None,
                       f"{what} below the navigator")

        seen(small, "the first picture")
        # The buttons stand in a row; the third one is Next, the fifth Stop.
        self.screen.click(navigator.x + 4 + 40 * 2 + 20, navigator.y + 12)
        seen(beside, "the second picture")
        self.screen.click(navigator.x + 4 + 40 * 4 + 20, navigator.y + 12)
        self.assertEqual(program.wait_end(), 0)

    def test_an_image_fills_the_screen_and_the_view_comes_back(self):
        self.home.write_settings("[Viewer]\nBackgroundColor=4\n")
        path, image = self.picture(300, 200)
        program = self.start(path)
        window = program.main(path)
        program.menu_entry("Options", "Full Screen View").act()
        stage = program.window("Tavrix Full Screen View")
        wait_until(lambda: self.screen.active() == stage.id, "the keyboard on the stage")
        self.assertEqual((stage.x, stage.y, stage.width, stage.height), (0, 0, 1280, 1024))
        self.shows(image, "the picture")
        self.screen.press("a")
        wait_until(lambda: "Tavrix Full Screen View" not in program.titles(), "the end of the stage")
        self.view(window, image)
        wait_until(lambda: self.screen.active() == window.id, "the keyboard on the main view")
        self.end_by_escape(program)

