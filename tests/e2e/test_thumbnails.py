"""The thumbnail browser over a folder of mixed pictures: pages, Stop, the pointer's hints, the popup, opening, drops."""

import os
import shutil
import unittest

from PIL import Image
from driver import drive_path, wait_until
from driver.accessibility import Gone
from driver.drop import DropSource
from driver.waiting import wait_unchanged
from samples import FILES, SAMPLES, put_samples
from support import ProgramTest
from thumbnail_browser import BROWSER, FILES_DIALOG, ThumbnailBrowser


class ThumbnailsTest(ThumbnailBrowser, ProgramTest):
    def put_samples(self):
        self.names = put_samples(self.home.pictures)

    def put_broken(self):
        """Pictures of all these kinds that are nothing, only a beginning, a half, and one with a hole."""
        samples = ["palette.bmp", "small-1bit.dib", "hills.jpg", "balloon.gif", "harbour.wmf", "rainfall.emf", "balloon.ico",
                   "small-rle4.rle", "balloon.cur"]
        self.names = []
        for sample in samples:
            with open(os.path.join(SAMPLES, sample), "rb") as file:
                whole = file.read()
            half = len(whole) // 2
            for broken in (b"", whole[:30], whole[:half], whole[:40] + bytes(half) + whole[40 + half:]):
                self.names.append(f"{len(self.names) + 1:02}-{sample}")
                with open(os.path.join(self.home.pictures, self.names[-1]), "wb") as file:
                    file.write(broken)

    def pass_failures(self, program, browser, first, last):
        """Lets a page come to its end, whatever fails on it. Gives the paths of what has failed."""
        failed = []

        def look():
            box = program.message_box()  # the topmost one; the browser looks like a box, too
            if box.title != "Tavrix":
                return f"{first} to {last}" in self.labels(browser)
            self.assertTrue(box.text.startswith("Unable to show preview of the following image:"), box.text)
            failed.append(next(line for line in box.text.splitlines() if line.startswith("C:\\")))
            box.press("OK")
            return False
        wait_until(look, lambda: f"page {first} to {last}; there are {self.labels(browser)}, and {failed} failed", 60)
        return failed

    def click_row(self, dialog, name):
        """Whether there is such a row; the list may be filled just now."""
        try:
            row = next((r for r in dialog.find("list", "Select Files:").children() if r.name == name), None)
            if row:
                self.click(row)
            return row is not None
        except Gone:
            return False

    def test_pages_show_every_kind_and_wrap(self):
        self.put_samples()
        program, browser = self.browse()
        seen = 0
        for first, last in ((1, 9), (10, 18), (19, 27), (28, 36), (37, 40)):
            self.wait_page(browser, first, last)
            for index, name in enumerate(self.names[first - 1:last]):
                wait_until(lambda index=index: self.is_seen(browser, index), f"something of {name}")
                seen += 1
            self.screen.press("Alt+n")
        self.assertEqual(seen, FILES)
        self.wait_page(browser, 1, 9)
        self.screen.press("Alt+p")
        self.wait_page(browser, 32, 40)
        browser.find("push button", "Back one image").act()
        self.wait_page(browser, 31, 39)
        browser.find("push button", "Forward one image").act()
        self.wait_page(browser, 32, 40)
        total = sum(os.path.getsize(os.path.join(self.home.pictures, name)) for name in self.names)
        for text in (str(FILES), f"{total:,}", drive_path(self.home.pictures) + "\\"):
            self.assertIn(text, self.labels(browser))
        self.assertNotIn("Tavrix", program.titles())
        self.screen.press("Escape")
        program.main()
        self.assertEqual(program.titles(), ["Tavrix"])

    def test_hints_and_the_popup(self):
        self.put_samples()
        program, browser = self.browse()
        third = self.wait_page(browser, 1, 9)[2]
        self.point_at(third)
        size = os.path.getsize(os.path.join(self.home.pictures, self.names[2]))
        hint = f"{self.names[2]} ({size:,} bytes)"
        self.wait_labels(browser, hint)
        self.click(third, button=3)
        program.wait(program.popups, "the popup menu")
        self.screen.press("Escape")
        program.wait(lambda: not program.popups(), "the end of the popup menu")
        self.click(third, button=3)
        program.wait(program.popups, "the popup menu again")
        self.screen.press("i")
        box = program.message_box()
        self.assertEqual(box.title, "Tavrix - [Image Information]")
        self.assertIn(drive_path(os.path.join(self.home.pictures, self.names[2])), box.text)
        with Image.open(os.path.join(self.home.pictures, self.names[2])) as image:
            self.assertIn(f"Width = {image.width}", box.text)
        box.press("OK")
        self.wait_page(browser, 1, 9)
        self.click(third, button=3)
        program.wait(program.popups, "the popup menu once more")
        self.screen.press("w")
        stage = program.window("Tavrix Full Screen View")
        wait_until(lambda: self.screen.active() == stage.id, "the stage becoming active")
        wait_unchanged(lambda: self.screen.grab(0, 0, 50, 50).tobytes(), "the stage")
        self.screen.press("space")
        program.wait(lambda: program.titles() == [BROWSER], "the browser alone")
        self.wait_page(browser, 1, 9)
        self.click(third, button=3)
        program.wait(program.popups, "the popup menu for opening")
        self.screen.press("o")
        program.main(os.path.join(self.home.pictures, self.names[2]))
        self.assertNotIn(BROWSER, program.titles())

    def test_a_left_click_opens_and_nothing_else_does(self):
        self.put_samples()
        program, browser = self.browse(settings="ClickScreenOpen=True\nWindowMaximized=True\n")
        x, y, width, height = self.wait_page(browser, 1, 9)[0].extents
        # The button goes up long after the main view has come under the pointer.
        self.screen.drag((x + width // 2, y + height // 2), (x + width // 2 + 2, y + height // 2), steps=40)
        main = program.main(os.path.join(self.home.pictures, self.names[0]))
        wait_unchanged(program.titles, "the windows")
        self.assertEqual(program.titles(), [main.title])

    def test_selected_files_and_dropped_ones(self):
        self.put_samples()
        self.home.write_settings("[Viewer]\nStartupDialog=0\n")
        program = self.start(folder=self.home.pictures)
        program.main()
        program.menu_entry("File", "Thumbnails", "Select Files").act()
        dialog = self.dialog(program, FILES_DIALOG)
        for name in (self.names[4], self.names[1]):
            wait_until(lambda name=name: self.click_row(dialog, name), name)
        self.screen.press("Alt+o")
        browser = self.browser(program)
        self.wait_labels(browser, "1 to 2")
        self.assertEqual([g.name for g in self.thumbnails(browser)], [self.names[1], self.names[4]])
        self.assertIn("Tavrix is showing thumbnails of selected files...", self.labels(browser))
        dropped = [os.path.join(self.home.pictures, self.names[i]) for i in (7, 3, 5)]
        self.assertTrue(DropSource(self.screen, dropped).drop_on(program.window(BROWSER)))
        self.wait_labels(browser, "1 to 3")
        self.assertEqual([g.name for g in self.thumbnails(browser)], [os.path.basename(path) for path in dropped])

    def test_broken_pictures_stop_no_page(self):
        self.put_broken()
        program, browser = self.browse(rests=False)
        failed = []
        for first in range(1, len(self.names), 9):
            if first > 1:
                self.screen.press("Alt+n")
            failed += self.pass_failures(program, browser, first, first + 8)
            self.wait_page(browser, first, first + 8)
        paths = [drive_path(os.path.join(self.home.pictures, name)) for name in self.names]
        self.assertEqual(failed, [path for path in paths if path in failed])
        # Where there is nothing, nothing is shown of it.
        self.assertLessEqual(set(paths[::4]), set(failed))
        self.screen.press("Escape")
        program.main()

    def test_stop_in_the_middle_of_a_huge_picture(self):
        self.names = ["1-small.jpg", "2-huge.jpg", "3-small.jpg"]
        for name in self.names[::2]:
            shutil.copy(os.path.join(SAMPLES, "hills.jpg"), os.path.join(self.home.pictures, name))
        noise = Image.effect_noise((1000, 800), 90).resize((12_500, 8_000), Image.Resampling.NEAREST)
        Image.merge("RGB", [noise] * 3).save(os.path.join(self.home.pictures, self.names[1]), quality=90,
                                             progressive=True)
        program, browser = self.browse()
        stop = wait_until(lambda: next(iter(browser.all("push button", "Stop")), None), "the Stop button")
        wait_until(lambda: len(self.thumbnails(browser)) == 1, "the first thumbnail")
        self.click(stop)
        self.wait_labels(browser, "1 to 2")
        self.assertEqual([g.name for g in self.thumbnails(browser)], self.names[:1])
        self.screen.press("Escape")
        program.main()


if __name__ == "__main__":
    unittest.main()
