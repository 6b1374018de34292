"""One run of the program over one folder of forty mixed pictures: thumbnails, images found, files of like names."""

import os
import shutil

from driver import SleepingDisk, wait_until
from driver.drop import DropSource
from finding_dialogs import BEGIN, DUPLICATES, FIND, IS_OPEN, RECYCLE, FindingDialogs
from samples import SAMPLES, put_samples
from support import ProgramTest
from thumbnail_browser import BROWSER, ThumbnailBrowser

FOLDER = "40 samples"
ASLEEP = 12  # the place of the picture that cannot be read to its end before its disk wakes


class MixedFolderTest(ThumbnailBrowser, FindingDialogs, ProgramTest):
    def setUp(self):
        super().setUp()
        self.folder = os.path.join(self.home.pictures, FOLDER)
        os.mkdir(self.folder)
        self.names = put_samples(self.folder)
        os.remove(os.path.join(self.folder, self.names[ASLEEP]))
        self.names[ASLEEP] = f"{ASLEEP + 1}-asleep.jpg"
        shutil.copy(os.path.join(SAMPLES, "hills.jpg"), os.path.join(self.folder, self.names[ASLEEP]))
        self.shown = f"Tavrix - [{self.path(ASLEEP)}]"
        # Searches come to this folder last.
        os.mkdir(os.path.join(self.home.pictures, "asleep"))
        self.picture(30, 20, os.path.join("asleep", "far-off.bmp"))
        put_samples(self.other)
        self.disk = SleepingDisk(self.home.folder)
        self.drives.update(self.disk.environment)

    def path(self, index):
        return f"D:\\{FOLDER}\\{self.names[index]}"

    def stop_in_the_middle(self, browser):
        """Stops the page that is on its way at the picture that sleeps."""
        wait_until(lambda: [g.name for g in self.thumbnails(browser)] == self.names[9:ASLEEP],
                   lambda: f"three thumbnails; there are {self.thumbnails(browser)}")
        self.assertIn("Please wait...", self.labels(browser))
        self.click(browser.find("push button", "Stop"))
        self.wait_labels(browser, f"10 to {ASLEEP + 1}")
        self.assertEqual([g.name for g in self.thumbnails(browser)], self.names[9:ASLEEP])
        self.assertFalse(list(browser.all("push button", "Stop")))

    def look_through(self, program, browser):
        self.wait_page(browser, 1, 9)
        self.screen.press("Alt+n")
        self.stop_in_the_middle(browser)
        for first in (14, 23, 32):
            self.screen.press("Alt+n")
            self.wait_page(browser, first, first + 8)
        self.screen.press("Alt+n")
        self.wait_page(browser, 1, 9)
        self.screen.press("Alt+p")
        third = self.wait_page(browser, 32, 40)[2]
        self.point_at(third)
        size = os.path.getsize(os.path.join(self.folder, self.names[33]))
        self.wait_labels(browser, f"{self.names[33]} ({size:,} bytes)")
        self.click(third, button=3)
        program.wait(program.popups, "the popup menu")
        self.screen.press("i")
        box = program.message_box()
        self.assertIn(self.path(33), box.text)
        box.press("OK")
        # The disk slept all the while; the page that was stopped is whole once it is awake.
        self.disk.wake()
        self.screen.press("Alt+n")
        self.wait_page(browser, 1, 9)
        self.screen.press("Alt+n")
        self.click(self.wait_page(browser, 10, 18)[ASLEEP - 9])
        self.wait_titles(program, self.shown)

    def drop_some(self, program, browser):
        self.wait_page(browser, 1, 9)
        dropped = [self.names[index] for index in (7, 3, 5)]
        self.assertTrue(DropSource(self.screen, [os.path.join(self.folder, name) for name in dropped])
                        .drop_on(program.window(BROWSER)))
        self.wait_labels(browser, "1 to 3")
        self.assertEqual([g.name for g in self.thumbnails(browser)], dropped)
        self.screen.press("Escape")
        self.wait_titles(program, self.shown)

    def find_and_delete(self, program):
        self.disk.sleep()
        dialog = self.open_dialog(program, FIND)
        self.screen.press("Return")
        self.wait_status(dialog, "Found: 40 images...")
        self.screen.press("Escape")
        self.wait_status(dialog, "Find Image(s) was canceled...")
        rows = [self.path(index) for index in range(len(self.names))]
        self.wait_found(dialog, rows)
        self.click_row(dialog, ASLEEP)
        self.screen.press("Delete")
        self.answer(program, IS_OPEN, "OK")
        self.wait_found(dialog, rows)
        self.click_row(dialog, 2)
        self.screen.press("Delete")
        self.answer(program, RECYCLE + rows[2], "Yes")
        gone = self.names.pop(2)
        del rows[2]
        self.wait_found(dialog, rows)
        self.assertEqual(self.in_trash(), [gone])
        self.assertEqual(sorted(os.listdir(self.folder)), self.names)
        # What sleeps is still being waited for, and is nobody's any more.
        self.disk.wake()
        self.press(dialog, "Find File(s)")
        self.wait_found(dialog, [*rows, "D:\\asleep\\far-off.bmp"])
        self.wait_status(dialog, "Found a total of: 40 images on D:")
        self.screen.press("Escape")

    def find_twins(self, program):
        dialog = self.open_dialog(program, DUPLICATES)
        self.select_drives(dialog, "D", "E")
        self.press(dialog, "Search")
        self.answer(program, BEGIN, "OK")
        twins = [path for index, name in enumerate(self.names) if "asleep" not in name
                 for path in (f"E:\\{name}", self.path(index))]
        self.wait_found(dialog, twins)
        self.wait_status(dialog, f" Selected drive(s) have been searched, {len(twins)} duplicate files were found...")
        self.screen.press("Alt+o")

    def test_forty_pictures_from_the_first_look_to_the_last(self):
        program = self.start_on(folder=self.folder)
        self.look_through(program, self.open_browser(program))
        self.drop_some(program, self.open_browser(program))
        self.find_and_delete(program)
        self.wait_titles(program, self.shown)
        self.find_twins(program)
        self.wait_titles(program, self.shown)
        self.end_by_escape(program)
