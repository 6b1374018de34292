"""Dialogs whose folder is on a disk that sleeps: they answer, and they have their files when it is awake."""

import os
import unittest

from driver import Pings, SleepingDisk, wait_until
from support import ProgramTest

ANSWERS = 30  # enough that nobody would call the window frozen


class SlowFoldersTest(ProgramTest):
    def setUp(self):
        super().setUp()
        self.asleep = os.path.join(self.home.pictures, "asleep")
        os.mkdir(self.asleep)
        for name in ("one.bmp", "two.bmp", "three.bmp"):
            path, _ = self.picture(300, 200, name)
            os.rename(path, os.path.join(self.asleep, name))
        self.disk = SleepingDisk(self.home.folder)

    def start_asleep(self):
        """The program with a picture of the folder, which it finds without reading that."""
        program = self.start(os.path.join(self.asleep, "two.bmp"),
                             environment={"TAVRIX_DRIVES": f"C=/;D={self.home.pictures},fixed", **self.disk.environment})
        program.window("Tavrix - [D:\\asleep\\two.bmp]")
        return program

    def open_dialog(self, program, title, *entry):
        """A dialog that has come before its folder has."""
        program.menu_entry(*entry).act()
        dialog = self.dialog(program, title)
        self.assert_answers(program.window(title))
        return dialog

    def assert_answers(self, window):
        pings = Pings(self.screen, window)
        try:
            wait_until(lambda: len(pings.since(0)) >= ANSWERS, lambda: f"{len(pings.since(0))} answers while the disk sleeps")
        finally:
            pings.stop()

    def test_an_image_is_opened_when_the_disk_is_awake(self):
        program = self.start_asleep()
        dialog = self.open_dialog(program, "Open Image", "File", "Open Image")
        self.assertEqual(self.rows(dialog, "Files:"), [])
        self.assertEqual(self.rows(dialog, "Folder:"), ["D:\\", "asleep"])
        self.screen.press("Return")  # which waits, too
        self.assert_answers(program.window("Open Image"))
        self.disk.wake()
        box = program.message_box()
        self.assertEqual(box.text.split(), "This image is already open. Read selected file again?".split())
        box.press("No")
        dialog = self.dialog(program, "Open Image")
        self.wait_rows(dialog, "Files:", ["one.bmp", "three.bmp", "two.bmp"])
        dialog.find("push button", "Cancel").act()
        wait_until(lambda: "Open Image" not in program.titles(), "the end of the dialog")

    def test_another_folder_and_cancel_wait_for_no_disk(self):
        awake = os.path.join(self.home.pictures, "x awake")
        os.mkdir(awake)
        path, _ = self.picture(30, 20, "quick.bmp")
        os.rename(path, os.path.join(awake, "quick.bmp"))
        self.home.write_settings("[Viewer]\nFavoriteFolder=D:\\x awake\\\n")
        program = self.start_asleep()
        dialog = self.open_dialog(program, "Open Image", "File", "Open Image")
        dialog.find("push button", "Favorite Folder").act()
        self.wait_rows(dialog, "Files:", ["quick.bmp"])
        self.assert_answers(program.window("Open Image"))
        self.assertEqual(self.rows(dialog, "Files:"), ["quick.bmp"])
        dialog.find("push button", "Cancel").act()
        wait_until(lambda: "Open Image" not in program.titles(), "the end of the dialog")
        # Where nobody waits for the disk, the program ends without it.
        self.end_by_escape(program)

    def test_a_copy_is_saved_when_the_disk_is_awake(self):
        program = self.start_asleep()
        dialog = self.open_dialog(program, "Save Copy", "File", "Copy", "Current Image")
        self.screen.type("copy.bmp")
        self.screen.press("Return")
        self.assert_answers(program.window("Save Copy"))
        self.disk.wake()
        box = program.message_box()
        self.assertEqual(box.text.split(), "About to save the image as: D:\\asleep\\copy.bmp Is this filename OK?".split())
        box.press("Yes")
        wait_until(lambda: "Save Copy" not in program.titles(), "the end of the dialog")
        self.assertIn("copy.bmp", os.listdir(self.asleep))

    def test_a_floppy_is_read_while_the_window_answers(self):
        program = self.start(environment={"TAVRIX_DRIVES": f"A={self.asleep},floppy,disk;C=/", **self.disk.environment})
        window = program.main()
        program.menu_entry("File", "Copy", "Images From Floppy").act()
        self.assert_answers(window)
        self.assertEqual(program.titles(), [window.title])
        self.disk.wake()
        dialog = self.dialog(program, "Copy Image(s) From Floppy Drive")
        self.wait_rows(dialog, "Files:", ["one.bmp", "three.bmp", "two.bmp"])
        self.disk.sleep()
        dialog.find("push button", "Read Another Disk").act()
        self.assert_answers(program.window("Copy Image(s) From Floppy Drive"))
        self.disk.wake()
        self.wait_rows(dialog, "Files:", ["one.bmp", "three.bmp", "two.bmp"])

    def test_nothing_is_deleted_before_the_disk_is_awake(self):
        program = self.start_asleep()
        dialog = self.open_dialog(program, "Delete Image(s)", "File", "Delete", "Image(s)")
        self.screen.press("Alt+d")
        self.assert_answers(program.window("Delete Image(s)"))
        self.disk.wake()
        box = program.message_box()
        self.assertTrue(box.text.startswith("Nothing was selected to delete."), box.text)
        box.press("OK")
        self.wait_rows(dialog, "Files:", ["one.bmp", "three.bmp", "two.bmp"])
        self.assertEqual(len(os.listdir(self.asleep)), 3)


if __name__ == "__main__":
    unittest.main()
