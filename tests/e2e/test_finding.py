"""Images found on a drive, files of like names on two drives, and favorite files."""

import os
import shutil

from PIL import Image, ImageChops

from driver import SleepingDisk, wait_until
from support import ProgramTest

_SAMPLES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "samples")
_KINDS = (".bmp", ".dib", ".jpg", ".gif", ".wmf", ".emf", ".ico", ".rle", ".cur", ".pcx", ".tga")
_FIND = "Find Image(s)"
_DUPLICATES = "Search For Duplicate Files"
_BEGIN = ("You are about to search the selected drive(s) for duplicate files... This could take several minutes to "
          "complete.")
_RECYCLE = "Are you sure you want to send the following file to the Recycle Bin? "


class FindingTest(ProgramTest):
    def setUp(self):
        super().setUp()
        self.other = os.path.join(self.home.pictures, "..", "other")
        self.other = os.path.normpath(self.other)
        os.mkdir(self.other)
        self.drives = {"TAVRIX_DRIVES": f"C=/;D={self.home.pictures},fixed;E={self.other},fixed"}

    def open_dialog(self, program, entry):
        program.menu_entry("File", "Find", entry).act()
        return self.dialog(program, entry)

    def start_on(self, *arguments, folder=None):
        program = self.start(*arguments, environment=self.drives, folder=folder or self.home.pictures)
        if not arguments:
            program.main()
        return program

    def rows(self, dialog, name="File(s) Found:"):
        return [row.name for row in dialog.find("list", name).children()]

    def wait_rows(self, dialog, wanted):
        wait_until(lambda: self.rows(dialog) == wanted, lambda: f"{wanted}; there are {self.rows(dialog)}; {self.status(dialog)}")

    def status(self, dialog):
        return dialog.find("graphic", "Status").description

    def wait_status(self, dialog, wanted):
        wait_until(lambda: self.status(dialog) == wanted, lambda: f"{wanted!r}, not {self.status(dialog)!r}")

    def press(self, dialog, name):
        dialog.find("push button", name).act()

    def click_row(self, dialog, row, times=1):
        x, y, width, height = dialog.find("list", "File(s) Found:").children()[row].extents
        self.screen.click(x + width // 2, y + height // 2, times=times)

    def answer(self, program, text, button):
        """Answers the box whose text this is, whatever its blanks."""
        box = program.message_box()
        self.assertEqual(box.text.split(), text.split())
        box.press(button)

    def in_trash(self):
        return sorted(os.listdir(os.path.join(self.home.environment["XDG_DATA_HOME"], "Trash", "files")))

    def wait_titles(self, program, *wanted):
        wait_until(lambda: program.titles() == list(wanted), lambda: f"{wanted}, not {program.titles()}")

    def select_drives(self, dialog, *letters):
        self.press(dialog, "Select NONE")
        drives = dialog.find("list", "Select Drive(s):")
        wait_until(lambda: not any(row.has("selected") for row in drives.children()), "no drive selected")
        for row in drives.children():
            if row.name[0] in letters:
                x, y, width, height = row.extents
                self.screen.click(x + width // 4, y + height // 2)

    def test_an_image_is_found_deleted_and_opened(self):
        self.picture(300, 200, "cat 1.bmp")
        self.picture(310, 200, "cat 2.bmp")
        self.picture(320, 200, "CAT 3.bmp")
        os.mkdir(os.path.join(self.home.pictures, "old"))
        os.rename(self.picture(330, 200, "cat 4.bmp")[0], os.path.join(self.home.pictures, "old", "cat 4.bmp"))
        os.symlink(self.home.pictures, os.path.join(self.home.pictures, "again"))
        program = self.start_on(os.path.join(self.home.pictures, "cat 1.bmp"))
        self.wait_titles(program, "Tavrix - [D:\\cat 1.bmp]")
        dialog = self.open_dialog(program, _FIND)
        self.screen.type("cat")
        self.screen.press("Return")
        self.wait_rows(dialog, ["D:\\old\\cat 4.bmp", "D:\\cat 1.bmp", "D:\\cat 2.bmp"])
        self.wait_status(dialog, "Found a total of: 3 images on D:")
        self.click_row(dialog, 1)
        self.screen.press("Delete")
        self.answer(program, "Unable to delete this file, image is currently open...", "OK")
        self.click_row(dialog, 2)
        self.screen.press("Delete")
        self.answer(program, _RECYCLE + "D:\\cat 2.bmp", "Yes")
        self.wait_rows(dialog, ["D:\\old\\cat 4.bmp", "D:\\cat 1.bmp"])
        self.wait_status(dialog, "Found a total of: 2 images on D:")
        self.assertEqual(self.in_trash(), ["cat 2.bmp"])
        self.click_row(dialog, 0, times=2)
        self.wait_titles(program, "Tavrix - [D:\\old\\cat 4.bmp]")
        self.end_by_escape(program)

    def test_forty_samples_of_all_kinds(self):
        samples = [name for name in sorted(os.listdir(_SAMPLES)) if name.endswith(_KINDS)]
        names = [f"{number:02}-{samples[number % len(samples)]}" for number in range(1, 41)]
        self.assertEqual({os.path.splitext(name)[1] for name in names}, set(_KINDS))
        for name in names:
            for folder in (self.home.pictures, self.other):
                shutil.copy(os.path.join(_SAMPLES, name[3:]), os.path.join(folder, name))
        shutil.copy(os.path.join(_SAMPLES, "small.png"), self.home.pictures)
        program = self.start_on()
        dialog = self.open_dialog(program, _FIND)
        self.screen.press("Return")
        self.wait_rows(dialog, [f"D:\\{name}" for name in names])
        self.wait_status(dialog, "Found a total of: 40 images on D:")
        self.screen.type("balloon")
        self.screen.press("Return")
        self.wait_rows(dialog, [f"D:\\{name}" for name in names if "balloon" in name])
        self.screen.press("Escape")
        self.wait_titles(program, "Tavrix")
        dialog = self.open_dialog(program, _DUPLICATES)
        self.select_drives(dialog, "D", "E")
        self.press(dialog, "Search")
        self.answer(program, _BEGIN, "OK")
        self.wait_rows(dialog, [f"{drive}:\\{name}" for name in names for drive in "ED"])
        self.wait_status(dialog, " Selected drive(s) have been searched, 80 duplicate files were found...")
        self.screen.press("Alt+o")
        self.wait_titles(program, "Tavrix")
        self.end_by_escape(program)

    def test_a_search_is_canceled_in_the_middle(self):
        os.mkdir(os.path.join(self.home.pictures, "a first"))
        os.rename(self.picture(30, 20, "one.bmp")[0], os.path.join(self.home.pictures, "a first", "one.bmp"))
        os.mkdir(os.path.join(self.home.pictures, "asleep"))
        disk = SleepingDisk(self.home.folder)
        self.drives.update(disk.environment)
        program = self.start_on()
        dialog = self.open_dialog(program, _FIND)
        self.screen.press("Return")
        self.wait_status(dialog, "Found: 1 images...")
        self.screen.press("Escape")
        self.wait_status(dialog, "Find Image(s) was canceled...")
        self.wait_rows(dialog, ["D:\\a first\\one.bmp"])
        disk.wake()
        self.screen.press("Escape")
        self.wait_titles(program, "Tavrix")
        self.end_by_escape(program)

    def test_files_of_like_names_on_two_drives(self):
        self.picture(300, 200, "x.bmp")
        self.picture(30, 20, "alone.bmp")
        path, image = self.picture(310, 200, "X2.bmp")
        os.rename(path, os.path.join(self.other, "X.BMP"))
        # Two names for one content are two files, a link is none.
        os.mkdir(os.path.join(self.home.pictures, "linked"))
        os.link(os.path.join(self.home.pictures, "x.bmp"), os.path.join(self.home.pictures, "linked", "x.bmp"))
        os.symlink(os.path.join(self.home.pictures, "alone.bmp"), os.path.join(self.other, "alone.bmp"))
        self.home.write_settings("[Viewer]\nBackgroundColor=4\n")
        program = self.start_on()
        dialog = self.open_dialog(program, _DUPLICATES)
        self.select_drives(dialog, "D", "E")
        self.press(dialog, "Search")
        self.answer(program, _BEGIN, "OK")
        self.wait_rows(dialog, ["E:\\X.BMP", "D:\\x.bmp", "D:\\linked\\x.bmp"])
        self.wait_status(dialog, " Selected drive(s) have been searched, 3 duplicate files were found...")
        self.click_row(dialog, 0)
        self.press(dialog, "Show Info")
        box = program.message_box()
        self.assertIn("Complete path to selected image file:", box.text)
        self.assertIn(f"{os.path.getsize(os.path.join(self.other, 'X.BMP')):,} bytes", box.text)
        box.press("OK")
        self.press(dialog, "Preview")
        stage = program.window("Tavrix Full Screen View")
        wait_until(lambda: self.screen.active() == stage.id, "the keyboard on the stage")
        wanted = Image.new("RGB", (self.screen.width, self.screen.height), (64, 0, 0))
        wanted.paste(image, ((self.screen.width - 310) // 2, (self.screen.height - 200) // 2))
        wait_until(lambda: ImageChops.difference(self.screen.grab(), wanted).getbbox() is None,
                   "the image alone on the screen")
        self.screen.press("Escape")
        dialog = self.dialog(program, _DUPLICATES)
        self.click_row(dialog, 1)
        self.screen.press("Delete")
        self.answer(program, _RECYCLE + "D:\\x.bmp", "Yes")
        self.wait_rows(dialog, ["E:\\X.BMP", "D:\\linked\\x.bmp"])
        self.assertEqual(self.in_trash(), ["x.bmp"])
        self.click_row(dialog, 0, times=2)
        self.answer(program, "E:\\X.BMP Open this image?", "Yes")
        self.wait_titles(program, "Tavrix - [E:\\X.BMP]")
        self.end_by_escape(program)

    def favorites(self, program):
        return [entry.name for top in program.menu_tree() if top.name == "Favorites" for entry in top.entries]

    def test_favorites_are_listed_opened_and_played(self):
        self.home.write_settings("[Viewer]\nBackgroundColor=4\n")
        _, first = self.picture(300, 200, "one & only.bmp")
        self.picture(310, 200, "two.bmp")
        program = self.start_on(os.path.join(self.home.pictures, "one & only.bmp"))
        self.wait_titles(program, "Tavrix - [D:\\one & only.bmp]")
        program.menu_entry("Favorites", "Add To List").act()
        wait_until(lambda: "D:\\one & only.bmp" in self.favorites(program), "the favorite in the menu")
        program.menu_entry("Favorites", "Add To List").act()
        self.answer(program, "This file is already in your favorites list...", "OK")
        program.menu_entry("Edit", "Clear Screen").act()
        self.wait_titles(program, "Tavrix")
        program.menu_entry("Favorites", "D:\\one & only.bmp").act()
        self.wait_titles(program, "Tavrix - [D:\\one & only.bmp]")
        self.screen.press("Shift+1")
        stage = program.window("Tavrix Full Screen View")
        wait_until(lambda: self.screen.active() == stage.id, "the keyboard on the stage")
        wanted = Image.new("RGB", (self.screen.width, self.screen.height), (64, 0, 0))
        wanted.paste(first, ((self.screen.width - 300) // 2, (self.screen.height - 200) // 2))
        wait_until(lambda: ImageChops.difference(self.screen.grab(), wanted).getbbox() is None,
                   "the favorite alone on the screen")
        self.screen.press("Escape")
        self.wait_titles(program, "Tavrix - [D:\\one & only.bmp]")
        self.screen.press("Shift+2")
        dialog = self.dialog(program, "Save - Tavrix Slide Show  (.tvs)")
        self.screen.press("Escape")
        program.menu_entry("Favorites", "Organize", "Remove From List").act()
        dialog = self.dialog(program, "Remove Favorite File(s)")
        self.press(dialog, "Remove")
        self.answer(program, "Remove the selected file(s) from your favorites list?", "Yes")
        self.wait_titles(program, "Tavrix - [D:\\one & only.bmp]")
        self.end_by_escape(program)
        self.assertEqual(self.home.setting("FavoriteFile1"), "")
