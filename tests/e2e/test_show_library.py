"""Shows as files: found on a drive and played, renamed, deleted with what belongs to them."""

import os

from PIL import Image, ImageChops

from driver import SleepingDisk, drive_path, wait_until
from support import ProgramTest

_TITLE = "Tavrix - [Find Slide Show(s)]"


class LibraryTest(ProgramTest):
    def setUp(self):
        super().setUp()
        self.shows = os.path.join(self.home.pictures, "shows")
        os.mkdir(self.shows)
        self.drives = {"TAVRIX_DRIVES": f"C=/;D={self.home.pictures},fixed"}

    def show_file(self, name, *pictures, sound=""):
        lines = ['"Tavrix Slide Show"', '"Version 1.5"', str(int(bool(sound))), f'"{sound}"', "0", "0", "0", "0", "0",
                 "0", "0", "0"]
        for picture in pictures:
            lines += [f'"{picture}"', '""']
        path = os.path.join(self.shows, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="cp1252", newline="") as file:
            file.write("".join(line + "\r\n" for line in lines))
        return path

    def open_dialog(self, program, entry, title):
        program.menu_entry("Slide Show", entry).act()
        return self.dialog(program, title)

    def start_on(self, folder):
        program = self.start(environment=self.drives, folder=folder)
        program.main()
        return program

    def answer(self, program, text, button):
        """Answers the box whose text this is, whatever its blanks."""
        box = program.message_box()
        self.assertEqual(box.text.split(), text.split())
        box.press(button)

    def in_trash(self):
        return sorted(os.listdir(os.path.join(self.home.environment["XDG_DATA_HOME"], "Trash", "files")))

    def test_a_show_is_found_and_played(self):
        _, image = self.picture(300, 200, "small.bmp")
        self.show_file("cats.tvs", "D:\\small.bmp")
        self.show_file("old/Cats.TVS", "D:\\small.bmp")
        os.symlink(self.shows, os.path.join(self.home.pictures, "again"))
        self.home.write_settings("[Viewer]\nBackgroundColor=4\n")
        program = self.start_on(self.home.pictures)
        dialog = self.open_dialog(program, "Find Slide Show(s)", "Find Slide Show(s)")
        self.assertEqual(self.status(dialog), 'Enter part of a filename and press the "Find" button...')
        self.screen.press("Return")
        self.wait_rows(dialog, "File(s) Found:", ["D:\\shows\\old\\Cats.TVS", "D:\\shows\\cats.tvs"])
        self.assertEqual(self.status(dialog), "Found a total of: 2 slide shows on D:")
        self.screen.type("cats")
        self.screen.press("Return")
        self.wait_rows(dialog, "File(s) Found:", ["D:\\shows\\cats.tvs"])
        self.screen.type("zebra")
        self.screen.press("Return")
        self.answer(program, "Unable to find filenames matching the specified file pattern...", "OK")
        self.screen.type("cats")
        self.screen.press("Return")
        self.wait_rows(dialog, "File(s) Found:", ["D:\\shows\\cats.tvs"])
        self.press(dialog, "Open")
        stage = program.window("Tavrix Full Screen View")
        wait_until(lambda: self.screen.active() == stage.id, "the keyboard on the stage")
        wanted = Image.new("RGB", (self.screen.width, self.screen.height), (64, 0, 0))
        wanted.paste(image, ((self.screen.width - 300) // 2, (self.screen.height - 200) // 2))
        wait_until(lambda: ImageChops.difference(self.screen.grab(), wanted).getbbox() is None,
                   "the slide alone on the screen")
        self.screen.press("Escape")
        wait_until(lambda: program.titles() == ["Tavrix"], lambda: f"the main view alone, not {program.titles()}")
        self.end_by_escape(program)

    def test_escape_stops_a_search_and_then_closes_the_window(self):
        self.show_file("../a first/one.tvs")
        os.makedirs(os.path.join(self.home.pictures, "asleep"))
        disk = SleepingDisk(self.home.folder)
        program = self.start(environment={**self.drives, **disk.environment}, folder=self.home.pictures)
        program.main()
        dialog = self.open_dialog(program, "Find Slide Show(s)", "Find Slide Show(s)")
        self.screen.press("Return")
        self.wait_status(dialog, "Found: 1 slide shows...")
        self.screen.press("Escape")
        self.wait_status(dialog, "Find Slide Show(s) was canceled...")
        self.wait_rows(dialog, "File(s) Found:", ["D:\\a first\\one.tvs"])
        disk.wake()
        self.screen.press("Escape")
        wait_until(lambda: program.titles() == ["Tavrix"], lambda: f"the main view alone, not {program.titles()}")
        self.end_by_escape(program)

    def test_a_show_is_renamed(self):
        path = self.show_file("old.tvs")
        self.show_file("other.tvs")
        self.home.write_settings(f"[Viewer]\nLastSlideShow={drive_path(path)}\n")
        program = self.start(folder=self.home.pictures)
        program.main()
        dialog = self.open_dialog(program, "Rename Slide Show", "Rename Slide Show")
        self.wait_rows(dialog, "Files:", ["old.tvs", "other.tvs"])
        field = dialog.find("text", "Enter New Filename for Slide Show:")
        self.assertEqual(field.text, "old.tvs")
        for name, refusal in (("a/b", "You may not include a path in the filename, unable to rename slide show..."),
                              ("other", "The filename that was specified already exists, unable to rename slide "
                                        "show...")):
            self.enter(field, name)
            self.screen.press("Return")
            self.answer(program, refusal, "OK")
        self.enter(field, "new")
        self.screen.press("Return")
        self.answer(program, "You are about to rename: old.tvs -- to -- new.tvs Are you sure?", "Yes")
        self.wait_rows(dialog, "Files:", ["new.tvs", "other.tvs"])
        self.assertEqual(sorted(os.listdir(self.shows)), ["new.tvs", "other.tvs"])
        self.screen.press("Escape")
        wait_until(lambda: program.titles() == ["Tavrix"], "the main view alone")
        self.end_by_escape(program)

    def enter(self, field, text):
        x, y, width, height = field.extents
        self.screen.click(x + width // 2, y + height // 2)
        self.screen.press("Ctrl+a")
        self.screen.type(text)
        wait_until(lambda: field.text == text, lambda: f"{text!r} in the field, not {field.text!r}")

    def test_a_show_is_deleted_with_its_images_and_its_folder(self):
        self.picture(30, 20, "elsewhere.bmp")
        self.picture(30, 20, "open.bmp")
        path = self.show_file("old.tvs", "beside.bmp", "D:\\elsewhere.bmp", "D:\\open.bmp", "C:\\etc\\hostname")
        os.rename(self.picture(30, 20, "beside.bmp")[0], os.path.join(self.shows, "beside.bmp"))
        self.home.write_settings("[Viewer]\nLastSlideShow=D:\\shows\\old.tvs\n")
        program = self.start(os.path.join(self.home.pictures, "open.bmp"), environment=self.drives)
        wait_until(lambda: program.titles() == ["Tavrix - [D:\\open.bmp]"], "the picture")
        dialog = self.open_dialog(program, "Delete Slide Show", "Delete Slide Show")
        self.wait_rows(dialog, "Files:", ["old.tvs"])
        self.press(dialog, "Delete")
        self.answer(program, "Delete the selected slide show file? D:\\shows\\old.tvs", "Yes")
        self.answer(program, "Delete ALL of the images referenced in this slide show file? (You may want to open the "
                             "slide show to check the images that it contains first.)", "Yes")
        self.answer(program, "Unable to delete file: D:\\open.bmp Image is currently open...", "OK")
        self.answer(program, "A total of 2 images were deleted...", "OK")
        self.answer(program, "This slide show folder is now empty: D:\\shows Remove this directory?", "Yes")
        self.answer(program, "The selected slide show has been deleted... (Some files were not removed due to "
                             "error(s).)", "OK")
        self.assertFalse(os.path.exists(path))
        self.assertEqual(os.listdir(self.home.pictures), ["open.bmp"])
        self.assertEqual(self.in_trash(), ["beside.bmp", "elsewhere.bmp", "old.tvs"])
        self.assertTrue(os.path.exists("/etc/hostname"))
        self.press(dialog, "Cancel")
        wait_until(lambda: len(program.titles()) == 1, "the main view alone")
        self.end_by_escape(program)

    def test_the_open_image_stays_by_a_relative_row_too(self):
        for name in ("open.bmp", "other.bmp"):
            os.rename(self.picture(30, 20, name)[0], os.path.join(self.shows, name))
        self.show_file("old.tvs", "other.bmp", "open.bmp")
        self.home.write_settings("[Viewer]\nLastSlideShow=D:\\shows\\old.tvs\n")
        program = self.start(os.path.join(self.shows, "open.bmp"), environment=self.drives)
        wait_until(lambda: program.titles() == ["Tavrix - [D:\\shows\\open.bmp]"], "the picture")
        dialog = self.open_dialog(program, "Delete Slide Show", "Delete Slide Show")
        self.wait_rows(dialog, "Files:", ["old.tvs"])
        self.press(dialog, "Delete")
        self.answer(program, "Delete the selected slide show file? D:\\shows\\old.tvs", "Yes")
        self.answer(program, "Delete ALL of the images referenced in this slide show file? (You may want to open the "
                             "slide show to check the images that it contains first.)", "Yes")
        self.answer(program, "Unable to delete file: D:\\shows\\open.bmp Image is currently open...", "OK")
        self.answer(program, "A total of 1 images were deleted...", "OK")
        # The lists show no picture, so that the folder looks empty; it is not.
        self.answer(program, "This slide show folder is now empty: D:\\shows Remove this directory?", "Yes")
        box = program.message_box()
        self.assertIn("Unable to delete the slide show directory.", box.text)
        box.press("OK")
        self.answer(program, "The selected slide show has been deleted... (Some files were not removed due to "
                             "error(s).)", "OK")
        self.assertEqual(os.listdir(self.shows), ["open.bmp"])
        self.assertEqual(self.in_trash(), ["old.tvs", "other.bmp"])
        self.press(dialog, "Cancel")
        wait_until(lambda: program.titles() == ["Tavrix - [D:\\shows\\open.bmp]"], "the main view alone")
        self.end_by_escape(program)
