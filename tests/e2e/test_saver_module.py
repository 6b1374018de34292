"""The show as a module of XScreenSaver, in windows that the tests make."""

import os
import signal
import time
from xml.etree import ElementTree

from PIL import Image, ImageChops

from driver import drive_path, wait_until
from driver.host import HostWindow
from driver.program import PROGRAM
from test_show import StageTest

MODULE = os.environ.get("TAVRIX_SAVER") or os.path.join(os.path.dirname(PROGRAM), "tavrix-saver")
_DESCRIPTION = os.path.join(os.path.dirname(__file__), "..", "..", "src", "app", "saver", "tavrix-saver.xml")
_BACKGROUND = (64, 0, 0)


class SaverModuleTest(StageTest):
    def host(self, *place):
        window = HostWindow(self.screen, *place)
        self.addCleanup(window.close)
        return window

    def start_module(self, *arguments, host=None):
        self._log = os.path.join(self.home.folder, "module.log")
        environment = {**self.session.environment, **self.home.environment}
        if host is not None:
            environment["XSCREENSAVER_WINDOW"] = hex(host.id)
        process = self.session.children.start([MODULE, *arguments], environment, self._log, cwd=self.home.folder)
        self.addCleanup(self.session.children.end, process)
        return process

    def show(self, *pictures, interval=60, settings=""):
        self.home.write_settings("[Viewer]\nBackgroundColor=4\n" + settings)
        return self.show_file(*pictures, interval=interval)

    def shows_in(self, host, image, what):
        """Waits until a host holds the background with the image in its middle, and nothing else."""
        def difference():
            wanted = Image.new("RGB", (host.width, host.height), _BACKGROUND)
            wanted.paste(image, ((host.width - image.width) // 2, (host.height - image.height) // 2))
            return ImageChops.difference(host.grab(), wanted).getbbox()
        wait_until(lambda: difference() is None, lambda: f"{what} in the window; it differs in {difference()}")

    def ends(self, process):
        return wait_until(lambda: (process.poll(),) if process.poll() is not None else None, "the module's end")[0]

    def log(self):
        with open(self._log, encoding="utf-8", errors="replace") as file:
            return file.read()

    def test_it_fills_the_window_that_it_is_given_and_no_more(self):
        small, _, _ = self.pictures()
        host = self.host(200, 100, 640, 480)
        around = self.screen.grab(0, 0, 1280, 100)
        active = self.screen.active()
        self.start_module(self.show("small.bmp"), host=host)
        self.shows_in(host, small, "the picture")
        self.assertEqual(len(host.children()), 1)
        self.assertIsNone(ImageChops.difference(self.screen.grab(0, 0, 1280, 100), around).getbbox())
        self.assertEqual(self.screen.active(), active)

    def test_it_follows_the_size_of_the_window(self):
        small, wide, _ = self.pictures()
        host = self.host(0, 0, 640, 480)
        self.start_module(self.show("wide.bmp"), host=host)
        self.shows_in(host, wide.resize((640, 128)), "the picture")
        host.resize(1280, 1000)
        self.shows_in(host, wide.resize((1280, 256)), "the larger picture")

    def test_the_window_may_be_named_on_the_command_line(self):
        small, _, _ = self.pictures()
        for words in (("-window-id", "{}"), ("--window-id", "{:#x}")):
            host = self.host(100, 100, 500, 400)
            process = self.start_module(*[word.format(host.id) for word in words], self.show("small.bmp"))
            self.shows_in(host, small, "the picture")
            self.session.children.end(process)
            host.destroy()

    def test_on_the_root_window_it_lies_below_all_others(self):
        small, _, _ = self.pictures()
        above = self.host(0, 0, 100, 100)
        self.start_module("-root", self.show("small.bmp"))
        wanted = self.expected(small)
        wanted.paste((0, 0, 0), (0, 0, 100, 100))
        wait_until(lambda: ImageChops.difference(self.screen.grab(), wanted).getbbox() is None, "the picture below")
        self.assertTrue(above.id)

    def test_its_description_is_in_words_that_it_knows(self):
        small, _, _ = self.pictures()
        description = ElementTree.parse(_DESCRIPTION).getroot()
        self.assertEqual(description.get("name"), os.path.basename(MODULE))
        show = self.show("small.bmp")
        words = []
        for part in description:
            if part.get("arg"):
                words += part.get("arg").replace("%", show).split(" ")
        self.assertEqual(words, ["--root", "--show", show])
        host = self.host(0, 0, 640, 480)
        self.start_module(*words, host=host)
        self.shows_in(host, small, "the picture")

    def test_without_a_show_it_plays_the_one_of_the_settings(self):
        small, _, _ = self.pictures()
        self.home.set_in_store("CurrentSaver", drive_path(self.show("small.bmp")))
        host = self.host(0, 0, 640, 480)
        self.start_module("--root", host=host)
        self.shows_in(host, small, "the picture of the chosen show")

    def test_no_input_ends_it(self):
        small, _, _ = self.pictures()
        host = self.host()
        process = self.start_module(self.show("small.bmp"), host=host)
        self.shows_in(host, small, "the picture")
        for key in ("Escape", "space", "a", "F1"):
            self.screen.press(key)
        for button in (1, 3):
            self.screen.click(640, 500, button=button)
        for step in range(40):
            self.screen.move_pointer(600 + 3 * (step % 7), 500 + 2 * (step % 5))
            time.sleep(0.01)
        time.sleep(0.3)
        self.assertIsNone(process.poll())
        self.shows_in(host, small, "the picture still")

    def test_a_signal_ends_it(self):
        small, _, _ = self.pictures()
        host = self.host()
        process = self.start_module(self.show("small.bmp"), host=host)
        self.shows_in(host, small, "the picture")
        process.send_signal(signal.SIGTERM)
        self.assertEqual(self.ends(process), 0)

    def test_it_ends_with_its_window(self):
        small, _, _ = self.pictures()
        host = self.host()
        process = self.start_module(self.show("small.bmp"), host=host)
        self.shows_in(host, small, "the picture")
        host.destroy()
        self.assertEqual(self.ends(process), 0)

    def test_one_on_each_display_and_the_first_remembers(self):
        small, _, beside = self.pictures()
        left, right = self.host(0, 0, 640, 1024), self.host(640, 0, 640, 1024)
        show = self.show("small.bmp", "beside.bmp", interval=1, settings="ResumeLastDisplayed=True\n")
        first = self.start_module(show, host=left)
        wait_until(lambda: self.home.setting("ImageLastDisplayed") == "1", "the first one's slide")
        second = self.start_module(show, host=right)
        self.shows_in(right, small, "the second picture in the second window")
        self.shows_in(right, beside, "the first picture in the second window")
        self.session.children.end(first)
        before = self.home.read_settings()
        self.shows_in(right, small, "the second picture again")
        self.shows_in(right, beside, "the first picture again")
        self.assertEqual(self.home.read_settings(), before)
        self.session.children.end(second)
        third = self.start_module(show, host=left)
        wait_until(lambda: self.home.read_settings() != before, "another first one")
        self.assertIsNone(third.poll())

    def test_a_preview_leaves_no_trace_and_the_first_place_free(self):
        small, _, beside = self.pictures()
        host = self.host(0, 0, 640, 480)
        show = self.show("small.bmp", "beside.bmp", interval=1, settings="ResumeLastDisplayed=True\n")
        before = self.home.read_settings()
        self.start_module("-window-id", str(host.id), show)
        self.shows_in(host, small, "the first picture")
        self.shows_in(host, beside, "the second picture")
        self.shows_in(host, small, "the first picture again")
        self.assertEqual(self.home.read_settings(), before)
        self.start_module(show, host=self.host(640, 0, 640, 1024))
        wait_until(lambda: self.home.setting("ImageLastDisplayed"), "the slide of the saver beside the preview")

    def test_the_settings_and_a_saver_start_beside_it(self):
        small, _, _ = self.pictures()
        host = self.host(0, 0, 200, 200)
        show = self.show("small.bmp")
        self.start_module(show, host=host)
        wait_until(host.children, "the module")
        settings = self.start("/c")
        settings.window("Tavrix - [Screen Saver Settings]")
        settings.close()
        saver = self.start("SCRNSAVE", show)
        saver.window("Screen Saver Main Form")

    def test_a_picture_that_cannot_be_shown_is_left_out(self):
        small, _, _ = self.pictures()
        host = self.host(0, 0, 640, 480)
        process = self.start_module(self.show("none.bmp", "small.bmp", interval=1), host=host)
        self.shows_in(host, small, "the picture that is there")
        self.shows_in(host, Image.new("RGB", (1, 1), _BACKGROUND), "the background alone")
        self.shows_in(host, small, "the picture again")
        self.assertIsNone(process.poll())
        self.assertIn("Unable to view image: none.bmp File not found...", self.log())

    def test_what_it_cannot_play_is_told(self):
        host = self.host(0, 0, 200, 200)
        self.assertEqual(self.ends(self.start_module(host=host)), 1)
        self.assertIn("no slide show has been chosen", self.log())
        self.assertEqual(self.ends(self.start_module(self.show(), host=host)), 1)
        self.assertIn("there are no pictures in", self.log())
        self.assertEqual(self.ends(self.start_module("-window-id", "0x7ffffff")), 1)
        self.assertIn("there is no such window", self.log())
        self.assertEqual(self.ends(self.start_module()), 2)
        self.assertIn("Usage:", self.log())
